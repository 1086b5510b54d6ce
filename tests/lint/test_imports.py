"""What Moorlink.exe asks of the system it is started on."""

import unittest

from imports import PROGRAM, faults

FOREIGN = PROGRAM.parent.parent / "tests" / "windows_tests.exe"


@unittest.skipUnless(PROGRAM.exists(), "Moorlink.exe has not been built")
class Imports(unittest.TestCase):
    def test_the_program_can_start_on_the_oldest_system_and_is_small_and_closed(self):
        self.assertEqual([], list(faults(PROGRAM)))

    def test_a_program_that_was_not_built_so_is_told_from_it(self):
        found = "\n".join(faults(FOREIGN))
        self.assertIn("imports from OLEAUT32.DLL: SysAllocString", found)
        self.assertIn("imports GetUserDefaultUILanguage from KERNEL32.DLL, which is not on the list", found)
        self.assertIn("bytes, more than 512000", found)


if __name__ == "__main__":
    unittest.main()
