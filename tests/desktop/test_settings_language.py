"""The language chosen in the settings window: another one and back, and the looks of one with longer words."""

import unittest

from desktop_case import EveryLook, run_at
from longer_language import GERMAN, longer, longer_library
from password_window import NEW_LABEL, PROGRAM, TITLE
from practice_network import program_folder
from settings_case import SettingsCase
from settings_window import DAYS, DAYS_LABEL, ENTRY, LANGUAGES, OK, REMIND, SERVERS, SettingsWindow
from waiting import wait_until

LANGUAGE_NAMES = [
    "Chinese", "Czech", "Dutch", "English", "French", "German", "Italian", "Japanese", "Korean", "Polish", "Portuguese",
    "Russian", "Spanish", "Turkish", "Ukrainian",
]
CLASSIC = {"HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\ThemeManager": {"ThemeActive": "0"}}


class TwoLanguagesCase(SettingsCase):
    """The program in a folder of its own, which holds the longer language beside English."""

    def open(self):
        program = program_folder(self.desktop)
        for library in program.parent.glob("[0-9]*.loc"):
            library.unlink()
        (program.parent / ("%d.loc" % GERMAN)).write_bytes(longer_library(self.desktop))
        return SettingsWindow(self.desktop, program=program, folder=program.parent)

    def choose(self, begins):
        self.settings.choose_language(begins)
        self.save()


class ThereAndBack(TwoLanguagesCase):
    def test_it_changes_under_the_open_password_window_and_changes_back(self):
        window = self.settings.passwords
        english = window.text(NEW_LABEL)
        self.choose("German")
        wait_until(lambda: window.title() == longer(TITLE), "the title in the other language")
        self.assertEqual(longer(english), window.text(NEW_LABEL))
        self.assertEqual(GERMAN, self.settings.stored("LangID"))
        self.settings.open()
        self.assertEqual(longer("%1 Settings").replace("%1", "Kestrelmoor"),
                         self.desktop.window(self.settings.window).title)
        self.assertEqual(longer("%1 before a password expires").replace("%1", longer("days")),
                         self.desktop.text(self.settings.control(DAYS_LABEL)))
        self.choose(" ")
        wait_until(lambda: window.title() == TITLE, "the title in English")
        self.assertEqual(english, window.text(NEW_LABEL))
        self.assertIsNone(self.settings.stored("LangID"))

    def test_chosen_and_taken_back_it_leaves_ok_enabled(self):
        self.settings.choose_language("German")
        wait_until(lambda: self.settings.enabled(OK), "a change")
        self.settings.choose_language(" ")
        self.assertTrue(self.settings.enabled(OK))


class Offer(SettingsCase):
    def open(self):
        return SettingsWindow(self.desktop, folder=PROGRAM.parent)

    def test_the_list_holds_each_language_once_and_the_automatic_choice_first(self):
        rows = self.desktop.rows(self.settings.control(LANGUAGES))
        self.assertEqual(" Automatic", rows[0].text)
        self.assertTrue(rows[0].selected)
        self.assertEqual(LANGUAGE_NAMES, [row.text.split(" ")[0] for row in rows[1:]])


class Looks(TwoLanguagesCase):
    dpi = look = None

    @classmethod
    def setUpClass(cls):
        cls.options = {**SettingsCase.options, "dpi": cls.dpi, "registry": CLASSIC if cls.look == "classic" else {}}
        super().setUpClass()

    def look_at(self, language):
        self.picture("settings-%s-%s-%d" % (language, self.look, self.dpi), self.settings.window)
        self.assert_reminder_row_fits()
        self.settings.open_entry()
        self.settings.type_name("OMEGA")
        self.picture("settings_entry-%s-%s-%d" % (language, self.look, self.dpi), self.settings.window)
        self.assert_entry_begins_behind_the_mark()

    def assert_reminder_row_fits(self):
        """The number stands behind the words of its mark, and the sentence behind the number."""
        mark, days, label = (self.settings.control(each).place for each in (REMIND, DAYS, DAYS_LABEL))
        self.assertLess(mark.right, days.left)
        self.assertLess(days.right, label.left)
        wide = [control.id for kind, control, _, _ in self.desktop.layout_faults(self.settings.window)
                if kind == "wide"]
        self.assertNotIn(REMIND, wide)

    def assert_entry_begins_behind_the_mark(self):
        """A click on the last column that the entry leaves free turns a mark, one on the next does not."""
        servers = self.settings.control(SERVERS)
        edge = self.desktop.client_area(self.settings.control(ENTRY)).left - self.desktop.client_area(servers).left
        self.assertEqual({96: 15, 144: 23, 192: 30}[self.dpi], edge)
        self.settings.leave_entry()
        self.desktop.press("Escape")
        self.settings.wait_closed()
        self.settings.open()
        before = self.settings.stored("Active")[0]
        for row, column in ((0, edge), (1, edge - 1)):
            self.desktop.click(self.settings.control(SERVERS), at=(column, self.settings.row_middle(row)))
        wait_until(lambda: self.settings.enabled(OK), "a mark turned")
        self.save()
        self.assertEqual(0b010, before ^ self.settings.stored("Active")[0])

    def check(self):
        self.look_at("english")
        self.settings.open()
        self.choose("German")
        wait_until(lambda: self.settings.passwords.title() == longer(TITLE), "the other language")
        self.settings.open()
        self.look_at("longer")


class Pictures(EveryLook, unittest.TestCase):
    def look_at(self, dpi, look):
        run_at(self, type("LooksAt", (Looks,), {"dpi": dpi, "look": look})("check"))


if __name__ == "__main__":
    unittest.main()
