# SPDX-License-Identifier: Apache-2.0
"""Reads and writes property lists with Python's plistlib, and decodes keyed archives from the
format's description alone, to compare with what the formats under test make of the same bytes.

  oracle.py dump FOLDER      writes FILE.dump beside every file: what Python reads in it
  oracle.py make FOLDER SEED writes random property lists, and their dumps

A dump is one line; equal values have equal dumps.
"""
import datetime
import pathlib
import plistlib
import random
import struct
import sys

REFERENCE = datetime.datetime(2001, 1, 1)
XML, BINARY = plistlib.FMT_XML, plistlib.FMT_BINARY


def bits(number):
    return struct.pack(">d", number).hex()


def dump(value):
    if isinstance(value, bool):
        return "b1" if value else "b0"
    if isinstance(value, int):
        return f"i{value}"
    if isinstance(value, float):
        return "r" + bits(value)
    if isinstance(value, datetime.datetime):
        return "d" + bits((value - REFERENCE).total_seconds())
    if isinstance(value, str):
        return "s" + value.encode().hex()
    if isinstance(value, bytes):
        return "x" + value.hex()
    if isinstance(value, list):
        return "[" + ",".join(map(dump, value)) + "]"
    return "{" + ",".join(sorted(dump(k) + ":" + dump(v) for k, v in value.items())) + "}"


class Archive:
    def __init__(self, content):
        assert content["$version"] == 100000 and content["$archiver"] == "NSKeyedArchiver"
        assert set(content) == {"$version", "$archiver", "$top", "$objects"}
        self.objects = content["$objects"]
        assert self.objects[0] == "$null"
        self.root = self.value(content["$top"]["root"])

    def value(self, uid):
        item = self.objects[uid.data]
        if not isinstance(item, dict):
            assert not isinstance(item, (list, plistlib.UID))
            return item
        record = self.objects[item["$class"].data]
        name = record["$classname"]
        assert record["$classes"] == [name, "NSObject"]
        fields = {key: part for key, part in item.items() if key != "$class"}
        if name == "NSArray":
            return [self.value(part) for part in fields.pop("NS.objects")]
        if name == "NSDictionary":
            keys = [self.value(part) for part in fields.pop("NS.keys")]
            values = [self.value(part) for part in fields.pop("NS.objects")]
            assert len(keys) == len(values) == len(set(keys)) and not fields
            return dict(zip(keys, values))
        if name == "NSDate":
            return REFERENCE + datetime.timedelta(seconds=fields.pop("NS.time"))
        assert name == "MASShortcut", name
        return {key: self.value(part) if isinstance(part, plistlib.UID) else part
                for key, part in fields.items()}


def load(path):
    content = plistlib.loads(path.read_bytes())
    return Archive(content).root if path.suffix == ".archive" else content


def sample(rng, depth=0):
    kind = rng.randrange(9 if depth < 4 else 7)
    if kind == 0:
        return rng.random() < 0.5
    if kind == 1:
        return rng.choice([-2**63, -1, 0, 255, 256, 2**31, 2**32, 2**63 - 1, 2**63, 2**64 - 1])
    if kind == 2:
        return rng.randrange(-2**63, 2**64) >> rng.randrange(64)
    if kind == 3:
        return struct.unpack(">d", struct.pack(">Q", rng.getrandbits(62)))[0] * rng.choice([1, -1])
    if kind == 4:
        return datetime.datetime(1, 1, 1) + datetime.timedelta(seconds=rng.randrange(315537897600))
    if kind == 5:
        return bytes(rng.choice([0, 1, 255]) for _ in range(rng.randrange(100)))
    if kind == 6:
        return text(rng)
    if kind == 7:
        return [sample(rng, depth + 1) for _ in range(rng.randrange(20))]
    return {text(rng): sample(rng, depth + 1) for _ in range(rng.randrange(20))}


def text(rng):
    ranges = [(0x20, 0x7E), (0x20, 0x7E), (0xA0, 0x7FF), (0xE000, 0xFFFD), (0x10000, 0x10FFFF)]
    low, high = rng.choice(ranges)
    return "".join(rng.choice(["\n", "\t", chr(rng.randint(low, high))])
                   for _ in range(rng.randrange(30)))


def main(command, folder, seed="0"):
    folder = pathlib.Path(folder)
    if command == "dump":
        for path in sorted(folder.iterdir()):
            path.with_name(path.name + ".dump").write_text(dump(load(path)))
        return
    rng = random.Random(int(seed))
    samples = [sample(rng) for _ in range(60)]
    samples.append({f"key {i} {text(rng)}": i for i in range(100000)})
    for number, value in enumerate(samples):
        for suffix, form in (("xml", XML), ("binary", BINARY)):
            path = folder / f"{number}.{suffix}"
            path.write_bytes(plistlib.dumps(value, fmt=form, sort_keys=False))
            path.with_name(path.name + ".dump").write_text(dump(value))


main(*sys.argv[1:])
