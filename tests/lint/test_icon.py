"""The program's icon: in its file, in Moorlink.exe, and as its tool draws it."""

import pathlib
import struct
import subprocess
import sys
import tempfile
import unittest

from imports import PROGRAM
from sources import ROOT

ICON = ROOT / "resources" / "Moorlink.ico"
TOOL = ROOT / "tools" / "make_icon.py"
KINDS = [(48, 4), (48, 8), (48, 32), (32, 4), (32, 8), (32, 32), (16, 4), (16, 8), (16, 32)]
"""Edge and bits per pixel of the nine images, in their order."""

ICON_KIND, GROUP_KIND = 3, 14


def images_of_file(data):
    """The images of an icon file, each with its entry: (width, height, colours, bits, image)."""
    reserved, kind, count = struct.unpack_from("<HHH", data)
    assert (reserved, kind) == (0, 1)
    for place in range(6, 6 + 16 * count, 16):
        width, height, colours, _, planes, bits, size, offset = struct.unpack_from("<BBBBHHII", data, place)
        assert planes == 1
        yield width, height, colours, bits, data[offset:offset + size]


class Resources:
    """The resources of a 32-bit program, by kind and number."""

    def __init__(self, program):
        self.data = program
        start, = struct.unpack_from("<I", program, 0x3C)
        count, = struct.unpack_from("<H", program, start + 6)
        optional_size, = struct.unpack_from("<H", program, start + 20)
        self.address, = struct.unpack_from("<I", program, start + 24 + 96 + 2 * 8)
        for place in range(start + 24 + optional_size, start + 24 + optional_size + 40 * count, 40):
            address, _, offset = struct.unpack_from("<III", program, place + 12)
            if address == self.address:
                self.offset = offset

    def entries(self, directory):
        named, numbered = struct.unpack_from("<HH", self.data, self.offset + directory + 12)
        for place in range(directory + 16, directory + 16 + 8 * (named + numbered), 8):
            identifier, target = struct.unpack_from("<II", self.data, self.offset + place)
            yield identifier, target & 0x7FFFFFFF

    def of(self, kind):
        """{number: bytes}, each in its first language."""
        found = {}
        for number, languages in self.entries(dict(self.entries(0))[kind]):
            leaf = next(self.entries(languages))[1]
            address, size = struct.unpack_from("<II", self.data, self.offset + leaf)
            place = address - self.address + self.offset
            found[number] = self.data[place:place + size]
        return found


def opacity(image, size):
    """Of each pixel of an image with 32 bits."""
    return list(image[43:40 + 4 * size * size:4])


def mask(image, size):
    """One truth per pixel, from the end of the image: the screen is to show through."""
    line = (size + 31) // 32 * 4
    rows = image[-size * line:]
    return [bool(rows[row * line + column // 8] >> (7 - column % 8) & 1)
            for row in range(size) for column in range(size)]


def colours(image, size, bits):
    """The colour of each pixel as the bitmap has it, blue first."""
    if bits == 32:
        return [image[40 + 4 * pixel:43 + 4 * pixel] for pixel in range(size * size)]
    palette = [image[40 + 4 * index:43 + 4 * index] for index in range(1 << bits)]
    start, line = 40 + (4 << bits), (size * bits + 31) // 32 * 4
    found = []
    for row in range(size):
        for column in range(size):
            byte = image[start + row * line + column * bits // 8]
            found.append(palette[byte >> (8 - bits - column * bits % 8) & ((1 << bits) - 1)])
    return found


class TheIcon(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.file = ICON.read_bytes()
        cls.images = list(images_of_file(cls.file))

    def test_it_has_nine_images_in_three_sizes_and_three_depths(self):
        self.assertEqual(KINDS, [(width, bits) for width, _, _, bits, _ in self.images])
        for width, height, named_colours, bits, _ in self.images:
            self.assertEqual((width, 16 if bits == 4 else 0), (height, named_colours))

    def test_every_image_is_a_plain_bitmap_with_a_mask(self):
        lengths = {(48, 4): 40 + 64 + 1152 + 384, (48, 8): 40 + 1024 + 2304 + 384, (48, 32): 40 + 9216 + 384,
                   (32, 4): 40 + 64 + 512 + 128, (32, 8): 40 + 1024 + 1024 + 128, (32, 32): 40 + 4096 + 128,
                   (16, 4): 40 + 64 + 128 + 64, (16, 8): 40 + 1024 + 256 + 64, (16, 32): 40 + 1024 + 64}
        for size, _, _, bits, image in self.images:
            with self.subTest(size=size, bits=bits):
                self.assertEqual((40, size, 2 * size, 1, bits, 0), struct.unpack_from("<IiiHHI", image))
                self.assertEqual(lengths[size, bits], len(image))

    def test_four_bits_have_the_colours_of_the_system(self):
        system = {(0, 0, 0), (128, 0, 0), (0, 128, 0), (128, 128, 0), (0, 0, 128), (128, 0, 128),
                  (0, 128, 128), (128, 128, 128), (192, 192, 192), (255, 0, 0), (0, 255, 0), (255, 255, 0),
                  (0, 0, 255), (255, 0, 255), (0, 255, 255), (255, 255, 255)}
        for _, _, _, bits, image in self.images:
            if bits == 4:
                entries = [image[40 + 4 * index:44 + 4 * index] for index in range(16)]
                self.assertEqual(system, {(red, green, blue) for blue, green, red, _ in entries})

    def test_what_the_mask_clears_is_black_and_so_leaves_the_screen_as_it_is(self):
        for size, _, _, bits, image in self.images:
            with self.subTest(size=size, bits=bits):
                cleared = mask(image, size)
                self.assertTrue(cleared[-size], "the top left corner")
                self.assertFalse(cleared[size * (size // 4) + size // 2], "the middle of the body")
                if bits != 32:
                    shown = colours(image, size, bits)
                    under_mask = {colour for colour, clear in zip(shown, cleared) if clear}
                    self.assertEqual({bytes(3)}, under_mask)

    def test_soft_edges_stand_in_32_bits_alone_and_the_masks_follow_them(self):
        for size, _, _, bits, image in self.images:
            if bits == 32:
                found = opacity(image, size)
                self.assertTrue({0, 255} < set(found))
                self.assertEqual([degree < 128 for degree in found], mask(image, size))
                for _, _, _, _, other in [kind for kind in self.images if kind[0] == size]:
                    self.assertEqual(mask(image, size), mask(other, size))

    def test_the_equals_sign_is_white_on_teal_at_every_size_and_depth(self):
        for size, _, _, bits, image in self.images:
            with self.subTest(size=size, bits=bits):
                column = colours(image, size, bits)[size // 2::size]
                white = [row for row in range(size) if column[row] == b"\xff\xff\xff"]
                between = [row for row in range(white[0], white[-1]) if row not in white]
                self.assertEqual(list(range(between[0], between[-1] + 1)), between, "one gap")
                for blue, green, red in (column[row] for row in between):
                    self.assertLess(red + 100, min(blue, green))

    def test_the_tool_draws_the_same_bytes_again(self):
        with tempfile.TemporaryDirectory() as folder:
            drawn = pathlib.Path(folder) / "drawn.ico"
            subprocess.run([sys.executable, TOOL, drawn], check=True)
            self.assertTrue(drawn.read_bytes() == self.file, "resources/Moorlink.ico is not what is drawn")

    @unittest.skipUnless(PROGRAM.exists(), "Moorlink.exe has not been built")
    def test_the_program_holds_them_as_icon_group_1(self):
        resources = Resources(PROGRAM.read_bytes())
        groups, pictures = resources.of(GROUP_KIND), resources.of(ICON_KIND)
        self.assertEqual([1], list(groups))
        kinds, held = [], []
        for place in range(6, 6 + 14 * len(KINDS), 14):
            width, _, _, _, _, bits, _, number = struct.unpack_from("<BBBBHHIH", groups[1], place)
            kinds.append((width, bits))
            held.append(pictures[number])
        self.assertEqual((0, 1, len(KINDS)), struct.unpack_from("<HHH", groups[1]))
        self.assertEqual(KINDS, kinds)
        self.assertEqual([image for *_, image in self.images], held)


if __name__ == "__main__":
    unittest.main()
