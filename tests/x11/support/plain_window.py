#!/usr/bin/env python3
"""plain_window.py X Y WIDTH HEIGHT [white]: shows an empty window, black or white, that no window manager touches, prints its
number, and keeps it until it is killed."""

import sys

from Xlib import X, display

x, y, width, height = map(int, sys.argv[1:5])
server = display.Display()
screen = server.screen()
ground = screen.white_pixel if sys.argv[5:] == ["white"] else screen.black_pixel
window = screen.root.create_window(x, y, width, height, 0, screen.root_depth, X.InputOutput, X.CopyFromParent,
                                   background_pixel=ground, override_redirect=True,
                                   event_mask=X.StructureNotifyMask)
window.map()
while server.next_event().type != X.MapNotify:
    pass
print(f"0x{window.id:x}", flush=True)
while True:
    server.next_event()
