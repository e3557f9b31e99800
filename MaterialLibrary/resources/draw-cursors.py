#!/usr/bin/env python3
"""Draws the chart's cursors: white with a black edge, 32 x 32 pixels, one bit a pixel."""
import math
import pathlib
import struct

SIZE = 32


def near(x, y, x1, y1, x2, y2, reach):
    """Whether a pixel is at most `reach` from the line between two points."""
    dx, dy = x2 - x1, y2 - y1
    share = max(0.0, min(1.0, ((x - x1) * dx + (y - y1) * dy) / (dx * dx + dy * dy)))
    return math.hypot(x - x1 - share * dx, y - y1 - share * dy) <= reach


def is_zoom(x, y):
    ring = 5.5 <= math.hypot(x - 11, y - 11) <= 8
    plus = (abs(x - 11) <= 3 and y == 11) or (abs(y - 11) <= 3 and x == 11)
    return ring or plus or near(x, y, 18, 18, 26, 26, 1.6)


def is_pan(x, y):
    along, across = max(abs(x - 15), abs(y - 15)), min(abs(x - 15), abs(y - 15))
    return (along <= 11 and across <= 0) or (8 <= along <= 12 and across <= 12 - along)


def is_pick(x, y):
    along, across = max(abs(x - 15), abs(y - 15)), min(abs(x - 15), abs(y - 15))
    return (4 <= along <= 12 and across == 0) or along == 0


def write_cursor(name, is_white, hot_x, hot_y):
    white = [[bool(is_white(x, y)) for x in range(SIZE)] for y in range(SIZE)]
    around = [(dx, dy) for dx in (-1, 0, 1) for dy in (-1, 0, 1)]

    def is_lit(x, y):
        return 0 <= x < SIZE and 0 <= y < SIZE and white[y][x]

    def pack(rows):
        return b"".join(struct.pack(">I", int("".join("01"[bit] for bit in row), 2)) for row in rows)

    clear = [[not any(is_lit(x + dx, y + dy) for dx, dy in around) for x in range(SIZE)] for y in range(SIZE)]
    header = struct.pack("<IiiHHIIiiII", 40, SIZE, 2 * SIZE, 1, 1, 0, 0, 0, 0, 0, 0)
    image = header + struct.pack("<II", 0, 0xFFFFFF) + pack(white[::-1]) + pack(clear[::-1])
    directory = struct.pack("<HHHBBBBHHII", 0, 2, 1, SIZE, SIZE, 2, 0, hot_x, hot_y, len(image), 22)
    (pathlib.Path(__file__).parent / name).write_bytes(directory + image)


write_cursor("ChartZoom.cur", is_zoom, 11, 11)
write_cursor("ChartPan.cur", is_pan, 15, 15)
write_cursor("ChartPick.cur", is_pick, 15, 15)
