# SPDX-License-Identifier: Apache-2.0
"""The channel between agent and engine, from docs/protocol.md and docs/files.md alone."""
import os
import plistlib

import dbus
import dbus.mainloop.glib

ENGINE, AGENT = "org.quenfold.Quenfold", "org.quenfold.Menu"
PATH, INTERFACE = "/org/quenfold/Application", "org.quenfold.Application1"
NOTIFICATIONS_PATH = "/org/quenfold/DistributedNotifications"
NOTIFICATIONS = "org.quenfold.DistributedNotifications1"
LISTS_CHANGED = "org.quenfold.kit.SharedGroupsDataChangedNotification"
SETTINGS_CHANGED = "org.quenfold.kit.SharedQFMenuPrefsChangedNotification"
CLASS, CURRENT, OLDER = 0x466F6C64, 0x71665332, 0x71665376


def session_bus():
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    return dbus.SessionBus()


def shared_file(name):
    data = os.environ.get("XDG_DATA_HOME", "")
    if not os.path.isabs(data):
        data = os.path.expanduser("~/.local/share")
    folder = os.path.join(data, "group.org.quenfold", "Data")
    os.makedirs(folder, exist_ok=True)
    return os.path.join(folder, name)


def write_shared(name, content):
    path = shared_file(name)
    with open(path + ".new", "wb") as file:
        plistlib.dump(content, file)
    os.rename(path + ".new", path)


def archived(value):
    objects, classes = ["$null"], {}

    def add(thing):
        objects.append(thing)
        return plistlib.UID(len(objects) - 1)

    def class_of(name):
        if name not in classes:
            classes[name] = add({"$classname": name, "$classes": [name, "NSObject"]})
        return classes[name]

    def encode(item):
        if isinstance(item, dict):
            return add({"NS.keys": [encode(key) for key in item],
                        "NS.objects": [encode(each) for each in item.values()],
                        "$class": class_of("NSDictionary")})
        if isinstance(item, (list, tuple)):
            return add({"NS.objects": [encode(each) for each in item],
                        "$class": class_of("NSArray")})
        return add(item)

    root = encode(value)
    return plistlib.dumps({"$version": 100000, "$archiver": "NSKeyedArchiver",
                           "$top": {"root": root}, "$objects": objects},
                          fmt=plistlib.FMT_BINARY)


def unarchived(data):
    archive = plistlib.loads(data, fmt=plistlib.FMT_BINARY)
    assert archive["$version"] == 100000 and archive["$archiver"] == "NSKeyedArchiver"
    objects = archive["$objects"]

    def decode(uid):
        thing = objects[uid.data]
        if not isinstance(thing, dict):
            return thing
        name = objects[thing["$class"].data]["$classname"].replace("Mutable", "")
        if name == "NSDictionary":
            return dict(zip(map(decode, thing["NS.keys"]), map(decode, thing["NS.objects"])))
        if name == "NSArray":
            return [decode(each) for each in thing["NS.objects"]]
        return thing[{"NSString": "NS.string", "NSData": "NS.data", "NSDate": "NS.time"}[name]]

    return decode(archive["$top"]["root"])


def encoded(event_id, value):
    return archived(value) if event_id == CURRENT else plistlib.dumps(value)


def decoded(event_id, data):
    return unarchived(bytes(data)) if event_id == CURRENT else plistlib.loads(bytes(data))
