"""The program's version: told in one place, and in Moorlink.exe as told."""

import re
import struct
import unittest

from imports import PROGRAM
from sources import ROOT
from test_icon import Resources

TOLD = ROOT / "cmake" / "version.cmake"
ENGLISH = ROOT / "languages" / "en.po"
VERSION_KIND = 16
FIELDS = ("CompanyName", "FileDescription", "FileVersion", "InternalName", "LegalCopyright", "OriginalFilename",
          "ProductName", "ProductVersion")


def told():
    """(major, minor, revision)"""
    text = TOLD.read_text(encoding="ascii")
    return tuple(int(re.search(r"set\(KESTRELMOOR_VERSION_%s (\d+)\)" % part, text).group(1))
                 for part in ("MAJOR", "MINOR", "REVISION"))


def text_of(record, name):
    """A text of the record: its name ends in NUL and is filled up to four bytes, as the record's head is of six."""
    key = (name + "\0").encode("utf-16-le")
    start = record.index(key) - 6
    length, = struct.unpack_from("<H", record, start + 2)
    value = start + 6 + len(key)
    value += -value % 4
    return record[value:value + 2 * length].decode("utf-16-le").rstrip("\0")


class TheVersion(unittest.TestCase):
    def test_it_is_the_one_that_is_released(self):
        self.assertEqual((1, 2, 84), told())

    def test_the_translations_name_it_too(self):
        self.assertIn('"Project-Id-Version: Kestrelmoor %d.%02d.%04d\\n"' % told(), ENGLISH.read_text("utf-8"))

    @unittest.skipUnless(PROGRAM.exists(), "Moorlink.exe has not been built")
    def test_the_program_bears_its_version_record(self):
        record, = Resources(PROGRAM.read_bytes()).of(VERSION_KIND).values()
        self.assertIn("040904B0".encode("utf-16-le"), record)
        texts = {name: text_of(record, name) for name in FIELDS}
        self.assertTrue(texts.pop("FileDescription") and texts.pop("LegalCopyright"))
        self.assertEqual({"CompanyName": "Orvane", "FileVersion": "1.02.0084", "InternalName": "Moorlink",
                          "OriginalFilename": "Moorlink.exe", "ProductName": "Kestrelmoor",
                          "ProductVersion": "1.02.0084"}, texts)
        place = record.index(struct.pack("<I", 0xFEEF04BD))
        self.assertEqual((1 << 16 | 2, 84, 1 << 16 | 2, 84), struct.unpack_from("<IIII", record, place + 8))


if __name__ == "__main__":
    unittest.main()
