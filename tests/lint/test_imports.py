"""What Moorlink.exe and its language libraries ask of the system they are started on, and how they are closed."""

import pathlib
import tempfile
import unittest

import pefile

from imports import PROGRAM, faults, library_faults, protection_faults

FOREIGN = PROGRAM.parent.parent / "tests" / "windows_tests.exe"


@unittest.skipUnless(PROGRAM.exists(), "Moorlink.exe has not been built")
class Imports(unittest.TestCase):
    def test_the_program_can_start_on_the_oldest_system_and_is_small_and_closed(self):
        self.assertEqual([], list(faults(PROGRAM)))

    def test_the_language_libraries_are_closed_and_import_memory_and_texts_only(self):
        libraries = sorted(PROGRAM.parent.glob("*.loc"))
        self.assertIn(PROGRAM.parent / "default.loc", libraries)
        self.assertEqual({}, {path.name: found for path in libraries if (found := list(library_faults(path)))})

    def test_a_program_that_was_not_built_so_is_told_from_it(self):
        found = "\n".join(faults(FOREIGN))
        self.assertIn("imports from OLEAUT32.DLL: SysAllocString", found)
        self.assertIn("imports GetUserDefaultUILanguage from KERNEL32.DLL, which is not on the list", found)
        self.assertIn("bytes, more than 512000", found)
        self.assertIn("imports from ADVAPI32.DLL", "\n".join(library_faults(PROGRAM)))


@unittest.skipUnless(PROGRAM.exists(), "Moorlink.exe has not been built")
class Protection(unittest.TestCase):
    def found(self, change):
        """What is found of a program in which one thing was changed."""
        image = pefile.PE(str(PROGRAM), fast_load=True)
        change(image)
        with tempfile.TemporaryDirectory() as folder:
            changed = pathlib.Path(folder) / PROGRAM.name
            image.write(str(changed))
            return list(protection_faults(pefile.PE(str(changed), fast_load=True)))

    def test_data_that_may_be_run_is_seen(self):
        def change(image):
            image.OPTIONAL_HEADER.DllCharacteristics &= ~0x100

        self.assertEqual(["lets its data be run"], self.found(change))

    def test_a_fixed_address_is_seen(self):
        def change(image):
            image.OPTIONAL_HEADER.DllCharacteristics &= ~0x40

        self.assertEqual(["lies at a fixed address"], self.found(change))

    def test_missing_relocations_are_seen(self):
        def strip(image):
            image.FILE_HEADER.Characteristics |= 0x1

        def empty(image):
            image.OPTIONAL_HEADER.DATA_DIRECTORY[5].Size = 0

        for change in (strip, empty):
            self.assertEqual(["can't be moved from its address"], self.found(change))

    def test_a_section_that_can_be_written_and_run_is_seen(self):
        def change(image):
            image.sections[1].Characteristics |= 0x20000000

        self.assertEqual(["section .data can be written and run"], self.found(change))


if __name__ == "__main__":
    unittest.main()
