#!/usr/bin/env python3
"""Packs the golden 3DS file chunk by chunk from the layout in docs/FILE_FORMATS.md.

It shares nothing with the program's writer: lengths come from what is nested, and which vertices are
shared is written down below. Run it in this folder; the file is committed. The test builds the same
scene.
"""
import struct


def chunk(kind, *parts):
    data = b"".join(parts)
    return struct.pack("<HI", kind, 6 + len(data)) + data


def short(*values):
    return struct.pack("<%dH" % len(values), *values)


def singles(*values):
    return struct.pack("<%df" % len(values), *values)


def name(text):
    return text.encode("cp1252") + b"\0"


def percent(kind, value):
    return chunk(kind, chunk(0x0030, short(value)))


def grey(kind, level):
    return chunk(kind, chunk(0x0011, bytes([level] * 3)))


def material(number, transparency, texture):
    entry = [chunk(0xA000, name("MATER%03d" % number)),
             grey(0xA010, 128), grey(0xA020, 192), grey(0xA030, 255),
             percent(0xA040, 25), percent(0xA041, 5), percent(0xA050, transparency),
             percent(0xA052, 0), percent(0xA053, 0), chunk(0xA100, short(3)),
             percent(0xA084, 0), chunk(0xA087, singles(1.0))]
    if texture:
        entry.append(chunk(0xA200, chunk(0x0030, short(100)), chunk(0xA300, name(texture)),
                           chunk(0xA351, short(0)), chunk(0xA353, singles(0.0))))
    return chunk(0xAFFF, *entry)


def mesh(number, material_number, corners, faces):
    """corners: (x, y, z, u, v) with Y up; faces: (a, b, c, smooth)."""
    points = [singles(x, -z, y) for x, y, z, _, _ in corners]
    coords = [singles(u, v) for _, _, _, u, v in corners]
    group = chunk(0x4130, name("MATER%03d" % material_number),
                  short(len(faces), *range(len(faces))))
    smoothing = chunk(0x4150, *(struct.pack("<I", smooth) for _, _, _, smooth in faces))
    body = chunk(0x4100,
                 chunk(0x4110, short(len(points)), *points),
                 chunk(0x4140, short(len(coords)), *coords),
                 chunk(0x4160, singles(1, 0, 0, 0, 1, 0, 0, 0, 1, 0.001, 0.001, 0.001)),
                 chunk(0x4120, short(len(faces)), *(short(a, b, c, 7) for a, b, c, _ in faces),
                       group, smoothing))
    return chunk(0x4000, name("KVEO%04d" % number), body)


# Positions of the first brush; D shows the rounding.
A, B, C, D = (0.0, 0.0, 0.0), (1.0, 0.0, 0.5), (0.0, 1.0, 0.0), (0.123457, -2.5, 3.0)
E, F = (5.0, 5.0, 5.0), (6.0, 5.0, 5.0)

WOOD = [
    (*A, 0.0, 0.0), (*B, 1.0, 0.0), (*C, 0.0, 1.0),  # 0-2: a flat triangle
    (*B, 0.25, 0.0), (*D, 0.5, 0.5), (*A, 0.75, 1.0),  # 3-5: another
    (*E, 0.0, 0.0), (*E, 1.0, 0.0), (*F, 0.0, 1.0),  # 6-8: a smooth one of two equal corners
]
WOOD_FACES = [
    (0, 1, 2, 0),
    (0, 1, 2, 1),  # smooth: all three are there
    (3, 4, 5, 0),
    (3, 5, 2, 1),  # of equal vertices those added last
    (4, 4, 2, 1),
    (6, 7, 8, 1),
    (7, 8, 7, 1),
]
TRIANGLE = [(*A, 0.0, 0.0), (*B, 1.0, 0.0), (*C, 0.0, 1.0)]

content = chunk(
    0x4D4D,
    chunk(0x0002, struct.pack("<I", 3)),
    chunk(0x3D3D,
          chunk(0x3D3E, struct.pack("<I", 3)),
          material(0, 0, "Wood.jpg"),
          material(1, 40, "F\u00fc\u00dfe \u20ac.bmp"),
          material(2, 0, ""),
          chunk(0x0100, bytes.fromhex("f67a1d42")),
          mesh(7, 0, WOOD, WOOD_FACES),
          mesh(8, 1, TRIANGLE, [(0, 1, 2, 0)]),
          mesh(9, 2, TRIANGLE, [(0, 1, 2, 1)])))

with open("scene.3ds", "wb") as out:
    out.write(content)
