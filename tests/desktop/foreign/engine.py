#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""An engine in another language. It notes the commands and notifications that reach it, a JSON text a
line, in the file that FOREIGN_ENGINE_LOG names."""
import json
import os
import sys
import time

import dbus
import dbus.service
import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, GLib, Gtk

import channel

LISTS = {
    "^^TOKENINFO^^": {
        "#SHOUT": {"name": "Shout", "description": "Says it louder"},
        "#WHISPER": {"name": "Whisper"},
        "#PATIENT": {"name": "Patient", "description": "Shouts once the test lets it"},
    },
    "^^AUTOMATIC-NAMES^^": ["Library", "Standard", "Basics"],
    "^^USERLISTS-NAMES^^": ["Mine"],
    "^^MASTER^^": [
        {"name": "Library", "richlist": [{"token": "#SHOUT"}, {"token": "#WHISPER"}]},
        {"name": "Standard", "richlist": [{"token": "#LABEL:Volume"}, {"token": "#SHOUT"},
                                          {"token": "#SPACER"}, {"token": "#WHISPER"},
                                          {"token": "#PATIENT"}]},
        {"name": "Basics", "richlist": [{"token": "#SHOUT"}]},
        {"name": "Mine", "richlist": [{"token": "#WHISPER", "hexColor": "#1F5FA8"}]},
    ],
    "^^TEXT-ENCODING^^": ["Unicode (UTF-8)", "Western (ISO-8859-1)"],
    "of the engine's own": 7,
}
CLEANERS = {"#SHOUT": str.upper, "#WHISPER": str.lower, "#PATIENT": str.upper}


class Engine(dbus.service.Object):
    def __init__(self, bus):
        super().__init__(bus, channel.PATH)
        self._bus = bus

    @dbus.service.method(channel.INTERFACE, in_signature="uuay", out_signature="ay",
                         byte_arrays=True)
    def HandleEvent(self, event_class, event_id, data):
        try:
            message = channel.decoded(event_id, data)
            answer = self.carry_out(message.get("command"), message.get("param1"),
                                    message.get("param2"))
            reply = b"" if answer is None else channel.encoded(event_id, answer)
        except Exception as error:  # what cannot be understood gets an empty reply
            print(error, file=sys.stderr)
            reply = b""
        return dbus.ByteArray(reply)

    @dbus.service.method("org.freedesktop.DBus.Properties", in_signature="ss", out_signature="v")
    def Get(self, interface, name):
        return self.GetAll(interface)[name]

    @dbus.service.method("org.freedesktop.DBus.Properties", in_signature="s",
                         out_signature="a{sv}")
    def GetAll(self, interface):
        return {"BundleIdentifier": channel.ENGINE, "ProcessIdentifier": dbus.Int32(os.getpid()),
                "ActivationPolicy": dbus.Int32(1)}

    def carry_out(self, command, param1, param2):
        note(command, param1, param2)
        if command == "listData":
            return LISTS
        if command == "textEncodingList":
            return LISTS["^^TEXT-ENCODING^^"]
        if command == "menuSettings":
            return {"menuIconID": 0, "menuStyle": 0}
        if command == "cleanPasteboard:cleaner:":
            if param2 == "#PATIENT":
                wait_for_the_test()
            clean_clipboard(CLEANERS[param2])
        if command == "resetEngine":
            LISTS["^^TOKENINFO^^"]["#SHOUT"]["name"] = "Shout Louder"
            publish(self._bus)
        if command == "showQuenfoldPreferences":
            channel.write_shared("quenfold-menu.plist", {"menuIconID": 2, "menuStyle": 1})
            post(self._bus, channel.SETTINGS_CHANGED)
        if command == "quitEngine":
            GLib.idle_add(loop.quit)
        return None


def note(*what):
    with open(os.environ["FOREIGN_ENGINE_LOG"], "a", encoding="utf-8") as log:
        log.write(json.dumps(what) + "\n")


def wait_for_the_test():
    go = os.environ["FOREIGN_ENGINE_LOG"] + ".go"
    while not os.path.exists(go):
        time.sleep(0.01)
    os.remove(go)


def clean_clipboard(clean):
    owned = Gtk.Clipboard.get(Gdk.SELECTION_CLIPBOARD)
    owned.set_text(clean(owned.wait_for_text()), -1)
    Gdk.Display.get_default().sync()  # it is taken before the command is answered


def post(bus, name):
    signal = dbus.lowlevel.SignalMessage(channel.NOTIFICATIONS_PATH, channel.NOTIFICATIONS, "Posted")
    signal.append(name)
    bus.send_message(signal)


def publish(bus):
    channel.write_shared("quenfold-lists.plist", LISTS)
    post(bus, channel.LISTS_CHANGED)


if __name__ == "__main__":
    session = channel.session_bus()
    engine = Engine(session)
    session.add_signal_receiver(lambda name: note("Posted", name), "Posted", channel.NOTIFICATIONS)
    publish(session)
    session.request_name(channel.ENGINE)
    loop = GLib.MainLoop()
    loop.run()
    session.flush()
