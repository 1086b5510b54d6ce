"""What the settings window leaves in the registry, byte for byte, and what it leaves alone."""

import struct
import unittest

from password_window import PROGRAM
from settings_case import ARCHIVE, RUN_VALUE, SERVER, SettingsCase
from settings_window import CANCEL, DAYS, LANGUAGES, LOCAL, OK, PERMANENT, REMIND, SERVERS
from waiting import wait_until

REG_SZ, REG_BINARY, REG_DWORD, REG_MULTI_SZ = 1, 3, 4, 7


def number(value):
    return REG_DWORD, struct.pack("<I", value)


def names(*texts):
    return REG_MULTI_SZ, "".join(text + "\0" for text in [*texts, ""]).encode("utf-16-le")


class Stored(SettingsCase):
    def run_path(self):
        return REG_SZ, (self.desktop.windows_path(PROGRAM) + "\0").encode("utf-16-le")

    def test_all_that_differs_from_the_defaults_and_nothing_else(self):
        self.assertTrue(self.settings.checked(PERMANENT))
        self.settings.set_checked(LOCAL, False)
        self.settings.set_checked(REMIND, True)
        self.settings.set_days("30")
        self.settings.choose_language("English")
        self.settings.click_mark(1)
        self.save()
        self.assertEqual({
            "Servers": names(ARCHIVE, SERVER, "PRACTICE"),
            "Active": (REG_BINARY, b"\x05"),
            "ReminderTime": number(2592000),
            "Options": number(0),
            "LangID": number(1033),
            RUN_VALUE: self.run_path(),
        }, self.all_stored())

    def test_defaults_take_away_what_was_stored(self):
        self.settings.click(CANCEL)
        self.settings.wait_closed()
        self.settings.passwords.close()
        self.store({"Options": 0, "ReminderTime": 86400, "LangID": 1033,
                    "Servers": names("PRACTICE"), "Active": b"\x01"})
        self.settings = self.open()
        self.assertFalse(self.settings.checked(LOCAL))
        self.assertEqual("1", self.desktop.text(self.settings.control(DAYS)))
        self.settings.set_checked(LOCAL, True)
        self.settings.set_days("14")
        self.settings.choose_language(" ")
        self.save()
        self.assertEqual({"Servers": names("PRACTICE"), "Active": (REG_BINARY, b"\x01")}, self.all_stored())

    def test_the_reminder_switched_off_goes_from_the_run_key(self):
        self.settings.set_checked(REMIND, True)
        self.save()
        self.assertEqual(self.run_path(), self.all_stored()[RUN_VALUE])
        self.settings.open()
        self.settings.set_checked(REMIND, False)
        self.save()
        self.assertNotIn(RUN_VALUE, self.all_stored())

    def test_ninety_nine_days_are_taken_and_none_too(self):
        self.settings.set_days("99")
        self.desktop.press("Tab")
        wait_until(lambda: self.desktop.focus(self.settings.window).id != DAYS, "the focus gone on")
        self.save()
        self.assertEqual(number(8553600), self.all_stored()["ReminderTime"])
        self.settings.open()
        self.settings.set_days("")
        self.save()
        self.assertEqual(number(0), self.all_stored()["ReminderTime"])


class NotStored(SettingsCase):
    def change_everything(self):
        self.settings.set_checked(LOCAL, False)
        self.settings.set_checked(REMIND, not self.settings.checked(REMIND))
        self.settings.set_days("30")
        self.settings.add("OMEGA")
        self.settings.click_mark(0)

    def test_without_the_permanent_mark_the_changes_hold_for_this_run_alone(self):
        before = self.all_stored()
        self.change_everything()
        self.settings.set_checked(PERMANENT, False)
        self.save()
        self.assertEqual(before, self.all_stored())
        self.settings.open()
        self.settings.wait_rows(ARCHIVE, SERVER, "OMEGA", "PRACTICE")
        self.assertEqual("30", self.desktop.text(self.settings.control(DAYS)))
        self.assertFalse(self.settings.checked(LOCAL))
        self.settings.click(CANCEL)
        self.settings.wait_closed()
        self.settings.passwords.close()
        self.settings = self.open()
        self.settings.wait_rows(ARCHIVE, SERVER, "PRACTICE")
        self.assertTrue(self.settings.checked(LOCAL))

    def test_cancel_and_escape_leave_every_byte(self):
        before = self.all_stored()
        for leave in (lambda: self.settings.click(CANCEL), lambda: self.desktop.press("Escape")):
            self.change_everything()
            self.assertTrue(self.settings.checked(PERMANENT))
            leave()
            self.settings.wait_closed()
            self.assertEqual(before, self.all_stored())
            self.settings.open()
            self.settings.wait_rows(ARCHIVE, SERVER, "PRACTICE")
            self.assertTrue(self.settings.checked(LOCAL))


class Keys(SettingsCase):
    def test_the_keys_of_the_upper_row_change_nothing(self):
        for key in ("F1", "F2", "F3", "F5", "F6", "F8", "F9", "F11", "F12"):
            self.desktop.press(key)
        self.desktop.press("Tab")
        self.desktop.wait_focus(self.settings.window, SERVERS)
        self.assertFalse(self.settings.enabled(OK))

    def test_enter_does_nothing_before_the_first_change(self):
        self.desktop.press("Enter")
        self.desktop.press("Alt+T")
        self.settings.wait_checked(LOCAL, False)
        self.desktop.press("Enter")
        self.settings.wait_closed()
        self.assertEqual(number(0), self.all_stored()["Options"])

    def test_each_marked_letter_goes_where_it_stands(self):
        for chord, identifier in (("Alt+S", SERVERS), ("Alt+L", LANGUAGES)):
            self.desktop.press(chord)
            self.desktop.wait_focus(self.settings.window, identifier)
        for chord, identifier in (("Alt+T", LOCAL), ("Alt+M", REMIND), ("Alt+P", PERMANENT)):
            before = self.settings.checked(identifier)
            self.desktop.press(chord)
            self.settings.wait_checked(identifier, not before)
            self.desktop.wait_focus(self.settings.window, identifier)

    def test_alt_and_f4_closes_as_cancel_does(self):
        before = self.all_stored()
        self.settings.set_checked(LOCAL, False)
        self.desktop.press("Alt+F4")
        self.settings.wait_closed()
        self.assertEqual(before, self.all_stored())


if __name__ == "__main__":
    unittest.main()
