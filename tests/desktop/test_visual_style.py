"""The visual style on a system whose library of styles can't be loaded: form_model_tests.exe, one test."""

import unittest

from desktop import OUT, Desktop
from test_windows_platform import run_program

PROGRAM = OUT / "windows" / "tests" / "form_model_tests.exe"
TEST = "VisualStyle.DISABLED_RaisesInEachCallWithoutItsLibrary"


class WithoutTheLibrary(unittest.TestCase):
    def test_each_call_raises(self):
        variables = {"GTEST_FILTER": TEST, "GTEST_ALSO_RUN_DISABLED_TESTS": "1", "WINEDLLOVERRIDES": "uxtheme="}
        with Desktop(variables=variables) as desktop:
            results = run_program(desktop, PROGRAM)
        self.assertEqual({TEST: []}, results)


if __name__ == "__main__":
    unittest.main()
