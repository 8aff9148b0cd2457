#!/usr/bin/python3
"""Writes resource forks and reads PNG pictures, without any code of the system under test.

RESOURCES is a list in JSON of [type, id, name or null, attributes, data], the first, the third and the last in the
characters of the Mac; the resources of a type stand together.

  resource-fork.py make <RESOURCES >FORK
  resource-fork.py listed LISTING <RESOURCES   complains unless LISTING, in JSON, is of these resources
  resource-fork.py pixels PNG                  prints each row, "RRGGBBAA" for each pixel
"""
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
    # Before the references: behind very long lists, names could not be reached.
    names_at = 2 + 8 * len(types)
    type_list, references = struct.pack(">H", (len(types) - 1) & 0xFFFF), b""
    for kind, entries in types.items():
        list_at = names_at + len(names) + len(references)
        type_list += kind.encode("mac_roman") + struct.pack(">HH", len(entries) - 1, list_at)
        for number, name_at, attributes, at in entries:
            references += struct.pack(">hHII", number, name_at, attributes << 24 | at, 0)
    lists = type_list + names + references
    header = struct.pack(">IIII", 256, 256 + len(data), len(data), 28 + len(lists))
    fork_map = header + bytes(8) + struct.pack(">HH", 28, 28 + names_at) + lists
    return header.ljust(256, b"\0") + data + fork_map


def listing_of(resources):
    return [{"type": kind, "type_hex": kind.encode("mac_roman").hex(), "id": number, "name": name,
             "size": len(content), "attributes": attributes} for kind, number, name, attributes, content in resources]


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
if verb == "make":
    sys.stdout.buffer.write(fork_of(json.load(sys.stdin)))
elif verb == "listed":
    right, listed = listing_of(json.load(sys.stdin)), json.load(open(sys.argv[2]))
    for entry in listed:
        assert isinstance(entry.pop("description"), str)
    if listed != right:
        sys.exit("listed: %s\nright: %s" % (listed, right))
else:
    print("\n".join(pixels_of(open(sys.argv[2], "rb").read())))
