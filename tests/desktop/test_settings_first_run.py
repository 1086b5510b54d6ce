"""From nothing to the first change: the program set up and used with the keyboard alone."""

import unittest

from password_window import CONFIRM, NEW, OLD, SETTINGS_BUTTON
from practice_network import OLD as OLD_PASSWORD
from settings_case import ARCHIVE, RUN_VALUE, SettingsCase
from settings_window import ENTRY, ENTRY_BOX, PERMANENT, SERVERS, SettingsWindow
from waiting import wait_until

NEW_PASSWORD = "New-Password-2"
CHANGED = "%s: The password has been changed."


class FirstRun(SettingsCase):
    names = []

    def open(self):
        return SettingsWindow(self.desktop, by_keys=True)

    def add_by_keys(self, name):
        self.desktop.press("Alt+A")
        wait_until(lambda: self.settings.control(ENTRY).visible, "the entry")
        self.settings.wait_focus(self.settings.entry_part(ENTRY_BOX))
        self.settings.type_name(name)
        self.settings.leave_entry()

    def set_up(self):
        self.add_by_keys(ARCHIVE)
        self.add_by_keys("NOBODY")
        self.add_by_keys("PRACTICE")
        self.settings.wait_rows(ARCHIVE, "NOBODY", "PRACTICE")
        self.desktop.press("Alt+S")
        self.settings.wait_focus(self.settings.control(SERVERS))
        self.desktop.press("Home")
        self.desktop.press("Down")
        self.settings.wait_current(1)
        self.desktop.press("Space")
        self.assertTrue(self.settings.checked(PERMANENT))
        self.desktop.press("Enter")
        self.settings.wait_closed()

    def change(self):
        window = self.settings.passwords
        # The button that opened the settings has the focus again.
        self.desktop.wait_focus(window.window, SETTINGS_BUTTON)
        self.desktop.press("Alt+O")
        for words, box in ((OLD_PASSWORD, OLD), (NEW_PASSWORD, NEW), (NEW_PASSWORD, CONFIRM)):
            self.desktop.wait_focus(window.window, box)
            self.desktop.type(words)
            window.wait_length(box, len(words))
            self.desktop.press("Enter" if box == CONFIRM else "Tab")
        return window.wait_results()

    def test_by_the_keyboard_alone(self):
        self.assertEqual({}, self.all_stored())
        self.set_up()
        self.assert_stored(ARCHIVE, "NOBODY", "PRACTICE")
        self.assertEqual(b"\x05", self.settings.stored("Active"))
        self.assertEqual({"Servers", "Active"}, set(self.all_stored()) - {RUN_VALUE})
        paragraphs = self.change()
        self.assertEqual([CHANGED % name for name in (" This computer", ARCHIVE, "PRACTICE")], paragraphs[:3])
        passwords = self.settings.network.passwords()
        self.assertEqual({NEW_PASSWORD}, {passwords[name] for name in ("WORKBENCH", "ARCHIVE", "PRACTICE")})


if __name__ == "__main__":
    unittest.main()
