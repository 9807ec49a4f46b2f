#!/usr/bin/env python3
"""Sets the X server to blank its screen after a second and waits for that: exit code 0 where it is blanked, 1 where somebody keeps
it on."""

import sys
import time

from Xlib import X, display
from Xlib.ext import screensaver

server = display.Display()
server.set_screen_saver(1, 0, X.DefaultBlanking, X.DefaultExposures)
server.sync()
root = server.screen().root
for _ in range(40):
    time.sleep(0.1)
    if screensaver.query_info(root).state == screensaver.StateOn:
        # It is on again as if a key had been pressed.
        server.force_screen_saver(X.ScreenSaverReset)
        server.set_screen_saver(0, 0, X.DefaultBlanking, X.DefaultExposures)
        server.sync()
        sys.exit(0)
server.set_screen_saver(0, 0, X.DefaultBlanking, X.DefaultExposures)
server.sync()
sys.exit(1)
