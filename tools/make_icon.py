"""Draws the program's icon from its source pictures.

    make_icon.py OUT.ico

Nine images: 48, 32 and 16 pixels square, each with 4, 8 and 32 bits per pixel. All are plain bitmaps, since
the oldest system knows no other; the first two depths have a mask of one bit in place of soft edges. The
drawing has few colours, so that 8 bits hold every one of them.

Needs the packages librsvg2-bin and python3-pil. The same pictures always give the same bytes.
"""

import io
import pathlib
import struct
import subprocess
import sys

from PIL import Image

PICTURES = pathlib.Path(__file__).resolve().parent.parent / "resources" / "icon"
SOURCES = {48: "moorlink.svg", 32: "moorlink.svg", 16: "moorlink_16.svg"}
DEPTHS = (4, 8, 32)
BLACK = (0, 0, 0)
SYSTEM_COLOURS = [
    BLACK, (128, 0, 0), (0, 128, 0), (128, 128, 0), (0, 0, 128), (128, 0, 128), (0, 128, 128),
    (128, 128, 128), (192, 192, 192), (255, 0, 0), (0, 255, 0), (255, 255, 0), (0, 0, 255), (255, 0, 255),
    (0, 255, 255), (255, 255, 255)]
"""The sixteen that a display of 4 bits per pixel shows."""


def drawn(size):
    """The picture at that size: rows of pixels from the bottom up, each red, green, blue, opacity."""
    command = ["rsvg-convert", "--width", str(size), "--height", str(size), PICTURES / SOURCES[size]]
    png = subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout
    pixels = list(Image.open(io.BytesIO(png)).convert("RGBA").getdata())
    return [pixels[row * size:(row + 1) * size] for row in reversed(range(size))]


def is_clear(pixel):
    return pixel[3] < 128


def solid(pixel):
    """Its colour in an image without soft edges. What is masked out has to be black there."""
    return BLACK if is_clear(pixel) else pixel[:3]


def padded(row):
    """A row of a bitmap takes whole groups of four bytes."""
    return row + bytes(-len(row) % 4)


def packed(numbers, bits):
    """A row of small numbers, the first in the highest bits."""
    line = "".join(format(number, "0%db" % bits) for number in numbers)
    line += "0" * (-len(line) % 8)
    return padded(int(line, 2).to_bytes(len(line) // 8, "big"))


def nearest(colour, palette):
    def distance(index):
        return sum((a - b) ** 2 for a, b in zip(colour, palette[index]))

    return min(range(len(palette)), key=distance)


def own_colours(rows):
    """The picture's own colours, as a palette of 256."""
    colours = sorted({BLACK, *(solid(pixel) for row in rows for pixel in row)})
    if len(colours) > 256:
        raise ValueError("the drawing has %d colours; an image with 8 bits holds 256" % len(colours))
    return colours + [BLACK] * (256 - len(colours))


def with_palette(rows, palette, bits):
    table = b"".join(struct.pack("BBBB", blue, green, red, 0) for red, green, blue in palette)
    lines = ([nearest(solid(pixel), palette) for pixel in row] for row in rows)
    return table + b"".join(packed(line, bits) for line in lines)


def with_opacity(rows):
    pixels = (pixel for row in rows for pixel in row)
    return b"".join(struct.pack("BBBB", blue, green, red, opacity) if opacity else bytes(4)
                    for red, green, blue, opacity in pixels)


def image(rows, depth):
    """One bitmap of the group: header, palette, colours, mask. Its height counts the mask's rows too."""
    if depth == 32:
        colours = with_opacity(rows)
    else:
        colours = with_palette(rows, SYSTEM_COLOURS if depth == 4 else own_colours(rows), depth)
    mask = b"".join(packed(map(is_clear, row), 1) for row in rows)
    size = len(rows)
    return struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, depth, 0, 0, 0, 0, 0, 0) + colours + mask


def icon():
    entries, images = b"", b""
    offset = 6 + 16 * len(SOURCES) * len(DEPTHS)
    for size in SOURCES:
        rows = drawn(size)
        for depth in DEPTHS:
            bitmap = image(rows, depth)
            entries += struct.pack("<BBBBHHII", size, size, 16 if depth == 4 else 0, 0, 1, depth, len(bitmap),
                                   offset + len(images))
            images += bitmap
    return struct.pack("<HHH", 0, 1, len(SOURCES) * len(DEPTHS)) + entries + images


if __name__ == "__main__":
    pathlib.Path(sys.argv[1]).write_bytes(icon())
