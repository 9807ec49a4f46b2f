#!/usr/bin/python3
"""What a screen reader finds, by the accessibility bus of this session.

access.py wait ROLE PATTERN     until something of that role, whose name holds a match, is shown; the role is a pattern too
access.py gone ROLE PATTERN     until nothing is
access.py press ROLE PATTERN    waits for it, and does its first action
access.py list                  all there is
"""

import re
import sys
import time

from gi.repository import Gio, GLib

SECONDS = 20
ACCESSIBLE = "org.a11y.atspi.Accessible"
SHOWING = 25  # of the states
DEEPEST = 12


def connect():
    session = Gio.bus_get_sync(Gio.BusType.SESSION, None)
    address = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None, 0, -1, None)
    flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
    return Gio.DBusConnection.new_for_address_sync(address.unpack()[0], flags, None, None)


def call(place, interface, method, *arguments):
    values = GLib.Variant(f"({arguments[0]})", arguments[1:]) if arguments else None
    return bus.call_sync(place[0], place[1], interface, method, values, None, 0, 5000, None).unpack()


def role_of(place):
    return call(place, ACCESSIBLE, "GetRoleName")[0]


def name_of(place):
    return call(place, "org.freedesktop.DBus.Properties", "Get", "ss", ACCESSIBLE, "Name")[0]


def is_showing(place):
    return bool(call(place, ACCESSIBLE, "GetState")[0][0] >> SHOWING & 1)


# Each with how deep it is; what goes meanwhile is passed over.
def everything(place=("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"), depth=0):
    try:
        if depth > 0:
            yield place, depth
        below = call(place, ACCESSIBLE, "GetChildren")[0] if depth < DEEPEST else []
    except GLib.Error:
        return
    for each in below:
        yield from everything(each, depth + 1)


def find(role, pattern):
    for place, _ in everything():
        try:
            if re.fullmatch(role, role_of(place)) and re.search(pattern, name_of(place)) and is_showing(place):
                return place
        except GLib.Error:
            continue
    return None


def wait(role, pattern, there=True):
    end = time.monotonic() + SECONDS
    while time.monotonic() < end:
        found = find(role, pattern)
        if (found is not None) == there:
            return found
        time.sleep(0.1)
    sys.exit(f"{role} {pattern}: {'not found' if there else 'stays'}")


bus = connect()
order = sys.argv[1]
if order == "list":
    for place, depth in everything():
        print("  " * depth + role_of(place), repr(name_of(place)), "" if is_showing(place) else "(not shown)")
else:
    found = wait(sys.argv[2], sys.argv[3], order != "gone")
    if order == "press":
        # The answer of what opens a dialog comes when that is closed.
        bus.call(found[0], found[1], "org.a11y.atspi.Action", "DoAction", GLib.Variant("(i)", (0,)), None, 0, -1, None, None)
        bus.flush_sync(None)
