"""Draws a small picture that is written down as text.

Usage: draw_bitmap.py PICTURE.txt BITMAP.bmp

A line `X = RRGGBB` gives a character a colour, at most 16 in all; every other line that is not empty
and does not begin with `;` is a row of pixels, one character each, from the top.
"""

import re
import struct
import sys

COLOUR = re.compile(r"(\S) = ([0-9A-Fa-f]{6})$")


def read(lines):
    """(colours as 0xRRGGBB, rows of colour numbers)."""
    colours, rows = {}, []
    for line in lines:
        line = line.rstrip("\n")
        if not line or line.startswith(";"):
            continue
        if match := COLOUR.match(line):
            colours[match[1]] = int(match[2], 16)
        else:
            rows.append(line)
    if not rows or len(colours) > 16 or any(len(row) != len(rows[0]) for row in rows):
        sys.exit("not a picture: rows of one width in at most 16 colours are needed")
    numbers = {character: number for number, character in enumerate(colours)}
    return list(colours.values()), [[numbers[pixel] for pixel in row] for row in rows]


def bitmap(colours, rows):
    """A bitmap file of 4 bits a pixel: rows from the bottom, each a multiple of 4 bytes."""
    pixels = b""
    for row in reversed(rows):
        row = row + [0] * (-len(row) % 8)
        pixels += bytes(high << 4 | low for high, low in zip(row[::2], row[1::2]))
    palette = b"".join(struct.pack("<I", colour) for colour in colours + [0] * (16 - len(colours)))
    start = 14 + 40 + len(palette)
    header = struct.pack("<IiiHHIIiiII", 40, len(rows[0]), len(rows), 1, 4, 0, len(pixels),
                         2835, 2835, 16, 0)
    return struct.pack("<2sIHHI", b"BM", start + len(pixels), 0, 0, start) + header + palette + pixels


if __name__ == "__main__":
    with open(sys.argv[1], encoding="ascii") as text:
        image = bitmap(*read(text))
    with open(sys.argv[2], "wb") as file:
        file.write(image)
