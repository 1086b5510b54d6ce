"""The pictures of the help pages beside today's windows, and the page that the program finds."""

import struct
import unittest

from desktop_case import DesktopCase
from help_windows import PICTURES, HelpWindows
from built_languages import built_languages
from password_window import STAND_INS
from practice_network import program_folder
from settings_window import HELP, SettingsWindow


def png_size(path):
    """(width, height)"""
    return struct.unpack(">II", path.read_bytes()[16:24])


class Pictures(unittest.TestCase):
    def test_every_window_is_as_large_as_its_picture(self):
        for language in built_languages():
            with HelpWindows(language) as windows:
                for name, window in windows.all():
                    with self.subTest(language=language, window=name):
                        place = windows.desktop.window(window).place
                        size = png_size(PICTURES / language / (name + ".png"))
                        self.assertEqual(size, (place.width, place.height))


class Page(DesktopCase):
    options = {"dlls": STAND_INS}

    def help_is_offered(self, program):
        return SettingsWindow(self.desktop, program=program, folder=program.parent).enabled(HELP)

    def test_help_is_offered_where_the_page_lies_beside_the_program(self):
        self.assertTrue(self.help_is_offered(program_folder(self.desktop)))

    def test_help_is_not_offered_without_the_page(self):
        self.assertFalse(self.help_is_offered(program_folder(self.desktop, **{"Help-1033_html": None})))


if __name__ == "__main__":
    unittest.main()
