"""The presets for administrators, imported as they stand: the program understands every value."""

import unittest

from desktop_case import DesktopCase
from password_window import STAND_INS
from settings_window import DAYS, REMIND, SettingsWindow
from wine_desktop import HERE

POLICY = HERE.parent.parent / "installer" / "policy"


class Presets(DesktopCase):
    options = {"dlls": STAND_INS, "folders": {"policy": POLICY}}

    def test_targets_reminder_and_watch_stand_in_the_windows_after_the_import(self):
        file = self.desktop.windows_path(POLICY / "kestrelmoor.reg")
        self.assertEqual(self.desktop.start("C:\\windows\\regedit.exe", ["/S", file]).wait_exit(), 0)
        settings = SettingsWindow(self.desktop)
        self.assertEqual(settings.passwords.rows(), [" This computer", "\\\\FILESERVER", "CORP"])
        self.assertEqual(settings.rows(), ["\\\\FILESERVER", "CORP"])
        self.assertEqual(self.desktop.text(settings.control(DAYS)), "21")
        self.assertTrue(settings.checked(REMIND))


if __name__ == "__main__":
    unittest.main()
