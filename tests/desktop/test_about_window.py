"""The about window on a real desktop: what it says, its links, its help, and its looks."""

import unittest

from about_window import (
    ADDRESS, DESCRIPTION, GRAY_TEXT, HELP, HELP_FILE, ICON, LEGAL_NOTICE, OK, TIP, TIP_CLASS, TITLE, TRANSLATION,
    TRANSLATOR, TRANSLATOR_WEB, UNINSTALL, VERSION, WEB, AboutWindow, forget_openings, opened, program_with_help,
    watch_openings)
from desktop_case import EveryLook, run_at
from longer_language import GERMAN, longer, longer_library
from practice_network import program_folder
from settings_case import SettingsCase
from settings_window import SettingsWindow
from waiting import wait_until

CLASSIC = {"HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\ThemeManager": {"ThemeActive": "0"}}
TRANSLATED = {206: "Translated by the people of the harbour", 204: "Written without any warranty",
              205: "https://translation.example/"}


class AboutCase(SettingsCase):
    names = []

    installed = True
    """The installer has recorded the web address."""

    def setUp(self):
        if self.desktop.list_registry(UNINSTALL)[1]:
            self.desktop.delete_registry(UNINSTALL)
        if self.installed:
            self.desktop.write_registry(UNINSTALL, "UrlInfoAbout", ADDRESS)
        super().setUp()
        self.about = AboutWindow(self.settings)

    def move_away(self):
        self.desktop.move_mouse(self.about.window, at=(200, 60))


class Contents(AboutCase):
    installed = False

    def test_it_stands_in_the_middle_of_the_settings_and_holds_them_off(self):
        own, owner = self.desktop.window(self.about.window), self.desktop.window(self.settings.window)
        self.assertEqual(owner.handle, own.owner)
        self.assertFalse(owner.enabled)
        self.assertEqual("About Kestrelmoor", own.title)
        self.assertAlmostEqual(owner.place.left + owner.place.right, own.place.left + own.place.right, delta=2)
        self.assertAlmostEqual(owner.place.top + owner.place.bottom, own.place.top + own.place.bottom, delta=2)
        area = self.desktop.client_area(self.about.window)
        self.assertEqual((391, 224), (area.width, area.height))

    # The told twips by 15.
    def test_everything_stands_where_it_is_designed(self):
        self.assertEqual((16, 16, 48, 48), self.about.place(ICON))
        self.assertEqual((288, 192, 93, 25), self.about.place(HELP))
        self.assertEqual((288, 160, 93, 25), self.about.place(OK))
        self.assertEqual((104, 72, 273, 46), self.about.place(DESCRIPTION))
        self.assertEqual((104, 8, 273, 32), self.about.place(TITLE))
        self.assertEqual((104, 48, 273, 15), self.about.place(VERSION))
        corners = {LEGAL_NOTICE: (27, 144), WEB: (27, 160), TRANSLATION: (8, 176), TRANSLATOR: (27, 192),
                   TRANSLATOR_WEB: (27, 208)}
        self.assertEqual(corners, {identifier: self.about.place(identifier)[:2] for identifier in corners})

    def test_it_says_what_the_version_record_says(self):
        self.assertEqual("Kestrelmoor", self.about.text(TITLE))
        self.assertEqual("Version 1.02.0084", self.about.text(VERSION))
        self.assertEqual("Free software under the MIT licence, without any warranty",
                         self.about.text(LEGAL_NOTICE))

    def test_without_an_installer_and_a_translator_there_is_no_link(self):
        self.assertFalse(self.about.visible(WEB))
        self.assertFalse(self.about.visible(TRANSLATOR_WEB))
        self.assertEqual(["", "", ""], [self.about.text(place) for place in (TRANSLATION, TRANSLATOR, TRANSLATOR_WEB)])

    # Rows 136 and 137 of the client area: 2040 and 2055 twips.
    def test_the_band_ends_in_an_etched_rule(self):
        area = self.desktop.client_area(self.about.window)
        pixels = self.desktop.pixels(area)
        for x in (0, 195, 390):
            column = [pixels[x, y] for y in (0, 135, 136, 137, 138)]
            band, shadow, highlight, face = (176, 196, 222), *(self.about.colour(index) for index in (16, 20, 15))
            self.assertEqual([band, band, shadow, highlight, face], column)

    def test_the_icon_and_the_texts_lie_on_the_band(self):
        self.move_away()
        for identifier in (ICON, TITLE, VERSION, DESCRIPTION):
            area = self.desktop.client_area(self.about.control(identifier))
            pixels = self.desktop.pixels(area)
            self.assertEqual((176, 196, 222), pixels[0, 0])
            self.assertEqual((176, 196, 222), pixels[area.width - 1, area.height - 1])
            self.assertGreater(len(set(pixels.values())), 1)

    def test_enter_closes_and_it_opens_anew(self):
        self.desktop.press("Enter")
        self.about.wait_closed()
        wait_until(lambda: self.desktop.window(self.settings.window).enabled, "the settings back")
        self.about = AboutWindow(self.settings)
        self.assertEqual("Version 1.02.0084", self.about.text(VERSION))


class WithoutAHelpFile(AboutCase):
    def open(self):
        return SettingsWindow(self.desktop, program=program_folder(self.desktop, **{HELP_FILE.replace(".", "_"): None}))

    def test_help_is_off_without_a_help_file_and_escape_closes(self):
        watch_openings(self.desktop)
        forget_openings(self.desktop)
        self.assertFalse(self.about.control(HELP).enabled)
        self.desktop.press("F1")
        self.desktop.click(self.about.control(WEB))
        wait_until(lambda: opened(self.desktop), "the web page opened behind the key")
        self.assertEqual(opened(self.desktop), ADDRESS)
        self.desktop.click(self.about.control(LEGAL_NOTICE))
        self.desktop.press("Escape")
        self.about.wait_closed()
        self.assertIsNotNone(self.desktop.window(self.settings.window))


class Link(AboutCase):
    def setUp(self):
        super().setUp()
        watch_openings(self.desktop)
        forget_openings(self.desktop)

    def test_it_shows_the_address_of_the_installer(self):
        self.assertTrue(self.about.visible(WEB))
        self.assertEqual(ADDRESS, self.about.text(WEB))

    def test_it_is_hot_under_the_mouse_and_comes_to_rest(self):
        self.move_away()
        self.assertFalse(self.about.is_hot(WEB))
        self.desktop.move_mouse(self.about.control(WEB))
        self.about.wait_hot(WEB)
        self.assertEqual("other", self.desktop.pointer(self.about.window))
        self.picture("about-hot", self.about.window)
        self.move_away()
        self.about.wait_hot(WEB, False)
        self.assertEqual(0, self.about.longest_run(WEB, self.about.colour(26)))
        self.assertGreater(self.about.longest_run(WEB, self.about.colour(GRAY_TEXT)), 0)
        self.assertEqual("arrow", self.desktop.pointer(self.about.window))

    def test_its_tool_tip_stays_english(self):
        self.desktop.move_mouse(self.about.control(WEB))
        tip = self.desktop.wait_window(class_name=TIP_CLASS, pid=self.about.pid)
        self.desktop.wait_text(tip, TIP)
        self.picture("about-tip")

    def test_the_left_button_opens_it_and_the_right_one_does_not(self):
        self.desktop.click(self.about.control(WEB), button=3)
        self.desktop.click(self.about.control(WEB), button=2)
        self.desktop.click(self.about.control(LEGAL_NOTICE))
        self.assertEqual("", opened(self.desktop))
        self.desktop.click(self.about.control(WEB))
        wait_until(lambda: opened(self.desktop) == ADDRESS, "the address opened, it is %r" % opened(self.desktop))


class Help(AboutCase):
    installed = False

    def open(self):
        self.program = program_with_help(self.desktop)
        return SettingsWindow(self.desktop, program=self.program)

    def setUp(self):
        super().setUp()
        watch_openings(self.desktop)
        forget_openings(self.desktop)

    def wait_opened(self):
        wanted = self.desktop.windows_path(self.program.parent / HELP_FILE)
        wait_until(lambda: opened(self.desktop) == wanted,
                   "the help page %s, it is %r" % (wanted, opened(self.desktop)))

    def test_f1_opens_it(self):
        self.desktop.press("F1")
        self.wait_opened()

    def test_its_button_opens_it(self):
        self.desktop.click(self.about.control(HELP))
        self.wait_opened()

    def test_f1_of_the_password_window_opens_it(self):
        self.desktop.press("Escape")
        self.about.wait_closed()
        self.desktop.press("Escape")
        self.settings.wait_closed()
        self.desktop.press("F1")
        self.wait_opened()


class Looks(AboutCase):
    dpi = look = None

    @classmethod
    def setUpClass(cls):
        cls.options = {**SettingsCase.options, "dpi": cls.dpi, "registry": CLASSIC if cls.look == "classic" else {}}
        super().setUpClass()

    def open(self):
        program = program_with_help(self.desktop)
        (program.parent / ("%d.loc" % GERMAN)).write_bytes(longer_library(self.desktop, TRANSLATED))
        return SettingsWindow(self.desktop, program=program, folder=program.parent)

    def reopen_in_german(self):
        self.desktop.press("Escape")
        self.about.wait_closed()
        self.settings.choose_language("German")
        self.save()
        self.settings.open()
        self.about = AboutWindow(self.settings)

    def check(self):
        self.move_away()
        self.picture("about-%s-%d" % (self.look, self.dpi), self.about.window)
        self.assertEqual([], self.desktop.layout_faults(self.about.window))
        self.reopen_in_german()
        self.move_away()
        self.picture("about-longer-%s-%d" % (self.look, self.dpi), self.about.window)
        self.assertEqual(longer("About %1").replace("%1", "Kestrelmoor"),
                         self.desktop.window(self.about.window).title)
        self.assertEqual(TRANSLATED[205], self.about.text(TRANSLATOR_WEB))
        self.desktop.move_mouse(self.about.control(TRANSLATOR_WEB))
        self.about.wait_hot(TRANSLATOR_WEB)
        self.assertFalse(self.about.is_hot(WEB))


class InEveryLook(EveryLook, unittest.TestCase):
    def look_at(self, dpi, look):
        run_at(self, type("Looks_%s_%d" % (look, dpi), (Looks,), {"dpi": dpi, "look": look})("check"))



if __name__ == "__main__":
    unittest.main()
