"""What the window takes from the system while it is open: keyboard cues, colours, the visual style, icons."""

import time
import unittest

from desktop_case import DesktopCase, EveryLook, run_at
from held_network import HeldNetwork
from password_window import (
    CONFIRM, CONFIRM_LABEL, NEW, NEW_LABEL, OK, OLD, OLD_LABEL, SAME, STAND_INS, STATUS, TARGETS, USER,
    USER_LABEL, WAIT, PasswordWindow, targets,
)
from practice_network import OLD as OLD_PASSWORD
from practice_network import PracticeNetwork
from waiting import wait_until

NEW_PASSWORD = "New-Password-2"
BULLET = "\u2022"
CLASSIC = {"HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\ThemeManager": {"ThemeActive": "0"}}
# The system's own bits, the one for keyboard cues (0x20 of the first byte) cleared.
CUES_OFF = {"HKCU\\Control Panel\\Desktop": {"UserPreferencesMask": bytes([0x10, 0, 2, 0x80, 0x12, 0, 0, 0])}}
WM_SYSCOLORCHANGE, WM_SETTINGCHANGE, WM_THEMECHANGED = 0x0015, 0x001A, 0x031A
COLOR_WINDOW = 5
REDRAW_NOW = 0x0105  # the whole of it, background too, at once
GREEN, GREEN_TINTED = (192, 255, 192), (223, 255, 160)
WHITE, WHITE_TINTED = (255, 255, 255), (255, 255, 191)


class LookCase(DesktopCase):
    registry = {}

    @classmethod
    def setUpClass(cls):
        cls.options = {"dlls": STAND_INS, "registry": {**targets(["\\\\ARCHIVE", "PRACTICE"]), **cls.registry}}
        super().setUpClass()

    def setUp(self):
        self.desktop.guard_session()
        self.window = PasswordWindow(self.desktop, variables=PracticeNetwork(self.desktop).variables)
        self.desktop.wait_focus(self.window.window, OLD)

    def back_colour(self, identifier):
        """Of a control, seen on the screen near its right lower corner."""
        area = self.desktop.client_area(self.window.control(identifier))
        return self.desktop.pixels(area)[area.width - 3, area.height - 2]

    def cues_stay(self):
        """Whether they are shown, for longer than the news of the mouse needs to arrive."""
        until = time.monotonic() + 0.5
        while time.monotonic() < until:
            if self.window.text(NEW_LABEL) != "&New password:":
                return False
        return True

    def expect_cues_to_stay(self):
        self.assertTrue(self.cues_stay())

    def wait_colours(self, **expected):
        for name, colour in expected.items():
            identifier = {"old": OLD, "new": NEW, "rows": TARGETS}[name]
            wait_until(lambda: self.back_colour(identifier) == colour, "%s in colour %s" % (name, colour))

    def open_list(self):
        self.desktop.press("Alt+U")
        wait_until(lambda: self.window.control(TARGETS).visible, "the list shown")
        self.desktop.press("Tab")
        self.window.wait_edit(0)


class HiddenCues(LookCase):
    registry = CUES_OFF

    def labels(self):
        return [self.window.text(identifier) for identifier in (OLD_LABEL, NEW_LABEL, CONFIRM_LABEL)]

    def wait_cues(self, shown):
        mark = "&" if shown else ""
        words = [mark + "Old password:", mark + "New password:", mark + "Confirm password:"]
        wait_until(lambda: self.labels() == words, "cues %s" % ("shown" if shown else "hidden"))

    def show_by_key(self):
        """The news of a mouse that was moved before may come after a key and hide the cues again."""
        def shown():
            self.desktop.press("Shift")
            return self.cues_stay()
        wait_until(shown, "cues shown")
        self.wait_cues(True)

    def hide_by_mouse(self, control, at):
        """The next move counts from there. One that the program hears of while the key is held, which may be
        long after both were sent, hides nothing and leaves the point where it was: then it is made once more."""
        def hidden():
            self.desktop.move_mouse(self.window.control(OK))
            self.show_by_key()
            self.desktop.move_mouse(control, at)
            return not self.cues_stay()
        wait_until(hidden, "cues hidden")
        self.wait_cues(False)

    def test_a_key_shows_the_cues_and_a_move_of_32_pixels_hides_them(self):
        self.wait_cues(False)
        self.picture("cues-hidden-96", self.window.window)
        user = self.window.control(USER)
        self.hide_by_mouse(user, (5, 5))
        self.show_by_key()
        self.picture("cues-shown-96", self.window.window)
        self.desktop.move_mouse(user, (36, 5))
        self.expect_cues_to_stay()
        self.desktop.move_mouse(user, (37, 5))
        self.wait_cues(False)

    def test_the_label_of_the_list_follows_the_cues(self):
        self.window.click(SAME)
        wait_until(lambda: self.window.control(TARGETS).visible, "the list shown")
        hidden = self.window.text(OLD_LABEL)
        self.assertNotIn("&", hidden)
        self.desktop.press("Shift")
        wait_until(lambda: "&" in self.window.text(OLD_LABEL), "its cue shown")
        self.assertEqual(self.window.text(OLD_LABEL).replace("&", ""), hidden)

    def test_a_key_in_the_middle_of_a_run_blanks_the_words_of_the_wait(self):
        with HeldNetwork() as network:
            self.window = PasswordWindow(self.desktop, variables=network.variables)
            wait = self.window.control(WAIT)
            self.window.fill(OLD_PASSWORD, NEW_PASSWORD)
            self.desktop.move_mouse(self.window.control(USER))
            self.window.click(OK)
            network.wait_change(1)
            self.desktop.press("Shift")
            network.let_go(86)
            network.let_go(86)
            self.window.wait_results()
            self.assertEqual(self.desktop.text(wait), "")


class ShownCues(LookCase):
    def test_the_mouse_hides_nothing_where_the_system_shows_cues_always(self):
        user = self.window.control(USER)
        for x in (5, 100):
            self.desktop.move_mouse(user, (x, 5))
        self.expect_cues_to_stay()


class Themed(LookCase):
    def test_the_box_with_the_focus_is_tinted(self):
        self.wait_colours(old=WHITE_TINTED, new=WHITE)
        self.desktop.press("Tab")
        self.wait_colours(new=WHITE_TINTED, old=WHITE)

    def test_masks_are_bullets(self):
        boxes = [self.window.control(box).password for box in (OLD, NEW, CONFIRM)]
        self.assertEqual(boxes, [BULLET] * 3)
        self.assertEqual(self.window.masks(), [BULLET * 8] * 3)

    def test_a_program_that_loses_its_style_shows_stars_with_the_next_change_of_colours(self):
        self.open_list()
        self.window.type_old("abc")
        self.desktop.press("Down")
        self.window.wait_edit(1)
        self.desktop.call_in(self.window.window, "uxtheme.dll", "SetThemeAppProperties", 0)
        self.desktop.send(self.window.window, WM_THEMECHANGED)
        self.assertEqual(self.window.masks()[0], BULLET * 3)
        self.desktop.send(self.window.window, WM_SYSCOLORCHANGE)
        self.assertEqual(self.window.masks(), ["***", "*" * 8, "*" * 8])
        self.assertEqual([self.window.control(box).password for box in (OLD, NEW, CONFIRM)], ["*"] * 3)
        self.window.wait_edit(1)

    def test_both_icons_are_replaced_when_their_measures_change_and_the_old_ones_freed(self):
        window, process = self.window.window, self.window.process
        before = [self.desktop.window_icon(window, size) for size in (0, 1)]
        self.assertEqual([icon[1:] for icon in before], [(16, 16), (32, 32)])
        objects = self.desktop.handles(process)["gdi"]
        for _ in range(20):
            self.desktop.send(window, WM_SETTINGCHANGE)
        after = [self.desktop.window_icon(window, size) for size in (0, 1)]
        self.assertEqual([icon[1:] for icon in after], [(16, 16), (32, 32)])
        self.assertNotEqual([icon[0] for icon in after], [icon[0] for icon in before])
        self.assertLess(self.desktop.handles(process)["gdi"] - objects, 4)

    def test_input_methods_are_off_in_the_boxes_for_passwords(self):
        def context(identifier):
            handle = self.window.control(identifier).handle
            return self.desktop.call_in(self.window.window, "imm32.dll", "ImmGetContext", handle)
        self.assertEqual([context(box) for box in (OLD, NEW, CONFIRM)], [0, 0, 0])
        self.assertNotEqual(context(STATUS), 0)

    def test_the_pointer_is_an_hourglass_while_a_message_box_is_up(self):
        self.window.fill(OLD_PASSWORD, NEW_PASSWORD, confirm="else")
        self.window.click(OK)
        box = self.desktop.box(pid=self.window.process.pid)
        self.desktop.move_mouse(self.window.control(OK))
        self.assertEqual(self.desktop.pointer(self.window.window), "wait")
        box.press("Enter")
        self.desktop.move_mouse(self.window.control(USER_LABEL))
        wait_until(lambda: self.desktop.pointer(self.window.window) == "arrow", "the arrow again")


class Classic(LookCase):
    registry = CLASSIC

    def test_masks_are_stars(self):
        boxes = [self.window.control(box).password for box in (OLD, NEW, CONFIRM)]
        self.assertEqual(boxes, ["*"] * 3)
        self.assertEqual(self.window.masks(), ["*" * 8] * 3)

    def test_boxes_and_list_take_a_new_colour_of_the_system_at_once(self):
        self.wait_colours(old=WHITE_TINTED, new=WHITE)
        self.desktop.set_colour(self.window.window, COLOR_WINDOW, 0xC0FFC0)
        self.wait_colours(old=GREEN_TINTED, new=GREEN)
        self.open_list()
        self.wait_colours(old=GREEN_TINTED, rows=GREEN)
        self.picture("colour-changed-96", self.window.window)


class Pictures(EveryLook, unittest.TestCase):
    """The window in both modes and all layouts, themed and classic; nothing is clipped and nothing overlaps."""

    def look_at(self, dpi, look):
        class AtResolution(DesktopCase):
            options = {
                "dlls": STAND_INS, "dpi": dpi,
                "registry": {**targets(["\\\\ARCHIVE", "PRACTICE"]), **(CLASSIC if look == "classic" else {})},
            }

            def shot(self, stage, window=None):
                self.picture("%s-%s-%d" % (stage, look, dpi), window)

            def assert_layout(self, window, allow=()):
                self.assertEqual(self.desktop.layout_faults(window.window, allow), [])

            def assert_fresh(self, control):
                """Nothing of an earlier state has stayed on the screen."""
                area = self.desktop.client_area(control)
                before = self.desktop.pixels(area)
                self.desktop.call_in(control, "user32.dll", "RedrawWindow", control.handle, 0, 0, REDRAW_NOW)
                self.assertEqual(sum(before[place] != colour for place, colour in self.desktop.pixels(area).items()), 0)

            def runTest(self):
                self.desktop.guard_session()
                with HeldNetwork() as network:
                    self.single(network)
                    self.list(network)

            def single(self, network):
                window = PasswordWindow(self.desktop, variables=network.variables)
                window.fill(OLD_PASSWORD, NEW_PASSWORD, confirm="else")
                self.shot("single", window.window)
                self.assert_layout(window)
                window.click(OK)
                box = self.desktop.box(pid=window.process.pid)
                self.shot("single-box")
                box.answer("OK")
                self.desktop.wait_focus(window.window, NEW)
                window.type_new(NEW_PASSWORD)
                window.click(OK)
                network.wait_change(1)
                self.shot("single-during", window.window)
                network.let_go(86)
                network.let_go(86)
                window.wait_results()
                self.shot("single-after", window.window)
                self.assert_layout(window)
                window.close()

            def list(self, network):
                network.changes.clear()
                window = PasswordWindow(self.desktop, variables=network.variables)
                self.desktop.wait_focus(window.window, OLD)
                self.desktop.press("Alt+U")
                wait_until(lambda: window.control(TARGETS).visible, "the list shown")
                self.desktop.press("Tab")
                window.wait_edit(0)
                window.type_old("abcd")
                self.desktop.press("Down")
                window.wait_edit(1)
                window.type_old("abcdef")
                self.shot("list", window.window)
                self.assert_layout(window, [(OLD, TARGETS)])
                self.assert_fresh(window.control(OLD_LABEL))
                window.type_new(NEW_PASSWORD)
                network.let_go(0)
                window.click(OK)
                network.wait_change(2)
                self.shot("list-during", window.window)
                network.let_go(86)
                window.wait_results()
                self.shot("list-after", window.window)
                self.assert_layout(window)

        run_at(self, AtResolution())


if __name__ == "__main__":
    unittest.main()
