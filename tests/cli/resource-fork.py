#!/usr/bin/python3
"""Writes and reads resource forks, and reads PNG pictures, without any code of the system under test.

  resource-fork.py make <RESOURCES >FORK   RESOURCES is a list in JSON of [type, id, name or null, attributes,
                                           data], the first, the third and the last in the characters of the Mac
  resource-fork.py many COUNT >FORK        with so many small resources of ten types
  resource-fork.py list FORK <LISTING      complains unless LISTING, in JSON, is what the fork holds
  resource-fork.py pixels PNG              prints each row, "RRGGBBAA" for each pixel
"""
import itertools
import json
import struct
import sys
import zlib


def fork_of(resources):
    data, names, types = b"", b"", {}
    for kind, number, name, attributes, content in resources:
        name_at = 0xFFFF if name is None else len(names)
        if name is not None:
            names += bytes([len(name)]) + name.encode("mac_roman")
        types.setdefault(kind, []).append((number, name_at, attributes, len(data)))
        content = content.encode("mac_roman")
        data += struct.pack(">I", len(content)) + content
    # Behind very long lists, names could not be reached.
    between = names if sum(map(len, types.values())) > 5000 else b""
    list_at = 2 + 8 * len(types) + len(between)
    type_list, references = struct.pack(">H", (len(types) - 1) & 0xFFFF), b""
    for kind, entries in types.items():
        type_list += kind.encode("mac_roman") + struct.pack(">HH", len(entries) - 1, list_at + len(references))
        for number, name_at, attributes, at in entries:
            references += struct.pack(">hHII", number, name_at, attributes << 24 | at, 0)
    lists = type_list + between + references
    names_at = 28 + len(type_list if between else lists)
    lists += b"" if between else names
    header = struct.pack(">IIII", 256, 256 + len(data), len(data), 28 + len(lists))
    fork_map = header + bytes(8) + struct.pack(">HH", 28, names_at) + lists
    return header.ljust(256, b"\0") + data + fork_map


def many(count):
    # As many as a fork can have: all lists but the last begin within 64 KB, all names within 32 KB.
    return [["T%03d" % min(i // 300, 9), i - 5000, "Name %d" % i if i % 4 == 0 else None, 0x20, "x" * (i % 50)]
            for i in range(count)]


def resources_of(fork):
    data_at, map_at = struct.unpack_from(">II", fork, struct.unpack_from(">I", fork, 4)[0])
    types_at, names_at = (map_at + offset for offset in struct.unpack_from(">HH", fork, map_at + 24))
    found = []
    for i in range(struct.unpack_from(">h", fork, types_at)[0] + 1):
        kind, last, list_at = struct.unpack_from(">4sHH", fork, types_at + 2 + 8 * i)
        for j in range(last + 1):
            number, name_at, place = struct.unpack_from(">hhI", fork, types_at + list_at + 12 * j)
            start = names_at + name_at + 1
            start_of_data = data_at + (place & 0xFFFFFF)
            found.append({
                "type": kind.decode("mac_roman"), "type_hex": kind.hex(), "id": number,
                "name": None if name_at == -1 else fork[start:start + fork[start - 1]].decode("mac_roman"),
                "size": struct.unpack_from(">I", fork, start_of_data)[0] if start_of_data + 4 <= len(fork) else None,
                "attributes": place >> 24})
    return found


def pixels_of(png):
    width, height, depth, colour = struct.unpack_from(">IIBB", png, 16)
    assert png.startswith(b"\x89PNG\r\n\x1a\n") and (depth, colour) == (8, 6)
    packed, at = b"", 8
    while at < len(png):
        length, chunk = struct.unpack_from(">I4s", png, at)
        packed += png[at + 8:at + 8 + length] if chunk == b"IDAT" else b""
        at += 12 + length
    raw, above = zlib.decompress(packed), bytes(4 * width)
    for row in range(height):
        start = row * (4 * width + 1)
        kind, line = raw[start], bytearray(raw[start + 1:start + 1 + 4 * width])
        for i in range(len(line)):
            a, b, c = line[i - 4] if i > 3 else 0, above[i], above[i - 4] if i > 3 else 0
            paeth = min((a, b, c), key=lambda near: abs(a + b - c - near))
            line[i] = (line[i] + (0, a, b, (a + b) // 2, paeth)[kind]) & 255
        above = bytes(line)
        yield above.hex()


verb = sys.argv[1]
if verb in ("make", "many"):
    sys.stdout.buffer.write(fork_of(json.load(sys.stdin) if verb == "make" else many(int(sys.argv[2]))))
elif verb == "list":
    right, listed = resources_of(open(sys.argv[2], "rb").read()), json.load(sys.stdin)
    for entry in listed:
        assert isinstance(entry.pop("description"), str)
    for got, wanted in itertools.zip_longest(listed, right):
        if got != wanted:
            sys.exit("listed: %s\nright: %s" % (got, wanted))
else:
    print("\n".join(pixels_of(open(sys.argv[2], "rb").read())))
