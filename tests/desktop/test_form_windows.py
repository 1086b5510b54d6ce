"""The form model on real windows, at every resolution: form_model_tests.exe, test by test."""

import unittest

from desktop import OUT, Desktop
from test_visual_style import TEST as WITHOUT_THE_LIBRARY
from test_windows_platform import run_program

PROGRAM = OUT / "windows" / "tests" / "form_model_tests.exe"
ALL = "*-" + WITHOUT_THE_LIBRARY
"""That one is run by itself."""


class FormWindows(unittest.TestCase):
    def check(self, dpi, tests, at_least):
        with Desktop(dpi=dpi, variables={"GTEST_FILTER": tests}) as desktop:
            results = run_program(desktop, PROGRAM)
        self.assertGreaterEqual(len(results), at_least)
        for name, failures in results.items():
            with self.subTest(name):
                self.assertEqual([], failures)

    def test_forms_do_on_real_windows_what_the_model_says(self):
        self.check(96, ALL, 180)

    def test_the_same_at_one_and_a_half_times_the_resolution(self):
        self.check(144, ALL, 180)

    def test_places_and_fonts_are_exact_at_120_dots_per_inch(self):
        self.check(120, "FormPlaces.*:FormMarks.*:FormParts.*", 25)

    def test_places_and_fonts_are_exact_at_192_dots_per_inch(self):
        self.check(192, "FormPlaces.*:FormMarks.*:FormParts.*", 25)


if __name__ == "__main__":
    unittest.main()
