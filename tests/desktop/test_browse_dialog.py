"""The dialog to choose a computer, opened from the entry of the settings window."""

import unittest

from browse_dialog import BrowseDialog
from desktop_case import DesktopCase
from password_window import SETTINGS_BUTTON, STAND_INS, PasswordWindow, targets
from practice_network import PracticeNetwork
from waiting import wait_until

ADD = 104
PROMPT = "Select a computer or domain on which your password is to be changed."


class Browse(DesktopCase):
    options = {"dlls": STAND_INS, "registry": targets(["\\\\ARCHIVE"])}

    def open_dialog(self):
        """From the password window by the settings and a new entry to the dialog."""
        self.passwords = PasswordWindow(self.desktop, variables=PracticeNetwork(self.desktop).variables)
        self.passwords.click(SETTINGS_BUTTON)
        self.settings = self.desktop.wait_window(class_name="frmSettings", pid=self.passwords.process.pid)
        self.desktop.click(self.desktop.child(self.settings, ADD))
        browse = wait_until(self.browse_button, "the button of the entry")
        self.desktop.click(browse)
        return BrowseDialog.wait(self.desktop, self.passwords.process.pid)

    def browse_button(self):
        return next((control for control in self.desktop.children(self.settings)
                     if control.text == "..." and control.class_name == "Button" and control.visible), None)

    def test_it_stands_over_the_settings_with_the_prompt_and_ok_for_computers_alone(self):
        dialog = self.open_dialog()
        dialog.select_root()
        self.picture("browse_dialog")
        self.assertIn(PROMPT, dialog.texts())
        self.assertFalse(dialog.ok_enabled())
        self.assertFalse(self.desktop.window(self.settings).enabled)
        self.assertEqual(self.settings.handle, self.desktop.window(dialog.window).owner)

    def test_cancelled_it_leaves_the_entry_as_it_was_and_the_settings_in_front(self):
        dialog = self.open_dialog()
        dialog.cancel()
        wait_until(lambda: self.desktop.window(self.settings).enabled, "the settings to take input again")
        self.assertEqual(self.settings.handle, self.desktop.input_state(self.settings).active)
        entry = next(control for control in self.desktop.children(self.settings)
                     if control.class_name == "Edit" and control.parent == self.browse_button().parent)
        self.assertEqual("", self.desktop.text(entry))

    def test_no_window_and_no_drawing_object_is_left_behind(self):
        dialog = self.open_dialog()
        dialog.cancel()
        self.desktop.click(self.browse_button())
        BrowseDialog.wait(self.desktop, self.passwords.process.pid).cancel()
        before = self.desktop.handles(self.passwords.process)
        for _ in range(3):
            self.desktop.click(self.browse_button())
            BrowseDialog.wait(self.desktop, self.passwords.process.pid).cancel()
        after = self.desktop.handles(self.passwords.process)
        self.assertEqual((before["windows"], before["gdi"]), (after["windows"], after["gdi"]))


if __name__ == "__main__":
    unittest.main()
