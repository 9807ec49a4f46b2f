"""clipboard_keeper.py FILE: a clipboard manager. When a program that ends asks it to keep what is on the clipboard, it
fetches the PNG picture, puts that into the file, and ends."""
import sys

from Xlib import X, Xatom, display
from Xlib.protocol import event

screen = display.Display()
window = screen.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent, event_mask=X.PropertyChangeMask)
MANAGER, SAVE, CLIPBOARD, PNG, INCR, MINE = (
    screen.intern_atom(name)
    for name in ("CLIPBOARD_MANAGER", "SAVE_TARGETS", "CLIPBOARD", "image/png", "INCR", "KEEPER"))


def wait_for(kind, fits):
    while True:
        came = screen.next_event()
        if came.type == kind and fits(came):
            return came


def take_property():
    """The property's type and bytes; deleting it tells the other side that it has been read."""
    got = window.get_full_property(MINE, X.AnyPropertyType)
    window.delete_property(MINE)
    screen.flush()
    return (got.property_type, bytes(got.value)) if got is not None else (0, b"")


def fetch():
    window.convert_selection(CLIPBOARD, PNG, MINE, X.CurrentTime)
    screen.flush()
    wait_for(X.SelectionNotify, lambda came: came.selection == CLIPBOARD)
    kind, picture = take_property()
    if kind != INCR:
        return picture
    picture = b""
    while True:
        wait_for(X.PropertyNotify, lambda came: came.atom == MINE and came.state == X.PropertyNewValue)
        _, part = take_property()
        if not part:
            return picture
        picture += part


window.set_selection_owner(MANAGER, X.CurrentTime)
screen.flush()
print("ready", flush=True)
request = wait_for(X.SelectionRequest, lambda came: came.selection == MANAGER and came.target == SAVE)
with open(sys.argv[1], "wb") as kept:
    kept.write(fetch())
answer = event.SelectionNotify(time=request.time, requestor=request.requestor, selection=request.selection,
                               target=request.target, property=request.property)
request.requestor.send_event(answer)
screen.flush()
screen.sync()
