#!/usr/bin/env python3
"""Draws the icons of the commands: one <command>.svg per command object name, and icons.qrc.

Run it after a change and commit the script together with the icons; the build uses only the icons.

One style: a 32 x 32 grid, lines two units wide with their centres on odd coordinates, so that they
fall on whole pixels at 16 and at 32 pixels. Colours are middle tones that stand out on light and on
dark palettes alike (checked below); areas are see-through tints of them. Only what Qt's SVG renderer
knows: no text, no styles, no filters, no masks.

Needs the Python 3 standard library only.
"""

from math import cos, pi, sin
from pathlib import Path

GREY = "#727f90"  # outlines
RED = "#e04f44"  # X axis, removal
GREEN = "#2f9150"  # Y axis, adding, going out
BLUE = "#3b82d6"  # Z axis, geometry
AMBER = "#b97a10"  # what a command works on

LIGHT, DARK = "#efefef", "#2b2b2b"  # palettes the icons must be readable on
LEAST_CONTRAST = 3.0


# Colours ---------------------------------------------------------------------------------------


def luminance(colour):
    parts = [int(colour[i : i + 2], 16) / 255 for i in (1, 3, 5)]
    linear = [p / 12.92 if p <= 0.04045 else ((p + 0.055) / 1.055) ** 2.4 for p in parts]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast(a, b):
    low, high = sorted((luminance(a), luminance(b)))
    return (high + 0.05) / (low + 0.05)


def check_palette():
    for colour in (GREY, RED, GREEN, BLUE, AMBER):
        for background in (LIGHT, DARK):
            ratio = contrast(colour, background)
            if ratio < LEAST_CONTRAST:
                raise SystemExit(f"{colour} on {background}: contrast {ratio:.2f} is too low")


# Marks -----------------------------------------------------------------------------------------


def num(value):
    return f"{value:.2f}".rstrip("0").rstrip(".")


def line(d, colour=GREY, width=2, extra=""):
    return f'<path d="{d}" fill="none" stroke="{colour}" stroke-width="{width}"{extra}/>'


def area(d, colour=GREY, tint=1.0):
    opacity = "" if tint == 1.0 else f' fill-opacity="{tint}"'
    return f'<path d="{d}" fill="{colour}"{opacity}/>'


def tinted(d, colour=GREY, tint=0.3, width=2):
    return area(d, colour, tint) + line(d, colour, width)


def dashed(d, colour=GREY, dash="4,2"):
    return line(d, colour, 2, f' stroke-dasharray="{dash}"')


def poly(points):
    return "M" + " L".join(f"{num(x)},{num(y)}" for x, y in points) + " Z"


def disc(x, y, r):
    return f"M{num(x - r)},{y} a{r},{r} 0 1 1 {2 * r},0 a{r},{r} 0 1 1 {-2 * r},0 Z"


def square(x, y, size):
    return f"M{x},{y} h{size} v{size} h{-size} Z"


LETTERS = {  # strokes in a square of eight units: diagonals run from pixel to pixel
    "X": "M0,0 L8,8 M8,0 L0,8",
    "Y": "M0,0 L4,4 L8,0 M4,4 V9",
    "Z": "M-1,0 H8 L0,8 H9",
}
AXIS_COLOUR = {"X": RED, "Y": GREEN, "Z": BLUE}


def letter(axis, x, y, width=2):
    path = line(LETTERS[axis], AXIS_COLOUR[axis], width, ' stroke-linejoin="bevel"')
    return f'<g transform="translate({x},{y})">{path}</g>'


DIGITS = {  # strokes in a box six units wide and ten high, the bar at four
    "3": "M-1,0 H6 V10 H-1 M0,4 H6",
    "4": "M0,-1 V4 H6 M6,-1 V11",
    "5": "M7,0 H0 V4 H6 V10 H-1",
    "6": "M7,0 H0 V10 H6 V4 H0",
    "7": "M-1,0 H6 V11",
    "8": "M0,0 H6 V10 H0 Z M0,4 H6",
    "n": "M0,11 V2 H6 V11",
}


def digit(text, x, y):
    return f'<g transform="translate({x},{y})">{line(DIGITS[text], GREY)}</g>'


def plus(x, y, colour=GREEN):
    return line(f"M{x - 5},{y} h10 M{x},{y - 5} v10", colour)


def cross(x, y, r, colour=RED, width=2):
    return line(f"M{x - r},{y - r} l{2 * r},{2 * r} m0,{-2 * r} l{-2 * r},{2 * r}", colour, width)


def arrow_right(x, y, length, colour=GREEN):
    """An arrow ending at (x, y)."""
    return line(f"M{x - length},{y} H{x - 1}", colour) + area(
        f"M{x - 6},{y - 6} L{x + 1},{y} L{x - 6},{y + 6} Z", colour
    )


# Families --------------------------------------------------------------------------------------


def page(tail=""):
    return line("M7,3 H19 L25,9 V29 H7 Z" if not tail else tail) + line("M19,3 V9 H25")


def folder(colour=AMBER):
    return tinted("M3,27 V7 H11 L15,11 H25 V15", colour, 0.15) + tinted(
        "M3,27 L9,15 H31 L25,27 Z", colour
    )


def box_up_left(top=0.0, left=0.0, front=0.0):
    """A box that shows its top, its left and its front side, with their tints."""
    sides = (
        (top, "M11,11 L3,3 H21 L29,11 Z"),
        (left, "M11,11 L3,3 V21 L11,29 Z"),
        (front, "M11,11 H29 V29 H11 Z"),
    )
    return "".join(area(d, BLUE, tint) for tint, d in sides if tint) + line(
        "M11,11 H29 V29 H11 Z L3,3 V21 L11,29 M3,3 H21 L29,11"
    )


BOX_OUTLINE = "M3,11 L11,3 H29 V21 L21,29 H3 Z"
BOX_INNER = "M3,11 H21 L29,3 M21,11 V29"


def box_up_right(colour=GREY, front=0.0, side=0.0, top=0.0, fill=BLUE):
    parts = (
        (front, "M3,11 H21 V29 H3 Z"),
        (side, "M21,11 L29,3 V21 L21,29 Z"),
        (top, "M3,11 L11,3 H29 L21,11 Z"),
    )
    fills = "".join(area(d, fill, tint) for tint, d in parts if tint)
    return fills + line(BOX_OUTLINE + BOX_INNER, colour)


def mode(part):
    if part == "brush":
        return box_up_right(AMBER, 0.45, 0.3, 0.15, AMBER)
    base = box_up_right()
    if part == "face":
        return base + tinted("M3,11 H21 V29 H3 Z", AMBER, 0.7)
    if part == "edge":
        return base + line("M21,9 V31", AMBER, 4)
    corners = ((3, 11), (21, 11), (21, 29), (3, 29), (29, 3))
    return base + "".join(area(square(x - 3, y - 3, 6), AMBER) for x, y in corners)


SIZE_OUTLINES = {  # radius and centre of the ring, its first angle, and the place of the digit
    3: (16.5, 16, 19, -90, 13, 15),
    4: (18.385, 16, 16, -45, 13, 11),
    5: (14.5, 16, 17, -90, 13, 13),
    6: (15, 16, 16, 0, 13, 11),
    7: (14.5, 16, 16.5, -90, 13, 11),
    8: (14.5, 16, 16, 22.5, 13, 11),
}


def ring(count, radius, x, y, first):
    angles = [(first + 360 * i / count) * pi / 180 for i in range(count)]
    return poly([(x + radius * cos(a), y + radius * sin(a)) for a in angles])


def sides(count):
    radius, x, y, first, dx, dy = SIZE_OUTLINES[count]
    return tinted(ring(count, radius, x, y, first), BLUE, 0.15) + digit(str(count), dx, dy)


def sides_any():
    return tinted(ring(16, 14, 16, 16, 11.25), BLUE, 0.15) + digit("n", 13, 10)


def rotation(axis, clockwise):
    """Three quarters of a circle about the letter of the axis; the arrow tells the direction."""
    colour = AXIS_COLOUR[axis]
    turned = line("M6.5,23.5 A12,12 0 1 1 26.4,19.1", colour) + area(
        "M20,17.5 L31,17.5 L25.5,26 Z", colour
    )
    if not clockwise:
        turned = f'<g transform="translate(30,0) scale(-1,1)">{turned}</g>'
    return turned + letter(axis, 11, 11)


def flip(axis):
    """A shape, the dashed line of the mirror, and its image."""
    colour = AXIS_COLOUR[axis]
    if axis == "X":
        shape, image = "M11,3 V17 H3 Z", "M19,3 V17 H27 Z"
        return (
            tinted(shape, colour, 0.6)
            + line(image, colour)
            + dashed("M15,1 V19")
            + letter(axis, 11, 21)
        )
    if axis == "Y":
        shape, image = "M3,11 H17 V3 Z", "M3,19 H17 V27 Z"
        return (
            tinted(shape, colour, 0.6)
            + line(image, colour)
            + dashed("M1,15 H19")
            + letter(axis, 21, 11)
        )
    shape, image = "M3,13 V3 H13 Z", "M9,19 H19 V9 Z"
    return (
        tinted(shape, colour, 0.6) + line(image, colour) + dashed("M1,21 L21,1") + letter(axis, 21, 21)
    )


def floppy(outline="M3,3 H23 L29,9 V29 H3 Z", label="M9,29 V19 H23 V29"):
    return tinted(outline, BLUE, 0.25) + line("M9,3 V11 H19 V3", BLUE) + line(label, BLUE)


def eye():
    lids = "M2,16 Q9,7 16,7 Q23,7 30,16 Q23,25 16,25 Q9,25 2,16 Z"
    return line(lids) + area(disc(16, 16, 5), BLUE)


def icons():
    """The drawing of every command."""
    table = {
        "mnuNew": page("M17,29 H7 V3 H19 L25,9 V15") + plus(25, 25),
        "mnuOpen": folder(),
        "mnuMerge": line("M3,3 H13 V13 H3 Z M19,3 H29 V13 H19 Z", AMBER)
        + line("M8,14 L14,20 M24,14 L18,20", GREEN)
        + tinted("M9,21 H23 V29 H9 Z", AMBER, 0.5),
        "mnuSave": floppy(),
        "mnuSaveAs": floppy("M13,29 H3 V3 H23 L29,9 V13", "M9,29 V19 H17")
        + tinted("M15,31 L17,25 L27,15 L31,19 L21,29 Z", AMBER),
        "mnuExport3DS": line("M19,29 H3 V11 L11,3 H29 V15 M3,11 H21 L29,3 M21,11 V17")
        + arrow_right(30, 23, 17),
        "mnuExportOBJ": line("M19,29 L3,23 L15,3 L27,17 M3,23 L15,19 V3 M15,19 L19,29", BLUE)
        + arrow_right(30, 23, 17),
        "mnuExportGLB": line("M17,29 L5,23 V9 L17,3 L29,9 V15 M5,9 L17,15 L29,9 M17,15 V17")
        + tinted("M5,9 L17,3 L29,9 L17,15 Z", BLUE, 0.6)
        + arrow_right(30, 23, 17),
        "mnuExportSourceCode": page("M11,29 H7 V3 H19 L25,9 V15")
        + line("M15,9 L11,13 L15,17", BLUE)
        + arrow_right(30, 23, 17),
        "mnuView4Way": line("M3,3 H13 V13 H3 Z M19,3 H29 V13 H19 Z M3,19 H13 V29 H3 Z")
        + tinted("M19,19 H29 V29 H19 Z", BLUE, 0.6),
        "mnuViewTop": box_up_left(top=0.9),
        "mnuViewLeft": box_up_left(left=0.9),
        "mnuViewFront": box_up_left(front=0.9),
        "mnuView3D": box_up_left(0.25, 0.9, 0.55),
        "mnuRulers": tinted("M3,3 H29 V13 H13 V29 H3 Z", GREY, 0.2)
        + line("M9,3 V7 M15,3 V9 M21,3 V7 M27,3 V7 M3,15 H9 M3,21 H7 M3,27 H7"),
        "mnuShow3DGrid": line("M3,27 H29 L23,7 H9 Z M13,7 L11,27 M19,7 L21,27", BLUE)
        + line("M7,13 H25 M5,19 H27", BLUE),
        "mnuSnap": line("M8,11 V17 A8,8 0 0 0 24,17 V11", RED, 6) + area("M5,3 H11 V9 H5 Z M21,3 H27 V9 H21 Z"),
        "mnuShowInvisible": eye(),
        "mnuSizeArbitrary": sides_any(),
        "mnuCreateBox": box_up_right(BLUE, 0.4, 0.6, 0.2),
        "mnuCreateCone": tinted("M16,2 L29,25 A13,4 0 0 1 3,25 Z", BLUE, 0.35)
        + line("M3,25 A13,4 0 0 1 29,25", BLUE, 1.5),
        "mnuCreateSphere": tinted(disc(16, 16, 13), BLUE, 0.35)
        + line("M3,16 A13,5 0 0 0 29,16 M16,3 A5,13 0 0 0 16,29", BLUE),
        "mnuModeBrush": mode("brush"),
        "mnuModeFace": mode("face"),
        "mnuModeEdge": mode("edge"),
        "mnuModeVertex": mode("vertex"),
        "mnuUndo": line("M9,11 H19 A8,8 0 0 1 19,27 H9", BLUE, 3) + area("M1,11 L11,3 V19 Z", BLUE),
        "mnuRedo": line("M23,11 H13 A8,8 0 0 0 13,27 H23", BLUE, 3) + area("M31,11 L21,3 V19 Z", BLUE),
        "mnuCopy": tinted("M3,3 H19 V7 H11 V23 H3 Z", GREY, 0.2) + tinted("M11,7 H29 V29 H11 Z", BLUE, 0.2)
        + line("M15,13 H25 M15,19 H25", BLUE),
        "mnuPaste": line("M9,5 H5 V29 H11 M19,5 H23 V9") + area("M9,2 H19 V8 H9 Z")
        + tinted("M13,13 H29 V29 H13 Z", BLUE, 0.2) + line("M17,19 H25 M17,23 H25", BLUE),
        "mnuSelect": dashed("M27,11 V3 H3 V27 H11", AMBER, "4,4")
        + area("M13,11 L29,19 L22,21 L27,28 L23,31 L18,24 L13,29 Z"),
        "mnuUnSelect": dashed("M27,15 V3 H3 V27 H15", AMBER, "4,4") + cross(24, 24, 6, RED, 3),
        "mnuDelete": line("M3,7 H29 M11,7 V3 H21 V7", RED) + tinted("M7,7 V29 H25 V7", RED, 0.2)
        + line("M13,12 V24 M19,12 V24", RED),
        "mnuFreeRotate": line("M5.5,11 A12,12 0 0 1 25,8 M26.5,21 A12,12 0 0 1 7,24")
        + area("M29,3 V13 H19 Z M3,29 V19 H13 Z") + area(disc(16, 16, 4), AMBER),
        "mnuInvert": area("M3,3 H29 L3,29 Z", BLUE, 0.8) + line("M3,3 H29 V29 H3 Z M3,29 L29,3"),
        "mnuMultiply": tinted(square(3, 17, 12), BLUE, 0.6) + line("M9,13 V9 H21 V21 H17", BLUE)
        + line("M15,7 V3 H29 V15 H23", BLUE) + cross(25, 25, 4, AMBER, 3),
        "mnuOptimize": tinted("M19,1 L5,18 H14 L11,31 L27,12 H17 Z", AMBER, 0.45),
        "mnuPreferences": line("M3,7 H29 M3,15 H29 M3,25 H29")
        + area(square(19, 3, 8), BLUE) + area(square(5, 11, 8), BLUE) + area(square(15, 21, 8), BLUE),
        "mnuStatistics": line("M3,3 V29 H29") + area("M7,17 H12 V26 H7 Z", GREEN)
        + area("M14,9 H19 V26 H14 Z", BLUE) + area("M21,13 H26 V26 H21 Z", AMBER),
        "mnuHelpContents": tinted(disc(16, 16, 13), BLUE, 0.15)
        + line("M11,13 V9 H21 V15 H16 V19", BLUE, 3) + area("M14,22 H18 V26 H14 Z", BLUE),
        "mnuExit": line("M19,9 V3 H5 V29 H19 V21") + arrow_right(30, 15, 19, RED),
        "korvane": program_icon(),
    }
    for count in SIZE_OUTLINES:
        table[f"mnuSize{count}"] = sides(count)
    for axis in AXIS_COLOUR:
        table[f"mnuRot{axis}"] = rotation(axis, clockwise=True)
        table[f"mnuRot{axis}c"] = rotation(axis, clockwise=False)
        table[f"mnuFlip{axis}"] = flip(axis)
    return table


def program_icon():
    """A block of bricks: a textured brush. Joints are areas that end where their side ends; upright
    ones cover whole pixels at 32 pixels."""
    top = area("M16,2 L29,9 L16,16 L3,9 Z", "#e8b25c")
    left = area("M3,9 L16,16 V31 L3,24 Z", "#c8553d")
    right = area("M29,9 L16,16 V31 L29,24 Z", "#8f3a2b")
    return top + left + right + area(joints(lambda x: x), "#f0d9c0") + area(joints(lambda x: 32 - x), "#cfa58c")


def joints(side):
    """The joints of the left side; `side` may mirror them. Courses are five units high."""

    def edge(x, down):  # a point of the top edge, moved down
        return f"{side(x)},{9 + (x - 3) * 7 / 13 + down:.4g}"

    def joint(x1, x2, down1, down2):
        return f"M{edge(x1, down1)} L{edge(x2, down1)} L{edge(x2, down2)} L{edge(x1, down2)} Z"

    level = [joint(3, 16, down - 0.5, down + 0.5) for down in (5, 10)]
    upright = [joint(x, x + 1, down, down + 4) for x, down in ((9, 0.5), (5, 5.5), (12, 5.5), (9, 10.5))]
    return " ".join(level + upright)


# Output ----------------------------------------------------------------------------------------


def main():
    check_palette()
    folder_path = Path(__file__).resolve().parent
    table = icons()
    for name, drawing in table.items():
        text = (
            '<svg xmlns="http://www.w3.org/2000/svg" width="32" height="32" viewBox="0 0 32 32">\n'
            + drawing.replace("><", ">\n<")
            + "\n</svg>\n"
        )
        (folder_path / f"{name}.svg").write_text(text)
    rows = "".join(f'        <file alias="{n}.svg">{n}.svg</file>\n' for n in sorted(table))
    (folder_path / "icons.qrc").write_text(
        f'<RCC>\n    <qresource prefix="/icons">\n{rows}    </qresource>\n</RCC>\n'
    )


if __name__ == "__main__":
    main()
