#!/usr/bin/python3
"""What a screen reader finds and does, by the accessibility bus of this session.

access.py wait ROLE PATTERN           until something of that role, whose name holds a match, is shown; the role is a pattern too
access.py gone ROLE PATTERN           until nothing is
access.py press ROLE PATTERN          waits for it, and does its first action
access.py do ACTION ROLE PATTERN      waits for one that offers that action, and does it
access.py value NUMBER ROLE PATTERN   moves a bar or slider
access.py write TEXT ROLE PATTERN     puts the text into a box in place of what it has
access.py says WORDS ROLE PATTERN     until the text within it holds a match of the words
access.py check                       names what nobody could read or use: exit code 1 where there is any
access.py listen                      writes down what is told, until it is ended: "focus", "name" or "window", role and name
access.py list                        all there is
"""

import re
import sys
import time

from gi.repository import Gio, GLib

SECONDS = 20
ACCESSIBLE = "org.a11y.atspi.Accessible"
ACTION = "org.a11y.atspi.Action"
VALUE = "org.a11y.atspi.Value"
TEXT = "org.a11y.atspi.Text"
REGISTRY = "org.a11y.atspi.Registry"
# Of the states.
FOCUSABLE = 11
SENSITIVE = 24
SHOWING = 25
LABELLED_BY = 2  # of the relations
DEEPEST = 14


def connect():
    session = Gio.bus_get_sync(Gio.BusType.SESSION, None)
    address = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None, 0, -1, None)
    flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
    return Gio.DBusConnection.new_for_address_sync(address.unpack()[0], flags, None, None)


def call(place, interface, method, *arguments):
    values = GLib.Variant(f"({arguments[0]})", arguments[1:]) if arguments else None
    return bus.call_sync(place[0], place[1], interface, method, values, None, 0, 5000, None).unpack()


def property_of(place, interface, name):
    return call(place, "org.freedesktop.DBus.Properties", "Get", "ss", interface, name)[0]


def role_of(place):
    return call(place, ACCESSIBLE, "GetRoleName")[0]


def name_of(place):
    return property_of(place, ACCESSIBLE, "Name")


def states_of(place):
    low, high = call(place, ACCESSIBLE, "GetState")[0]
    return low | high << 32


def is_showing(place):
    return bool(states_of(place) >> SHOWING & 1)


def interfaces_of(place):
    return [name.rsplit(".", 1)[1] for name in call(place, ACCESSIBLE, "GetInterfaces")[0]]


def actions_of(place):
    if "Action" not in interfaces_of(place):
        return []
    return [action[0] for action in call(place, ACTION, "GetActions")[0]]


# Each with how deep it is; what goes meanwhile is passed over, and so is all that lies in what is not shown.
def everything(place=(REGISTRY, "/org/a11y/atspi/accessible/root"), depth=0, hidden=True):
    try:
        if depth > 0:
            yield place, depth
        if not hidden and depth > 1 and not is_showing(place):
            return
        below = call(place, ACCESSIBLE, "GetChildren")[0] if depth < DEEPEST else []
    except GLib.Error:
        return
    for each in below:
        yield from everything(each, depth + 1, hidden)


def find(role, pattern, action=None):
    for place, _ in everything(hidden=False):
        try:
            if not re.fullmatch(role, role_of(place)) or not re.search(pattern, name_of(place)) or not is_showing(place):
                continue
            if action is None or action in actions_of(place):
                return place
        except GLib.Error:
            continue
    return None


# What look() finds, as soon as it does.
def await_it(what, look):
    end = time.monotonic() + SECONDS
    while time.monotonic() < end:
        found = look()
        if found:
            return found
        time.sleep(0.1)
    sys.exit(what)


def wait(role, pattern, action=None):
    wanted = f"{role} {pattern}" + (f" with {action}" if action else "")
    return await_it(f"{wanted}: not found", lambda: find(role, pattern, action))


# The answer of what opens a dialog comes when that is closed.
def act(place, index):
    bus.call(place[0], place[1], ACTION, "DoAction", GLib.Variant("(i)", (index,)), None, 0, -1, None, None)
    bus.flush_sync(None)


def text_of(place):
    try:
        return call(place, TEXT, "GetText", "ii", 0, -1)[0]
    except GLib.Error:
        return ""


CONTROLS = {"push button", "check box", "radio button", "menu item", "check menu item", "radio menu item", "list item",
            "tree item", "toggle button"}
VALUES = {"slider", "scroll bar", "progress bar", "spin box"}
NO_ROLES = {"filler", "unknown", "invalid", "redundant object"}


def is_labelled(place):
    return any(relation[0] == LABELLED_BY for relation in call(place, ACCESSIBLE, "GetRelationSet")[0])


# What is wrong with an object that is shown; nothing: None.
def fault_of(place):
    states = states_of(place)
    if not states >> SHOWING & 1:
        return None
    role, name, actions = role_of(place), name_of(place), actions_of(place)
    focusable, sensitive = states >> FOCUSABLE & 1, states >> SENSITIVE & 1
    if role in NO_ROLES and (focusable or actions):
        return "has no role"
    if (focusable or role in CONTROLS) and not name.strip() and not is_labelled(place):
        return "has no name"
    if role == "combo box" and not is_labelled(place):
        return "has no label"
    if role in CONTROLS and sensitive and not actions:
        return "has no action"
    if role in VALUES and "Value" not in interfaces_of(place):
        return "has no value"
    if re.search(r"<\w+>", name):
        return "has a name with marks in it"
    return None


def check():
    faults = 0
    for place, depth in everything(hidden=False):
        try:
            fault = fault_of(place)
            if fault is None:
                continue
            faults += 1
            print(f"{role_of(place)} {name_of(place)!r}, {depth} deep, {fault}")
        except GLib.Error:
            continue
    return 1 if faults else 0


def listen():
    heard = {"StateChanged": "focus", "PropertyChange": "name", "Activate": "window"}
    for event in ("Object:", "Window:"):
        call((REGISTRY, "/org/a11y/atspi/registry"), REGISTRY, "RegisterEvent", "sass", event, [], "")

    def write(_bus, sender, path, _interface, member, values):
        detail, number = values.unpack()[:2]
        if (member == "StateChanged" and (detail != "focused" or number != 1)) or member not in heard:
            return
        try:
            print(heard[member], role_of((sender, path)), name_of((sender, path)), flush=True)
        except GLib.Error:
            pass

    for interface in ("org.a11y.atspi.Event.Object", "org.a11y.atspi.Event.Window"):
        bus.signal_subscribe(None, interface, None, None, None, 0,
                             lambda b, sender, path, i, member, values: write(b, sender, path, i, member, values))
    print("listening", flush=True)
    GLib.MainLoop().run()


def main(order, rest):
    if order == "list":
        for place, depth in everything():
            print("  " * depth + role_of(place), repr(name_of(place)), "" if is_showing(place) else "(not shown)")
    elif order == "check":
        return check()
    elif order == "listen":
        listen()
    elif order == "gone":
        await_it(f"{rest[0]} {rest[1]}: stays", lambda: find(*rest) is None)
    elif order == "wait":
        wait(*rest)
    elif order == "press":
        act(wait(*rest), 0)
    elif order == "do":
        place = wait(rest[1], rest[2], rest[0])
        act(place, actions_of(place).index(rest[0]))
    elif order == "value":
        place = wait(rest[1], rest[2])
        call(place, "org.freedesktop.DBus.Properties", "Set", "ssv", VALUE, "CurrentValue", GLib.Variant("d", float(rest[0])))
    elif order == "write":
        call(wait(rest[1], rest[2]), "org.a11y.atspi.EditableText", "SetTextContents", "s", rest[0])
    elif order == "says":
        place = wait(rest[1], rest[2])
        await_it(f"{rest[1]} {rest[2]}: says {text_of(place)!r}", lambda: re.search(rest[0], text_of(place)))
    else:
        sys.exit(__doc__)
    return 0


bus = connect()
sys.exit(main(sys.argv[1], sys.argv[2:]))
