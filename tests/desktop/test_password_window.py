"""The password window on a real desktop: its looks, keys and mouse, and a run on the practice network."""

import unittest

from desktop_case import DesktopCase, run_at
from password_window import (
    CANCEL, CONFIRM, NEW, NEW_LABEL, OK, OLD, OLD_LABEL, SAME, SETTINGS_BUTTON, STAND_INS, STATUS, TARGETS, TITLE,
    TITLE_AFTER, USER, USER_LABEL, WAIT, PasswordWindow, targets,
)
from practice_network import OLD as OLD_PASSWORD
from practice_network import PracticeNetwork
from waiting import wait_until

NEW_PASSWORD = "New-Password-2"
LOCAL, SERVER, DOMAIN = " This computer", "\\\\ARCHIVE", "PRACTICE"
WRONG_OLD = "Error 86: Invalid password."  # the words of this system
CHANGED = "%s: The password has been changed."
NOT_CHANGED = "%s: The password has not been changed. %s"

# Left, top, width and height in pixels at 96 dots per inch: the told twips by 15.
PLACES_AT_ENTRY = {
    USER_LABEL: (8, 11), USER: (144, 8, 193, 19), SAME: (8, 40, 329, 17), OLD_LABEL: (8, 67),
    OLD: (144, 64, 193, 19), NEW_LABEL: (8, 99), NEW: (144, 96, 193, 19), CONFIRM: (144, 120, 193, 19),
    SETTINGS_BUTTON: (8, 152, 93, 25), OK: (144, 152, 93, 25), CANCEL: (244, 152, 93, 25),
}
PLACES_AFTER_RUN = {USER: (144, 8, 193, 19), STATUS: (8, 40, 329, 137), OK: (144, 190, 93, 25), CANCEL: (244, 190, 93, 25)}


class PasswordWindowCase(DesktopCase):
    options = {"dlls": STAND_INS, "registry": targets([SERVER, DOMAIN])}

    def setUp(self):
        self.desktop.guard_session()

    def open(self, *arguments, change=None):
        self.network = PracticeNetwork(self.desktop, change)
        return PasswordWindow(self.desktop, arguments, variables=self.network.variables)

    def assert_places(self, window, places):
        for identifier, place in places.items():
            found = window.control(identifier).place
            told = (found.left, found.top, found.width, found.height)[: len(place)]
            with self.subTest(control=identifier):
                self.assertEqual(told, place)

    def assert_visible(self, window, *identifiers):
        shown = {control.id for control in self.desktop.children(window.window) if control.visible}
        self.assertEqual(shown, set(identifiers))

    def assert_box(self, window, *texts):
        box = self.desktop.box(pid=window.process.pid)
        self.assertEqual((box.title, box.buttons, box.icon), ("Kestrelmoor", ["OK"], "warning"))
        for text in texts:
            self.assertIn(text, box.text)
        return box


class Looks(PasswordWindowCase):
    def test_the_window_opens_as_told_with_the_focus_in_the_old_password(self):
        window = self.open()
        self.picture("entry-96", window.window)
        self.assertEqual(window.title(), TITLE)
        area = self.desktop.client_area(window.window)
        self.assertEqual((area.width, area.height), (345, 185))
        self.assert_places(window, PLACES_AT_ENTRY)
        self.assert_visible(window, *PLACES_AT_ENTRY, 109)
        self.assertEqual(self.desktop.layout_faults(window.window), [])
        self.desktop.wait_focus(window.window, OLD)
        self.assertEqual(window.text(USER), "user")
        self.assertFalse(window.enabled(USER))
        self.assertFalse(window.enabled(OK))
        self.assertTrue(window.enabled(SAME))
        self.assertEqual(window.rows(), [LOCAL, SERVER, DOMAIN])

    def test_the_third_layout_keeps_the_gap_over_the_buttons(self):
        window = self.open()
        window.change(OLD_PASSWORD, NEW_PASSWORD)
        self.assert_places(window, PLACES_AFTER_RUN)
        self.assert_visible(window, USER_LABEL, USER, STATUS, OK, CANCEL)
        area = self.desktop.client_area(window.window)
        self.assertEqual((area.width, area.height), (345, 223))
        self.assertEqual(self.desktop.layout_faults(window.window), [])


class Run(PasswordWindowCase):
    def test_by_mouse_one_run_changes_all_targets_and_the_close_logs_off(self):
        window = self.open()
        paragraphs = window.change(OLD_PASSWORD, NEW_PASSWORD)
        self.picture("log-off-pending", window.window)
        self.assertEqual(paragraphs[:3], [CHANGED % LOCAL, CHANGED % SERVER, CHANGED % DOMAIN])
        self.assertEqual(set(self.network.passwords().values()), {NEW_PASSWORD})
        self.assertEqual(window.text(CANCEL), "&Log Off")
        self.assertFalse(window.enabled(OK))
        self.assertEqual(window.close(), 0)
        wait_until(lambda: self.desktop.session_endings() == 1, "the end of the session asked for")

    def test_by_keyboard_alone_one_run_changes_all_targets(self):
        window = self.open()
        self.desktop.wait_focus(window.window, OLD)
        for words, box in ((OLD_PASSWORD, OLD), (NEW_PASSWORD, NEW), (NEW_PASSWORD, CONFIRM)):
            self.desktop.wait_focus(window.window, box)
            self.desktop.type(words)
            window.wait_length(box, len(words))
            self.desktop.press("Enter" if box == CONFIRM else "Tab")
        self.assertEqual(len(window.wait_results()), 4)
        self.assertEqual(set(self.network.passwords().values()), {NEW_PASSWORD})

    def test_any_character_of_a_password_goes_through_unchanged(self):
        words = "Ω漢ж \"'%&é\N{GRINNING FACE}-2B"
        window = self.open()
        window.change(OLD_PASSWORD, words)
        self.assertEqual(set(self.network.passwords().values()), {words})

    def test_a_failure_is_one_paragraph_and_back_opens_a_new_window(self):
        def local_password_differs(world):
            for computer in world["network"]["computers"]:
                if computer["name"] == "WORKBENCH":
                    computer["accounts"][0]["password"] = "Something-Else-1"

        window = self.open(change=local_password_differs)
        paragraphs = window.change(OLD_PASSWORD, NEW_PASSWORD)
        self.picture("failed", window.window)
        self.assertEqual(
            paragraphs,
            [NOT_CHANGED % (LOCAL, WRONG_OLD), CHANGED % SERVER, CHANGED % DOMAIN],
        )
        self.desktop.wait_focus(window.window, OK)
        self.assertEqual(window.text(OK), "&Back")
        self.desktop.press("Enter")
        self.desktop.wait_no_window(title=TITLE_AFTER)
        again = PasswordWindow(self.desktop, process=window.process)
        self.assertEqual(again.title(), TITLE)
        self.assertEqual(again.text(NEW), "")
        self.assertEqual(again.close(), 0)
        self.assertEqual(self.desktop.session_endings(), 0)

    def test_equal_passwords_are_told_and_nothing_is_changed(self):
        window = self.open()
        paragraphs = window.change(OLD_PASSWORD, OLD_PASSWORD)
        self.picture("equal", window.window)
        same = "The new password is the same as the old one. Please choose a different one."
        self.assertEqual(paragraphs, [NOT_CHANGED % (name, same) for name in (LOCAL, SERVER, DOMAIN)])
        self.assertFalse(window.enabled(OK))
        self.assertTrue(window.enabled(CANCEL))
        self.assertEqual(window.text(CANCEL), "OK")

    def test_the_log_holds_every_call_and_no_password(self):
        log = self.desktop.work / "run.log"
        window = self.open("/d", self.desktop.windows_path(log))
        window.change(OLD_PASSWORD, NEW_PASSWORD)
        window.close()
        lines = log.read_text(encoding="utf-8").splitlines()
        self.assertIn('Information: -> NetUserChangePassword "\\\\WORKBENCH"', lines)
        self.assertIn('Information: -> NetUserChangePassword "\\\\DC1"', lines)
        self.assertEqual(lines.count("Information: Password changed"), 3)
        for password in (OLD_PASSWORD, NEW_PASSWORD):
            self.assertNotIn(password, log.read_text(encoding="utf-8"))


class Checks(PasswordWindowCase):
    def test_ok_waits_for_a_password(self):
        window = self.open()
        self.desktop.wait_focus(window.window, OLD)
        self.desktop.type("a")
        wait_until(lambda: window.enabled(OK), "OK enabled by the old password")
        self.desktop.press("Backspace")
        wait_until(lambda: not window.enabled(OK), "OK disabled again")
        window.click(CONFIRM)
        self.desktop.wait_focus(window.window, CONFIRM)
        self.desktop.type("a")
        window.wait_length(CONFIRM, 1)
        self.assertFalse(window.enabled(OK))

    def test_a_confirmation_that_differs_is_told_and_both_boxes_are_emptied(self):
        window = self.open()
        window.fill(OLD_PASSWORD, NEW_PASSWORD, confirm=NEW_PASSWORD.lower())
        window.click(OK)
        box = self.assert_box(window, "not the same")
        self.picture("confirmation-differs")
        for identifier in (OK, CANCEL, OLD, NEW, CONFIRM, SAME, SETTINGS_BUTTON):
            self.assertFalse(window.enabled(identifier))
        box.answer("OK")
        self.desktop.wait_focus(window.window, NEW)
        self.assertEqual([window.length(box) for box in (OLD, NEW, CONFIRM)], [len(OLD_PASSWORD), 0, 0])
        self.assertTrue(window.enabled(OK))

    def test_escape_and_the_close_box_end_the_program_and_change_nothing(self):
        for leave in (lambda w: self.desktop.press("Escape"), lambda w: self.desktop.close_window(w.window),
                      lambda w: self.desktop.press("Alt+F4")):
            window = self.open()
            window.fill(OLD_PASSWORD, NEW_PASSWORD)
            leave(window)
            self.assertEqual(window.process.wait_exit(), 0)
            self.assertEqual(set(self.network.passwords().values()), {OLD_PASSWORD})
        self.assertEqual(self.desktop.session_endings(), 0)


class Resolutions(unittest.TestCase):
    """The window at the display's other resolutions, in its first and its third layout."""

    def look_at(self, dpi, client_size):
        class AtResolution(PasswordWindowCase):
            options = {**PasswordWindowCase.options, "dpi": dpi}

            def runTest(self):
                window = self.open()
                self.picture("entry-%d" % dpi, window.window)
                area = self.desktop.client_area(window.window)
                self.assertEqual((area.width, area.height), client_size)
                self.assertEqual(self.desktop.layout_faults(window.window), [])
                window.change(OLD_PASSWORD, NEW_PASSWORD)
                self.picture("after-run-%d" % dpi, window.window)
                self.assertEqual(self.desktop.layout_faults(window.window), [])

        run_at(self, AtResolution())

    def test_120_dots_per_inch(self):
        self.look_at(120, (431, 231))

    def test_144_dots_per_inch(self):
        self.look_at(144, (518, 278))

    def test_192_dots_per_inch(self):
        self.look_at(192, (690, 370))


if __name__ == "__main__":
    unittest.main()
