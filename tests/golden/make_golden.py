#!/usr/bin/env python3
"""Packs the golden files field by field from the layout in docs/FILE_FORMATS.md.

It shares nothing with the program's writer, so that the two check each other. Run it in this folder;
the files it writes are committed. The tests know the values below.
"""
import struct


def long(value):
    return struct.pack("<i", value)


def singles(*values):
    return struct.pack("<%df" % len(values), *values)


def text(characters):
    body = characters.encode("cp1252")
    return long(len(body)) + body


BOX_POINTS = [
    (-1.0, 1.0, -1.0), (1.0, 1.0, -1.0), (1.0, 1.0, 1.0), (-1.0, 1.0, 1.0),
    (-1.0, -1.0, -1.0), (1.0, -1.0, -1.0), (1.0, -1.0, 1.0), (-1.0, -1.0, 1.0),
]
BOX_FACES = [  # polygonId, a, b, c
    (1, 0, 3, 2), (1, 0, 2, 1), (2, 4, 5, 6), (2, 4, 6, 7),
    (3, 0, 1, 5), (3, 0, 5, 4), (4, 1, 2, 6), (4, 1, 6, 5),
    (5, 2, 3, 7), (5, 2, 7, 6), (6, 3, 0, 4), (6, 3, 4, 7),
]
CONE_POINTS = [(4.0, 0.0, -1.0), (5.0, 0.0, 0.0), (4.0, 0.0, 1.0), (3.0, 0.0, 0.0),
               (4.0, 2.5, 0.0)]
CONE_FACES = [(2, 0, 1, 2), (2, 0, 2, 3),
              (3, 4, 1, 0), (4, 4, 2, 1), (5, 4, 3, 2), (6, 4, 0, 3)]


def face(corners, number, material, selected=None, extension=None):
    """Settings that differ from face to face; every flag alone, then several at once."""
    polygon, a, b, c = corners
    out = long(polygon) + long(a) + long(b) + long(c)
    out += singles(*(number + corner * 0.125 for corner in range(6)))  # u, v of a, b, c
    out += long(number * 10)                                           # transparency
    out += long([0, 1, 2, 4, 8, 15, 9][number % 7])                    # flags
    out += singles(number * 0.5, -number * 0.25)                       # offset
    out += singles(1.0 + number, 0.1)                                  # repeat
    out += long(number * 15 - 90)                                      # rotation
    out += long(material)
    if selected is not None:
        out += bytes([255 if selected else 0])
    if extension is None:
        extension = long(5) + bytes([number % 2]) + long(0)            # smooth
    return out + extension


def brush(name, group, points, faces, tail, selected=None):
    out = text(name) + text(group)
    if selected is not None:
        out += bytes([255 if selected else 0])
    out += long(len(points)) + b"".join(singles(*p) for p in points)
    return out + long(len(faces)) + b"".join(faces) + tail


def shape(number):
    return long(8) + long(number) + long(0)


def object_file(names, brushes, brushes_size):
    materials_size = 16 + sum(4 + len(n) for n in names)
    return (b"OBSF" + long(materials_size + brushes_size + 12) + long(2) +
            b"MATS" + long(materials_size) + long(0) + long(len(names)) +
            b"".join(text(n) for n in names) +
            b"BRSH" + long(brushes_size) + long(0) + long(len(brushes)) + b"".join(brushes))


def scene(with_selection):
    """A box and a cone. The box wears two textures and none, the cone one."""
    def flag(value):
        return value if with_selection else None
    names = ["Mauer.bmp", "F\u00fc\u00dfe \u20ac.jpg", ""]
    box = [face(f, i, i % 3, flag(i % 4 == 0)) for i, f in enumerate(BOX_FACES)]
    cone = [face(f, 12 + i, 1, flag(i == 5)) for i, f in enumerate(CONE_FACES)]
    brushes_size = 16 + (10 + 5 + 24 + 88 * 8) + (10 + 0 + 24 + 88 * 5)
    return object_file(names, [
        brush("Brush-0000", "T\u00fcrme", BOX_POINTS, box, shape(0), flag(False)),
        brush("Brush-0001", "", CONE_POINTS, cone, shape(1), flag(True)),
    ], brushes_size)


def foreign():
    """What another program, or another version, may write: everything that a reader must bear."""
    faces = [
        face(CONE_FACES[0], 1, -1),                                       # no material
        face(CONE_FACES[1], 1, -7, extension=long(0)),                    # no smooth byte
        face(CONE_FACES[2], 1, 1, extension=long(7) + b"unknown"),
        face(CONE_FACES[3], 1, 2, extension=long(5) + b"\x01" + long(3) + b"xyz"),
        face(CONE_FACES[4], 1, 3),                                        # not in the library
        face(CONE_FACES[5], 1, 0),
    ]
    brushes = [
        brush("Keep", "old", CONE_POINTS, faces, long(8) + long(0x70002) + long(2) + b"zz"),
        brush("", "", [], [], long(6) + b"future"),
        brush("No shape", "", [(1.0, 2.0, 3.0)], [], long(0)),
    ]
    return (b"obsf" + long(-1) + long(99) +
            b"mats" + long(0) + long(77) + long(4) +
            text("never asked for.bmp") + text("MAUER.BMP") + text("f\u00dc\u00dfE \u20ac.JPG") +
            text("Missing.tga") +
            b"Brsh" + long(1) + long(-5) + long(3) + b"".join(brushes) + b"trailing bytes")


def flag(value):
    return bytes([255 if value else 0])


# Item n of the colour list and slot n of the key map have a value of their own, so that any two
# that change places show.
def color(item):
    return 0x102030 * (item % 8) + item


def key(slot):
    return 200 - 3 * slot if slot != 20 else 0


DISPLAY_ORDER = [*range(0, 23), *range(30, 37), *range(25, 30), 40, 37, 38, 39, 23, 24]


def settings():
    colors = [2, 3, 12, 13, 4, 5, 8, 10, 11, 15, 16, 17, 14, 19, 18, 22, 6, 7, 20, 21, 1]
    keys = [22, 20, 12, 14, 13, 15, 3, 7, 0, 2, 4, 5, 1, 6, 21, 40, 23, 24, 18, 16, 19, 30, 31, 32,
            33, 34, 35, 36, 11, 8, 9, 10, 17, 29, 25, 28, 27, 26, 37, 38, 39]
    recent = ["/home/t\u00fcr/Haus \u20ac.kvobject", "C:\\objects\\old.kvobject", "", "", ""]
    return (b"STAT" + singles(8.5, 0.25, 0.5) +
            flag(False) + flag(True) + flag(True) + flag(False) + long(3) +
            b"WPOS" + flag(True) + long(2) + singles(150.0, 300.0, 12000.0, 9000.0) +
            b"RCNT" + long(5) + b"".join(text(path) for path in recent) +
            b"WARN" + b"".join(flag(w) for w in (True, False, True, True, False)) +
            b"CLRS" + b"".join(long(color(item)) for item in colors) +
            b"KEYS" + b"".join(long(key(slot)) for slot in keys) +
            b"1100" + flag(False) + long(color(9)) +
            b"1300" + flag(False))


def color_scheme():
    return b"KVCS" + b"".join(long(color(item)) for item in range(1, 23))


def keyboard_map():
    return b"KVKM" + b"".join(long(key(slot)) for slot in DISPLAY_ORDER)


for path, content in [("scene.kvobject", scene(False)), ("snapshot.kvobject", scene(True)),
                      ("foreign.kvobject", foreign()), ("settings.kvdat", settings()),
                      ("scheme.kvcs", color_scheme()), ("keys.kvkm", keyboard_map())]:
    with open(path, "wb") as out:
        out.write(content)
