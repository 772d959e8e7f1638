#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""A client in another language. With a command's name it sends the agent that; without, it sends every
command in both forms and checks what comes back and what reaches the engine. Ends with 0 when all of it
was right."""
import json
import os
import plistlib
import sys
import time

import dbus

import channel
from engine import LISTS

failures = []


def expect(what, seen, wanted):
    if seen != wanted:
        failures.append(f"{what}: {seen!r} where {wanted!r} was expected")


def engine_took():
    with open(os.environ["FOREIGN_ENGINE_LOG"], encoding="utf-8") as log:
        notes = [json.loads(line) for line in log]
    return [note for note in notes if note[0] != "Posted"]


bus = channel.session_bus()
agent = dbus.Interface(bus.get_object(channel.AGENT, channel.PATH, introspect=False),
                       channel.INTERFACE)


def handle(event_id, data):
    return bytes(agent.HandleEvent(dbus.UInt32(channel.CLASS), dbus.UInt32(event_id),
                                   dbus.ByteArray(data), byte_arrays=True, timeout=90))


def send(event_id, command, param1=None, param2=None):
    message = {"command": command, "param1": param1, "param2": param2}
    message = {key: value for key, value in message.items() if value is not None}
    reply = handle(event_id, channel.encoded(event_id, message))
    return channel.decoded(event_id, reply) if reply else None


if len(sys.argv) > 1:
    sys.exit(send(channel.CURRENT, sys.argv[1]) is not None)

deadline = time.monotonic() + 10
while send(channel.CURRENT, "listData") != LISTS and time.monotonic() < deadline:
    time.sleep(0.05)  # the engine has just published it

for form in (channel.CURRENT, channel.OLDER):
    expect("listData", send(form, "listData"), LISTS)
    expect("textEncodingList", send(form, "textEncodingList"), LISTS["^^TEXT-ENCODING^^"])
    expect("menuSettings", send(form, "menuSettings"), {})
    for command, param1, param2, handed_on in [
            ("launchQuenfoldApp", None, None, None),
            ("cleanPasteboard:cleaner:", "NSGeneralPboard", "#WHISPER", None),
            ("cleanFiles:cleaner:", ["/nowhere/ä"], "#SHOUT",
             ["cleanFiles:options:", ["/nowhere/ä"], {"cleanerName": "#SHOUT"}]),
            ("cleanFiles:options:", ["/nowhere"], {"cleanerName": "#SHOUT", "encodingName": "X"},
             None)]:
        before = len(engine_took())
        expect(command, send(form, command, param1, param2), None)
        expect(command + " at the engine", engine_took()[before:],
               [handed_on or [command, param1, param2]])
    before = len(engine_took())
    expect("an unknown command", send(form, "makeCoffee"), None)
    for bytes_sent in (b"", b"no event", plistlib.dumps([1]), channel.archived("text")):
        expect("what is no command", handle(form, bytes_sent), b"")
    expect("at the engine", len(engine_took()), before)
    try:
        handle(form, bytes(64 << 20))
        failures.append("64 MiB were taken")
    except dbus.DBusException as error:
        expect("64 MiB", error.get_dbus_name(), "org.freedesktop.DBus.Error.LimitsExceeded")

print("\n".join(failures) or "all as documented")
sys.exit(bool(failures))
