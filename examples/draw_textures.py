#!/usr/bin/python3
"""Draws the sample textures into ObjTextures/ beside this script.

Every texture repeats without a seam: noise is summed from waves and cells that wrap around, and
patterns divide the picture evenly. Seeds are fixed, so a run draws the same pictures again. The
textures are spread over all file kinds that the program reads, TGA in each variant.

Needs Debian's python3-pil and python3-numpy. The textures are committed: only who changes them runs
this script.
"""

import struct
from pathlib import Path

import numpy as np
from PIL import Image

FOLDER = Path(__file__).resolve().parent / "ObjTextures"


# Noise and shapes that wrap around -------------------------------------------------------------
# Grids are arrays [row, column], the top row first; values run from 0 to 1 unless said otherwise.


def noise(seed, width, height, columns, rows, octaves=5, gain=0.55):
    """Smooth noise of columns x rows hills, finer and weaker with each octave."""
    rng = np.random.default_rng(seed)
    total = np.zeros((height, width))
    weight = 1.0
    for octave in range(octaves):
        nx, ny = columns << octave, rows << octave
        if nx > width or ny > height:
            break
        total += weight * smooth_lattice(rng.random((ny, nx)), width, height)
        weight *= gain
    return normalized(total)


def smooth_lattice(lattice, width, height):
    ny, nx = lattice.shape
    x, fx = lattice_position(width, nx)
    y, fy = lattice_position(height, ny)
    x1, y1 = (x + 1) % nx, (y + 1) % ny
    top = lattice[np.ix_(y, x)] * (1 - fx) + lattice[np.ix_(y, x1)] * fx
    bottom = lattice[np.ix_(y1, x)] * (1 - fx) + lattice[np.ix_(y1, x1)] * fx
    return top * (1 - fy[:, None]) + bottom * fy[:, None]


def lattice_position(size, count):
    position = np.arange(size) * count / size
    cell = position.astype(int)
    part = position - cell
    return cell % count, part * part * (3 - 2 * part)


def normalized(grid):
    return (grid - grid.min()) / (grid.max() - grid.min())


def coordinates(width, height):
    """Column and row of each pixel, from 0 to 1."""
    x, y = np.meshgrid(np.arange(width) / width, np.arange(height) / height)
    return x, y


def cells(seed, width, height, columns, rows, jitter=0.8):
    """For each pixel the number of the nearest of columns x rows scattered points, its distance and
    how much farther the second nearest is, in cells."""
    rng = np.random.default_rng(seed)
    px = (np.arange(columns)[None, :] + 0.5 + (rng.random((rows, columns)) - 0.5) * jitter) / columns
    py = (np.arange(rows)[:, None] + 0.5 + (rng.random((rows, columns)) - 0.5) * jitter) / rows
    x, y = coordinates(width, height)
    nearest = np.full((height, width), 9.0)
    second = nearest.copy()
    owner = np.zeros((height, width), int)
    for index, (cx, cy) in enumerate(zip(px.ravel(), py.ravel())):
        dx = wrapped(x - cx) * columns
        dy = wrapped(y - cy) * rows
        distance = np.hypot(dx, dy)
        closer = distance < nearest
        second = np.where(closer, nearest, np.minimum(second, distance))
        owner[closer] = index
        nearest = np.minimum(nearest, distance)
    return owner, nearest, second - nearest


def wrapped(difference):
    return difference - np.round(difference)


def step(low, high, grid):
    part = np.clip((grid - low) / (high - low), 0, 1)
    return part * part * (3 - 2 * part)


def light(heights, strength):
    """Light from the upper left on a relief, about 0."""
    return strength * (
        heights - np.roll(heights, 1, axis=1) + heights - np.roll(heights, 1, axis=0)
    )


def per_cell(seed, owner):
    """A random value for each number."""
    return np.random.default_rng(seed).random(int(owner.max()) + 1)[owner]


def blend(first, second, grid):
    """Colours between two, as an array [row, column, channel]."""
    first, second = np.array(first, float), np.array(second, float)
    return first + (second - first) * grid[..., None]


def shaded(colour, factor):
    return colour * factor[..., None]


# Textures --------------------------------------------------------------------------------------
# Each returns an array [row, column, RGB] of values from 0 to 255.


def bricks(width, height, columns, rows, joint, seed):
    """Number of the brick at each pixel and how far inside it the pixel lies (0 in the joint)."""
    x, y = coordinates(width, height)
    wobble = (noise(seed, width, height, 8, 8, 3) - 0.5) * 0.06
    row = np.floor(y * rows).astype(int)
    along = x * columns + (row % 2) * 0.5
    column = np.floor(along).astype(int) % columns
    fx, fy = along - np.floor(along), y * rows - row
    edge_x = np.minimum(fx, 1 - fx) * width / columns
    edge_y = np.minimum(fy, 1 - fy) * height / rows
    edge = np.minimum(edge_x, edge_y) + wobble * joint * 8
    return row * columns + column, step(joint * 0.6, joint * 1.6, edge)


def brick():
    w = h = 256
    owner, inside = bricks(w, h, 4, 8, 2.2, 11)
    grain = noise(12, w, h, 16, 16, 4)
    stone = blend((150, 62, 44), (188, 96, 66), per_cell(13, owner) * 0.75 + grain * 0.25)
    stone = shaded(stone, 0.84 + 0.3 * grain)
    mortar = blend((168, 160, 148), (196, 190, 178), noise(14, w, h, 32, 32, 3))
    colour = mortar * (1 - inside[..., None]) + stone * inside[..., None]
    return colour + light(inside, 34)[..., None]


def wall_stone():
    w = h = 256
    owner, inside = bricks(w, h, 2, 4, 3.4, 21)
    grain = noise(22, w, h, 6, 6, 6, 0.65)
    tone = per_cell(23, owner)
    stone = blend((118, 116, 110), (164, 160, 150), 0.55 * tone + 0.45 * grain)
    stone = shaded(stone, 0.86 + 0.26 * noise(24, w, h, 32, 32, 3))
    colour = np.array((84, 82, 78.0)) * (1 - inside[..., None]) + stone * inside[..., None]
    return colour + (light(inside, 44) + light(grain, 120))[..., None]


def planks():
    w = h = 256
    x, y = coordinates(w, h)
    board = np.floor(y * 4).astype(int)
    edge = np.minimum(y * 4 - board, 1 - (y * 4 - board)) * h / 4
    fibres = noise(31, w, h, 2, 64, 3, 0.6)
    rings = 0.5 + 0.5 * np.sin(2 * np.pi * (y * 16 + 1.6 * noise(32, w, h, 2, 4, 3)))
    tone = per_cell(33, board)
    colour = blend((112, 74, 42), (172, 124, 76), 0.35 * tone + 0.35 * rings + 0.3 * fibres)
    colour = shaded(colour, 0.45 + 0.55 * step(0.4, 2.2, edge))
    for index in range(4):  # one butt joint a board, with two nails beside it
        place = (0.13 + 0.37 * index) % 1
        gap = np.abs(wrapped(x - place)) * w
        mine = board == index
        colour = np.where((mine & (gap < 1.0))[..., None], colour * 0.4, colour)
        for level in (0.25, 0.75):
            nail = np.hypot(np.abs(gap - 7), (y * 4 - index - level) * h / 4)
            colour = np.where((mine & (nail < 2.0))[..., None], (62, 56, 52), colour)
    return colour


def roof_tiles():
    w, h = 256, 256
    x, y = coordinates(w, h)
    rows, columns = 8, 8
    row = np.floor(y * rows).astype(int)
    along = x * columns + (row % 2) * 0.5
    column = np.floor(along).astype(int) % columns
    fx, fy = along - np.floor(along) - 0.5, y * rows - row
    lower = 0.72 + 0.28 * np.sqrt(np.clip(1 - (2 * fx) ** 2, 0, 1))  # rounded lower end
    on_tile = fy < lower
    grain = noise(41, w, h, 32, 32, 4)
    tone = per_cell(42, row * columns + column)
    colour = blend((134, 52, 36), (184, 88, 58), 0.65 * tone + 0.35 * grain)
    shade = 0.62 + 0.38 * np.cos(fx * 2.6) * (0.55 + 0.45 * np.minimum(fy / 0.8, 1))
    rim = np.where(on_tile & (lower - fy < 0.1), 1.14, 1.0)
    side = np.where(np.abs(fx) > 0.47, 0.72, 1.0)
    shadow = np.where(on_tile, 1.0, 0.5)
    return shaded(colour, shade * rim * side * shadow * 1.12)


def grass():
    w = h = 256
    rng = np.random.default_rng(51)
    ground = noise(52, w, h, 4, 4, 6, 0.7)
    colour = blend((46, 74, 30), (92, 122, 50), ground)
    for _ in range(5200):  # blades, from the root upwards
        x, y = rng.integers(0, w), rng.integers(0, h)
        lean, length = rng.normal(0, 0.35), int(rng.integers(4, 10))
        tip = np.array((96, 148, 58)) + rng.normal(0, 14, 3)
        for i in range(length):
            px, py = (x + int(round(lean * i))) % w, (y - i) % h
            part = 0.25 + 0.75 * i / length
            colour[py, px] = colour[py, px] * (1 - 0.6 * part) + tip * 0.6 * part
    return colour


def metal():
    w = h = 128
    x, y = coordinates(w, h)
    brushed = noise(61, w, h, 2, 64, 2, 0.8)
    base = blend((126, 132, 140), (168, 174, 182), 0.4 + 0.35 * brushed + 0.25 * noise(62, w, h, 2, 2, 2))
    fx, fy = x * 2 % 1, y * 2 % 1
    edge = np.minimum(np.minimum(fx, 1 - fx), np.minimum(fy, 1 - fy)) * w / 2
    colour = shaded(base, 0.55 + 0.45 * step(0.3, 1.8, edge))
    for cx in (0.14, 0.86):  # rivets of each plate
        for cy in (0.14, 0.86):
            dx, dy = (fx - cx) * w / 2, (fy - cy) * h / 2
            distance = np.hypot(dx, dy)
            dome = 1.0 - 0.16 * (dx + dy) / 3.2
            colour = np.where((distance < 4.4)[..., None], shaded(base, np.full_like(x, 0.6)), colour)
            colour = np.where((distance < 3.4)[..., None], shaded(base, dome), colour)
    return colour


def sand():
    w = h = 128
    x, y = coordinates(w, h)
    bend = noise(71, w, h, 2, 2, 3)
    ripples = 0.5 + 0.5 * np.sin(2 * np.pi * (y * 6 + 1.2 * bend))
    grain = np.random.default_rng(72).random((h, w))
    colour = blend((186, 156, 104), (226, 200, 148), 0.55 * ripples + 0.2 * bend + 0.25 * grain)
    return colour + light(ripples, 30)[..., None]


def marble(dark, pale, vein, seed, size):
    x, y = coordinates(size, size)
    cloud = noise(seed, size, size, 3, 3, 6, 0.6)
    swirl = noise(seed + 1, size, size, 2, 2, 6, 0.55)
    fine = noise(seed + 2, size, size, 4, 4, 6, 0.6)
    base = blend(dark, pale, cloud)
    ridge = np.abs(np.sin(np.pi * (x * 2 + y * 2 + 3.2 * swirl)))
    threads = np.abs(np.sin(np.pi * (x * 3 - y * 2 + 3.6 * fine)))
    strength = 0.75 * np.exp(-ridge * 12) + 0.4 * np.exp(-threads * 22)
    strength = np.clip(strength, 0, 1)[..., None]
    return base * (1 - strength) + np.array(vein, float) * strength


def marble_white():
    return marble((214, 210, 204), (246, 244, 240), (138, 136, 140), 81, 256)


def marble_black():
    return marble((26, 27, 31), (52, 53, 60), (176, 172, 164), 91, 256)


def cobble():
    w = h = 256
    owner, nearest, rim = cells(101, w, h, 6, 6, 0.7)
    dome = step(0.05, 0.42, rim)
    grain = noise(102, w, h, 16, 16, 4, 0.6)
    stone = blend((108, 104, 100), (158, 152, 142), 0.65 * per_cell(103, owner) + 0.35 * grain)
    stone = shaded(stone, 0.7 + 0.34 * dome)
    soil = blend((62, 56, 48), (86, 78, 66), grain)
    on_stone = step(0.05, 0.13, rim)[..., None]
    return soil * (1 - on_stone) + stone * on_stone + light(dome, 70)[..., None]


def plaster():
    w = h = 128
    relief = noise(111, w, h, 8, 8, 5, 0.75)
    stains = noise(112, w, h, 2, 2, 3)
    colour = blend((218, 208, 186), (238, 230, 212), 0.5 * relief + 0.5 * stains)
    return colour + light(relief, 42)[..., None]


def water():
    w = h = 256
    x, y = coordinates(w, h)
    push = noise(121, w, h, 3, 3, 4)
    _, nearest, rim = cells(122, w, h, 5, 5, 0.9)
    ripples = np.exp(-rim * 7) * (0.55 + 0.45 * push)
    swell = 0.5 + 0.5 * np.sin(2 * np.pi * (y * 3 + x + 1.1 * push))
    colour = blend((24, 74, 118), (52, 118, 160), 0.6 * swell + 0.4 * push)
    return colour + ripples[..., None] * np.array((96, 108, 104.0))


def chess():
    """A board of eight by eight fields in the two marbles, made to be laid once over a brush."""
    size = 512
    white = np.tile(marble((206, 190, 160), (232, 220, 194), (170, 148, 116), 131, 256), (2, 2, 1))
    black = np.tile(marble((58, 40, 30), (84, 60, 44), (124, 96, 74), 141, 256), (2, 2, 1))
    x, y = coordinates(size, size)
    field = (np.floor(x * 8) + np.floor(y * 8)).astype(int) % 2
    edge = np.minimum(np.minimum(x * 8 % 1, 1 - x * 8 % 1), np.minimum(y * 8 % 1, 1 - y * 8 % 1))
    colour = np.where((field == 0)[..., None], white, black)
    return shaded(colour, 0.72 + 0.28 * step(0.0, 0.03, edge))


def window():
    """A glazed window of four panes, made to be laid once over a brush."""
    w, h = 64, 64
    x, y = coordinates(w, h)
    fx, fy = np.abs(x * 2 % 1 - 0.5), np.abs(y * 2 % 1 - 0.5)
    frame = (fx > 0.42) | (fy > 0.42)
    sky = blend((70, 104, 132), (158, 192, 212), 1 - y)
    gleam = (np.abs(x + y - 0.6) < 0.07) | (np.abs(x + y - 1.25) < 0.12)
    glass = np.where(gleam[..., None], sky * 0.72 + 66, sky)
    wood = blend((92, 62, 38), (124, 88, 56), noise(151, w, h, 4, 16, 3))
    shade = np.where((fx > 0.455) | (fy > 0.455), 1.12, 0.7)
    return np.where(frame[..., None], shaded(wood, shade), glass)


def door():
    """A boarded door with iron bands, made to be laid once over a brush."""
    w, h = 128, 256
    x, y = coordinates(w, h)
    board = np.floor(x * 5).astype(int)
    edge = np.minimum(x * 5 - board, 1 - (x * 5 - board)) * w / 5
    grain = noise(161, w, h, 32, 2, 3, 0.6)
    colour = blend((88, 56, 30), (136, 94, 54), 0.5 * grain + 0.5 * per_cell(162, board))
    colour = shaded(colour, 0.5 + 0.5 * step(0.3, 2.0, edge))
    rim = np.minimum(np.minimum(x, 1 - x) * w, np.minimum(y, 1 - y) * h)
    colour = np.where((rim < 5)[..., None], (74, 48, 28), colour)
    for level in (0.2, 0.8):
        offset = (y - level) * h
        band = (np.abs(offset) < 8) & (x < 0.86)
        colour = np.where(band[..., None], (64, 66, 70) + light(grain, 60)[..., None], colour)
        colour = np.where((band & (offset < -6))[..., None], (104, 106, 112), colour)
        for nail in (0.1, 0.3, 0.5, 0.7):
            near = np.hypot((x - nail) * w, offset) < 2.6
            colour = np.where(near[..., None], (128, 130, 136), colour)
    ring = np.abs(np.hypot((x - 0.84) * w, (y - 0.52) * h) - 7)
    return np.where((ring < 1.6)[..., None], (150, 142, 110), colour)


def hedge():
    w = h = 64
    owner, nearest, rim = cells(171, w, h, 9, 9, 1.0)
    leaf = step(0.0, 0.5, rim)
    colour = blend((38, 66, 32), (88, 132, 58), 0.5 * per_cell(172, owner) + 0.5 * leaf)
    return colour + light(leaf, 36)[..., None]


def shingles():
    w, h = 256, 128
    owner, inside = bricks(w, h, 16, 8, 1.0, 181)
    _, y = coordinates(w, h)
    slope = y * 8 - np.floor(y * 8)
    grain = noise(182, w, h, 64, 16, 2)
    slate = blend((68, 76, 88), (108, 116, 128), 0.65 * per_cell(183, owner) + 0.35 * grain)
    slate = shaded(slate, 0.78 + 0.3 * slope)
    return slate * (0.42 + 0.58 * inside[..., None])


# Files -----------------------------------------------------------------------------------------


def tga(pixels, depth=24, run_length=False, top_down=False):
    """The bytes of a true-colour TGA file; 32 bits add an opaque alpha."""
    height, width, _ = pixels.shape
    rows = pixels[..., ::-1] if top_down else pixels[::-1, :, ::-1]
    if depth == 32:
        rows = np.concatenate([rows, np.full((height, width, 1), 255, np.uint8)], axis=2)
    descriptor = (8 if depth == 32 else 0) | (0x20 if top_down else 0)
    header = struct.pack(
        "<BBB5sHHHHBB", 0, 0, 10 if run_length else 2, b"\0" * 5, 0, 0, width, height, depth, descriptor
    )
    body = b"".join(packets(row) for row in rows) if run_length else rows.tobytes()
    return header + body


def packets(row):
    """One row as run-length packets: runs of equal pixels and stretches of different ones."""
    pixels = [bytes(p) for p in row]
    out, i = bytearray(), 0
    while i < len(pixels):
        run = 1
        while i + run < len(pixels) and run < 128 and pixels[i + run] == pixels[i]:
            run += 1
        if run > 1:
            out += bytes([127 + run]) + pixels[i]
            i += run
            continue
        end = i + 1
        while end < len(pixels) and end - i < 128 and pixels[end : end + 1] != pixels[end + 1 : end + 2]:
            end += 1
        out += bytes([end - i - 1]) + b"".join(pixels[i:end])
        i = end
    return bytes(out)


def to_bytes(colour):
    return np.clip(np.rint(colour), 0, 255).astype(np.uint8)


def reduced(pixels, colours):
    """The picture in a few colours, for run-length packets to have runs."""
    image = Image.fromarray(pixels).quantize(colours, dither=Image.Dither.NONE)
    return np.asarray(image.convert("RGB"))


def save_jpeg(name, pixels):
    Image.fromarray(pixels).save(FOLDER / name, "JPEG", quality=84, optimize=True)


def save_bmp(name, pixels):
    Image.fromarray(pixels).save(FOLDER / name, "BMP")


def save_gif(name, pixels):
    Image.fromarray(pixels).quantize(256).save(FOLDER / name, "GIF")


def save_tga(name, pixels, **kind):
    (FOLDER / name).write_bytes(tga(pixels, **kind))


def main():
    FOLDER.mkdir(exist_ok=True)
    save_jpeg("Brick.jpg", to_bytes(brick()))
    save_jpeg("Stone.jpg", to_bytes(wall_stone()))
    save_jpeg("Planks.jpg", to_bytes(planks()))
    save_jpeg("Cobble.jpeg", to_bytes(cobble()))
    save_jpeg("Grass.jpg", to_bytes(grass()))
    save_jpeg("Chessboard.jpg", to_bytes(chess()))
    save_jpeg("Marble_White.jpe", to_bytes(marble_white()))
    save_jpeg("Water.jpg", to_bytes(water()))
    save_gif("Roof_Tiles.gif", to_bytes(roof_tiles()))
    save_gif("Hedge.gif", to_bytes(hedge()))
    save_bmp("Plaster.bmp", to_bytes(plaster()))
    save_bmp("Sand.bmp", to_bytes(sand()))
    save_tga("Metal.tga", to_bytes(metal()), depth=24)
    save_tga("Marble_Black.tga", reduced(to_bytes(marble_black()), 24), depth=24, run_length=True)
    save_tga("Shingles.tga", to_bytes(shingles()), depth=32)
    save_tga("Door.tga", reduced(to_bytes(door()), 32), depth=32, run_length=True)
    save_tga("Window.tga", to_bytes(window()), depth=24, top_down=True)


if __name__ == "__main__":
    main()
