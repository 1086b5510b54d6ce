"""The program's own mouse pointer: in its file, in Moorlink.exe, and as its tool draws it."""

import pathlib
import struct
import subprocess
import sys
import tempfile
import unittest

from imports import PROGRAM
from sources import ROOT
from test_icon import Resources

POINTER = ROOT / "resources" / "hand.cur"
TOOL = ROOT / "tools" / "make_pointer.py"
POINTER_KIND, GROUP_KIND = 1, 12
SIZE = 32


def bit(rows, x, y):
    """Of a bitmap with 1 bit per pixel, whose rows stand from the bottom up."""
    return rows[(SIZE - 1 - y) * SIZE // 8 + x // 8] >> (7 - x % 8) & 1


class ThePointer(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.file = POINTER.read_bytes()
        cls.point = struct.unpack_from("<HH", cls.file, 10)
        cls.bitmap = cls.file[22:]
        cls.white, cls.screen = cls.bitmap[48:176], cls.bitmap[176:304]

    def test_it_is_one_plain_bitmap_that_the_oldest_system_can_show(self):
        self.assertEqual((0, 2, 1), struct.unpack_from("<HHH", self.file))
        self.assertEqual((SIZE, SIZE), struct.unpack_from("<BB", self.file, 6))
        self.assertEqual((len(self.bitmap), 22), struct.unpack_from("<II", self.file, 14))
        self.assertEqual((40, SIZE, 2 * SIZE, 1, 1, 0), struct.unpack_from("<IiiHHI", self.bitmap))
        self.assertEqual(48 + 2 * SIZE * SIZE // 8, len(self.bitmap))

    def test_it_clicks_with_the_tip_of_the_first_finger(self):
        x, y = self.point
        self.assertEqual((0, 1), (bit(self.screen, x, y), bit(self.white, x, y)), "white")
        self.assertEqual((0, 0), (bit(self.screen, x, y - 1), bit(self.white, x, y - 1)), "its outline above")
        self.assertTrue(all(bit(self.screen, column, row) for row in range(y - 1) for column in range(SIZE)))

    def test_what_shows_the_screen_does_not_turn_its_colours(self):
        for y in range(SIZE):
            for x in range(SIZE):
                self.assertFalse(bit(self.screen, x, y) and bit(self.white, x, y), (x, y))

    def test_no_white_touches_the_screen(self):
        for y in range(1, SIZE - 1):
            for x in range(1, SIZE - 1):
                if bit(self.white, x, y):
                    around = ((x - 1, y), (x + 1, y), (x, y - 1), (x, y + 1))
                    self.assertFalse(any(bit(self.screen, *place) for place in around), (x, y))

    def test_the_tool_draws_the_same_bytes_again(self):
        with tempfile.TemporaryDirectory() as folder:
            drawn = pathlib.Path(folder) / "drawn.cur"
            subprocess.run([sys.executable, TOOL, drawn], check=True)
            self.assertTrue(drawn.read_bytes() == self.file, "resources/hand.cur is not what is drawn")

    @unittest.skipUnless(PROGRAM.exists(), "Moorlink.exe has not been built")
    def test_the_program_holds_it_as_pointer_2(self):
        resources = Resources(PROGRAM.read_bytes())
        groups, pictures = resources.of(GROUP_KIND), resources.of(POINTER_KIND)
        self.assertEqual([2], list(groups))
        number, = struct.unpack_from("<H", groups[2], 18)
        self.assertEqual(struct.pack("<HH", *self.point) + self.bitmap, pictures[number])


if __name__ == "__main__":
    unittest.main()
