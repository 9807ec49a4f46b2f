#!/usr/bin/env python3
"""A session manager for one program. Prints its address; "registered" when the program has come. Then does what the lines of
its input say: "save" and "shut down" ask the program to save itself, for "saved" when it has, "cancel" takes the end back, "die" ends
it, for "gone" when it has left, "ask" has it say how the program wants to be started again: its hint by number, and its command."""

import atexit
import ctypes
import select
import signal
import sys
from ctypes import CFUNCTYPE, POINTER, Structure, byref, c_char_p, c_int, c_void_p

ice = ctypes.CDLL("libICE.so.6", mode=ctypes.RTLD_GLOBAL)
sm = ctypes.CDLL("libSM.so.6")
for function in (ice.IceComposeNetworkIdList, ice.IceAcceptConnection, sm.SmsGenerateClientID):
    function.restype = c_void_p

Plain = CFUNCTYPE(None, c_void_p, c_void_p)
WithInt = CFUNCTYPE(None, c_void_p, c_void_p, c_int)
WithPointer = CFUNCTYPE(c_int, c_void_p, c_void_p, c_void_p)
SaveRequest = CFUNCTYPE(None, c_void_p, c_void_p, c_int, c_int, c_int, c_int, c_int)
Leave = CFUNCTYPE(None, c_void_p, c_void_p, c_int, c_void_p)
Properties = CFUNCTYPE(None, c_void_p, c_void_p, c_int, c_void_p)


class Value(Structure):
    _fields_ = [("length", c_int), ("bytes", c_void_p)]


class Property(Structure):
    _fields_ = [("name", c_char_p), ("type", c_char_p), ("count", c_int), ("values", POINTER(Value))]


class Callbacks(Structure):
    _fields_ = [(f"{name}{part}", c_void_p) for name in (
        "register", "interact_request", "interact_done", "save_request", "save_phase2", "save_done", "close",
        "set_properties", "delete_properties", "get_properties") for part in ("", "_data")]


def say(text):
    print(text, flush=True)


client = None
SAVE_BOTH = 2
properties = {}  # of the program, the text of each value
kept = []  # what C code calls must live on


def keep(kind, function):
    made = kind(function)
    kept.append(made)
    return ctypes.cast(made, c_void_p)


def on_register(connection, _data, _previous):
    sm.SmsRegisterClientReply(c_void_p(connection), c_char_p(sm.SmsGenerateClientID(c_void_p(connection))))
    say("registered")
    return 1


def on_saved(connection, _data, _success):
    sm.SmsSaveComplete(c_void_p(connection))
    say("saved")


def on_close(connection, _data, _count, _reasons):
    sm.SmsCleanUp(c_void_p(connection))
    say("gone")


def on_set_properties(_connection, _data, count, told):
    for each in ctypes.cast(told, POINTER(POINTER(Property)))[:count]:
        values = each.contents.values[:each.contents.count]
        properties[each.contents.name] = [ctypes.string_at(value.bytes, value.length) for value in values]


def on_properties(connection, _data):
    sm.SmsReturnProperties(c_void_p(connection), 0, None)


def on_new_client(connection, _data, mask, callbacks, _reason):
    global client
    client = c_void_p(connection)
    mask[0] = 0x3FF
    told = callbacks.contents
    told.register = keep(WithPointer, on_register)
    told.interact_request = keep(WithInt, lambda connection, _data, _kind: sm.SmsInteract(c_void_p(connection)))
    told.interact_done = keep(WithInt, lambda *_: None)
    told.save_request = keep(SaveRequest, lambda *_: None)
    told.save_phase2 = keep(Plain, lambda connection, _data: sm.SmsSaveYourselfPhase2(c_void_p(connection)))
    told.save_done = keep(WithInt, on_saved)
    told.close = keep(Leave, on_close)
    told.set_properties = keep(Properties, on_set_properties)
    told.delete_properties = keep(Properties, lambda *_: None)
    told.get_properties = keep(Plain, on_properties)
    return 1


NewClient = CFUNCTYPE(c_int, c_void_p, c_void_p, POINTER(ctypes.c_ulong), POINTER(Callbacks), c_void_p)
new_client = NewClient(on_new_client)
# A client that leaves without a word is nothing to die of.
quiet = CFUNCTYPE(None, c_void_p)(lambda _connection: None)
ice.IceSetIOErrorHandler(quiet)
anybody = CFUNCTYPE(c_int, c_char_p)(lambda _host: 1)
trouble = ctypes.create_string_buffer(256)
if not sm.SmsInitialize(b"test", b"1", new_client, None, anybody, len(trouble), trouble):
    sys.exit(trouble.value.decode())
count, listeners = c_int(), POINTER(c_void_p)()
if not ice.IceListenForConnections(byref(count), byref(listeners), len(trouble), trouble):
    sys.exit(trouble.value.decode())
atexit.register(lambda: ice.IceFreeListenObjs(count, listeners))
signal.signal(signal.SIGTERM, lambda *_: sys.exit(0))
for i in range(count.value):
    ice.IceSetHostBasedAuthProc(c_void_p(listeners[i]), anybody)
say(ctypes.string_at(ice.IceComposeNetworkIdList(count, listeners)).decode())

connections = {}
waited = {ice.IceGetListenConnectionNumber(c_void_p(listeners[i])): c_void_p(listeners[i]) for i in range(count.value)}
while True:
    ready, _, _ = select.select([sys.stdin, *waited, *connections], [], [])
    for number in ready:
        if number is sys.stdin:
            line = sys.stdin.readline().strip()
            if not line:
                sys.exit(0)
            if line in ("save", "shut down"):
                sm.SmsSaveYourself(client, SAVE_BOTH, int(line == "shut down"), 0, 0)
            elif line == "ask":
                hint = properties.get(b"RestartStyleHint", [b""])[0]
                say(f"{hint[0] if hint else None} {b' '.join(properties.get(b'RestartCommand', [])).decode()}")
            elif line == "cancel":
                sm.SmsShutdownCancelled(client)
            elif line == "die":
                sm.SmsDie(client)
        elif number in waited:
            status = c_int()
            connection = ice.IceAcceptConnection(waited[number], byref(status))
            connections[ice.IceConnectionNumber(c_void_p(connection))] = c_void_p(connection)
        else:
            replied = c_int()
            if ice.IceProcessMessages(connections[number], None, byref(replied)) != 0:
                ice.IceCloseConnection(connections[number])
                del connections[number]
