"""The password window with one old password for each target: the list and the box that lies over its rows."""

import time
import unittest

import practice_directory
from desktop_case import DesktopCase, run_at
from held_network import HeldNetwork
from password_window import (
    CANCEL, CONFIRM, NEW, OK, OLD, SAME, STAND_INS, STATUS, TARGETS, TITLE, TITLE_AFTER, TITLE_DURING, USER,
    USER_LABEL, WAIT,
    PasswordWindow, targets,
)
from practice_network import OLD as OLD_PASSWORD
from practice_network import PracticeNetwork
from waiting import wait_until

NEW_PASSWORD = "New-Password-2"
LOCAL, SERVER, DOMAIN = " This computer", "\\\\ARCHIVE", "PRACTICE"
WRONG_OLD = "Error 86: Invalid password."  # the words of this system
CHANGED = "%s: The password has been changed."
NOT_CHANGED = "%s: The password has not been changed. %s"
SAME_WORDS = "The new password is the same as the old one. Please choose a different one."
BULLET = "\u2022"
LB_GETCOUNT, LB_SETITEMHEIGHT = 0x018B, 0x01A0
ERROR_INVALID_PASSWORD = 86
WM_SYSCOLORCHANGE = 0x0015
NINE = [SERVER, DOMAIN, *("\\\\SERVER%d" % number for number in range(1, 7))]


class ListCase(DesktopCase):
    options = {"dlls": STAND_INS, "registry": targets([SERVER, DOMAIN])}

    def setUp(self):
        self.desktop.guard_session()
        self._endings = self.desktop.session_endings()

    def endings(self):
        """How often this test has asked for the end of the session."""
        return self.desktop.session_endings() - self._endings

    def open(self, change=None):
        self.network = PracticeNetwork(self.desktop, change)
        return PasswordWindow(self.desktop, variables=self.network.variables)

    def open_list(self, change=None):
        """By keys; the box is over the first row."""
        window = self.open(change)
        self.enter_list(window)
        return window

    def enter_list(self, window):
        self.desktop.wait_focus(window.window, OLD)
        self.desktop.press("Alt+U")
        wait_until(lambda: window.control(TARGETS).visible, "the list shown")
        self.desktop.wait_focus(window.window, SAME)
        self.desktop.press("Tab")
        window.wait_edit(0)

    def go(self, window, key, row):
        self.desktop.press(key)
        window.wait_edit(row)


def passwords_differ(world):
    """The user's password at each place is the common one with the place's name behind."""
    for place in world["network"]["computers"] + world["network"]["domains"]:
        place["accounts"][0]["password"] = OLD_PASSWORD + place["name"]


class ByKeyboard(ListCase):
    options = {"dlls": STAND_INS, "registry": targets(NINE)}

    def test_the_box_follows_up_down_and_the_page_keys(self):
        window = self.open_list()
        for key, row in (("Down", 1), ("Down", 2), ("Up", 1), ("Up", 0), ("Up", 0)):
            self.go(window, key, row)
        self.desktop.press("PageDown")
        wait_until(lambda: self.desktop.list_state(window.control(TARGETS))[0] >= 2, "a page further")
        row = self.desktop.list_state(window.control(TARGETS))[0]
        window.wait_edit(row)
        self.go(window, "PageUp", 0)

    def test_each_row_keeps_its_own_and_shows_a_mask_of_its_length(self):
        window = self.open_list()
        self.assertEqual(window.masks(), [BULLET * 8] * 9)
        window.type_old("abc")
        self.go(window, "Down", 1)
        self.assertEqual(window.length(OLD), 0)
        window.type_old("0123456789ab")
        self.go(window, "Down", 2)
        self.assertEqual(window.masks()[:3], [BULLET * 3, BULLET * 12, BULLET * 8])
        self.go(window, "Up", 1)
        self.assertEqual(window.length(OLD), 12)
        # The box opens with all its text selected: what is typed takes its place.
        window.type_old("x")
        self.go(window, "Up", 0)
        self.assertEqual(window.masks()[:2], [BULLET * 3, BULLET])
        self.assertEqual(window.rows()[0], LOCAL)

    def test_an_emptied_box_removes_the_password_and_leaves_eight_mask_characters(self):
        window = self.open_list()
        window.type_old("abc")
        wait_until(lambda: window.enabled(OK), "OK enabled by an old password")
        self.go(window, "Down", 1)
        self.assertTrue(window.enabled(OK))
        self.go(window, "Up", 0)
        self.desktop.press("Delete")
        window.wait_length(OLD, 0)
        wait_until(lambda: not window.enabled(OK), "OK disabled without any password")
        self.go(window, "Down", 1)
        self.assertEqual(window.masks()[0], BULLET * 8)

    def test_tab_and_shift_tab_pass_over_the_list_while_the_box_is_open(self):
        window = self.open_list()
        self.go(window, "Down", 1)
        self.desktop.press("Tab")
        self.desktop.wait_focus(window.window, NEW)
        self.assertIsNone(window.box_area())
        self.go(window, "Shift+Tab", 1)
        self.desktop.press("Shift+Tab")
        self.desktop.wait_focus(window.window, SAME)
        self.assertIsNone(window.box_area())

    def test_no_password_ever_stands_in_the_text_of_the_list(self):
        window = self.open_list()
        words = "Told-To-Nobody"
        window.type_old(words)
        for key, row in (("Down", 1), ("Up", 0)):
            self.go(window, key, row)
            others = [control.text for control in self.desktop.children(window.window) if control.id != OLD]
            for shown in others + [row.text for row in self.desktop.rows(window.control(TARGETS))]:
                self.assertNotIn(words, shown)

    def test_back_in_the_single_mode_the_one_password_stands_in_the_box_again(self):
        window = self.open()
        self.desktop.wait_focus(window.window, OLD)
        window.type_old("single")
        place = window.control(OLD).place
        self.enter_list(window)
        window.type_old("row")
        self.desktop.press("Alt+U")
        wait_until(lambda: not window.control(TARGETS).visible, "the list hidden")
        self.assertEqual(window.control(OLD).place, place)
        self.assertEqual(window.length(OLD), len("single"))
        self.assertTrue(window.control(OLD).visible)


class ByMouse(ListCase):
    options = {"dlls": STAND_INS, "registry": targets(NINE)}

    def open_by_mouse(self):
        window = self.open()
        self.desktop.wait_focus(window.window, OLD)
        window.click(SAME)
        wait_until(lambda: window.control(TARGETS).visible, "the list shown")
        return window

    def test_the_box_opens_over_the_row_that_is_clicked_and_the_leaving_commits(self):
        window = self.open_by_mouse()
        self.assertIsNone(window.box_area())
        window.click_row(1)
        window.wait_edit(1)
        window.type_old("abcd")
        window.click_row(0)
        window.wait_edit(0)
        self.assertEqual(window.masks()[:2], [BULLET * 8, BULLET * 4])
        window.type_old("ab")
        window.click(NEW)
        self.desktop.wait_focus(window.window, NEW)
        wait_until(lambda: window.box_area() is None, "the box hidden")
        self.assertEqual(window.masks()[:2], [BULLET * 2, BULLET * 4])

    def test_a_slow_click_opens_the_box_too(self):
        window = self.open_by_mouse()
        for row in (1, 2):
            area, rows = window.row_area(row), window.control(TARGETS)
            self.desktop.hold(rows, at=(20, area.top - self.desktop.client_area(rows).top + area.height // 2))
            window.wait_edit(row)

    def test_a_second_click_within_the_box_stays_in_it(self):
        window = self.open_by_mouse()
        window.click_row(2)
        window.wait_edit(2)
        window.type_old("abc")
        window.click(OLD)
        self.desktop.type("d")
        window.wait_length(OLD, 4)
        self.desktop.wait_focus(window.window, OLD)

    def test_scrolling_by_the_bar_commits_and_hides_the_box_with_its_row(self):
        window = self.open_by_mouse()
        window.click_row(0)
        window.wait_edit(0)
        window.type_old("abc")
        area = self.desktop.client_area(window.control(TARGETS))
        for number in range(1, 4):
            self.desktop.click(window.control(TARGETS), at=(area.width + 8, area.height - 4))
            wait_until(lambda: self.desktop.list_state(window.control(TARGETS))[1] == number, "a row further")
        wait_until(lambda: window.box_area() is None, "the box hidden")
        self.desktop.wait_focus(window.window, TARGETS)
        self.assertEqual(window.masks()[0], BULLET * 3)
        self.assertEqual(self.desktop.list_state(window.control(TARGETS)), (0, 3))
        for number in (2, 1, 0):
            self.desktop.click(window.control(TARGETS), at=(area.width + 8, 4))
            wait_until(lambda: self.desktop.list_state(window.control(TARGETS))[1] == number, "a row back")
        window.wait_edit(0)
        self.assertEqual(window.length(OLD), 3)

    def test_scrolling_by_the_wheel_moves_the_box_with_its_row(self):
        window = self.open_by_mouse()
        window.click_row(2)
        window.wait_edit(2)
        window.type_old("abc")
        self.desktop.click(window.control(TARGETS), at=(20, 10), button=5)
        wait_until(lambda: self.desktop.list_state(window.control(TARGETS))[1] > 0, "rows further")
        wait_until(lambda: window.masks()[2] == BULLET * 3, "the password of the row kept")
        if self.desktop.list_state(window.control(TARGETS))[1] <= 2:
            window.wait_edit(2)
        else:
            wait_until(lambda: window.box_area() is None, "the box hidden")


class Place(ListCase):
    """The box lies where the mask was. A list takes its stop in quarters of a character, so its mask may stand
    half a quarter beside the box where a character is wider than at 96 dots per inch. Only the first dot is
    compared: a list and a box may set the further ones apart by different breadths."""

    def look_at(self, dpi, apart):
        class AtResolution(ListCase):
            options = {**ListCase.options, "registry": targets(NINE), "dpi": dpi}

            def runTest(self):
                window = self.open_list()
                window.type_old("abcdefgh")
                self.go(window, "Down", 1)
                area = window.row_area(0)
                in_row = self.ink(area)
                self.go(window, "Up", 0)
                self.desktop.press("End")
                box = window.box_area()
                self.assertEqual((box.top, box.right, box.bottom), (area.top, area.right, area.bottom))
                column = min(x for x, _ in in_row if x > area.width // 3)
                beyond = next(x for x in range(column, area.width) if x not in {place[0] for place in in_row})
                dot = {(x, y) for x, y in in_row if column <= x < beyond}
                self.assertGreater(len(dot), 4)
                self.picture("box-over-mask-%d" % dpi, window.window)
                self.assertIn(dot, [self.moved(area, dot, by) for by in range(-apart, apart + 1)])

            def moved(self, area, dot, by):
                """What the box shows where the dot stood, moved sideways."""
                first, last = min(x for x, _ in dot) - 4, max(x for x, _ in dot)
                return {(x + by, y) for x, y in self.ink(area) if first <= x + by <= last}

            def ink(self, area):
                return {place for place, colour in self.desktop.pixels(area).items() if sum(colour) < 384}

        run_at(self, AtResolution())

    def test_96_dots_per_inch(self):
        self.look_at(96, apart=0)

    def test_144_dots_per_inch(self):
        self.look_at(144, apart=2)

    def test_192_dots_per_inch(self):
        self.look_at(192, apart=2)


class HalfARow(ListCase):
    options = {"dlls": STAND_INS, "registry": targets(NINE)}

    def test_a_row_that_is_partly_out_of_sight_gets_no_box(self):
        window = self.open_list()
        rows = window.control(TARGETS)
        area, height = self.desktop.client_area(rows), window.row_area(0).height
        whole = area.height // height
        # Rows that fill the list evenly are made higher, so that one is cut.
        if area.height - whole * height < 4:
            self.desktop.send(rows, LB_SETITEMHEIGHT, 0, height + 2)
            whole = area.height // (height + 2)
        self.desktop.click(rows, at=(20, area.height - 2))
        wait_until(lambda: self.desktop.list_state(rows)[0] == whole, "the last row chosen")
        self.desktop.wait_focus(window.window, TARGETS)
        self.assertEqual(self.desktop.list_state(rows), (whole, 0))
        self.assertIsNone(window.box_area())
        self.picture("half-a-row-96", window.window)


class Run(ListCase):
    def test_each_target_gets_its_own_old_password_and_back_opens_a_new_window(self):
        window = self.open_list(passwords_differ)
        window.type_old("wrong")
        self.go(window, "Down", 1)
        window.type_old(OLD_PASSWORD + "ARCHIVE")
        self.go(window, "Down", 2)
        window.type_old(NEW_PASSWORD)
        window.type_new(NEW_PASSWORD)
        window.click(OK)
        self.assertEqual(window.wait_results(), [
            NOT_CHANGED % (LOCAL, WRONG_OLD), CHANGED % SERVER, NOT_CHANGED % (DOMAIN, SAME_WORDS)])
        self.picture("list-failed-96", window.window)
        kept = {name: OLD_PASSWORD + name for name in ("WORKBENCH", "PRACTICE")}
        self.assertEqual(self.network.passwords(), {**kept, "ARCHIVE": NEW_PASSWORD})
        self.desktop.wait_focus(window.window, OK)
        self.desktop.press("Enter")
        self.desktop.wait_no_window(title=TITLE_AFTER)
        again = PasswordWindow(self.desktop, process=window.process)
        self.assertEqual((again.title(), again.length(NEW), again.length(OLD)), (TITLE, 0, 0))
        self.enter_list(again)
        self.assertEqual(again.masks(), [BULLET * 8] * 3)
        self.assertEqual(again.length(OLD), 0)
        self.assertEqual(again.close(), 0)
        self.assertEqual(self.endings(), 0)

    def test_a_target_without_a_password_is_tried_with_none_and_the_log_off_takes_precedence(self):
        window = self.open_list(passwords_differ)
        window.type_old(OLD_PASSWORD + "WORKBENCH")
        window.type_new(NEW_PASSWORD)
        window.click(OK)
        paragraphs = window.wait_results()
        self.picture("list-log-off-pending-96", window.window)
        self.assertEqual(paragraphs[:3], [
            CHANGED % LOCAL, NOT_CHANGED % (SERVER, WRONG_OLD), NOT_CHANGED % (DOMAIN, WRONG_OLD)])
        self.assertEqual(len(paragraphs), 4)
        self.assertFalse(window.enabled(OK))
        self.assertEqual(window.text(CANCEL), "&Log Off")
        self.assertEqual(window.close(), 0)
        wait_until(lambda: self.endings() == 1, "the end of the session asked for")

    def test_the_results_can_be_scrolled_and_selected_and_not_changed(self):
        window = self.open_list()
        window.type_new(NEW_PASSWORD)
        window.click(OK)
        window.wait_results()
        before = window.text(STATUS)
        window.click(STATUS)
        self.desktop.wait_focus(window.window, STATUS)
        self.desktop.press("Ctrl+Home")
        self.desktop.press("Shift+Right")
        self.desktop.type("x")
        wait_until(lambda: self.desktop.send(window.control(STATUS), 0x00B0) == 0x00010000, "one character selected")
        self.assertEqual(window.text(STATUS), before)


class Interrupted(ListCase):
    """What happens to a window while a server takes its time."""

    def start_run(self, network):
        """Gives the window and its controls, which answer nobody while a server is waited for."""
        window = PasswordWindow(self.desktop, variables=network.variables)
        controls = {control.id: control for control in self.desktop.children(window.window)}
        self.enter_list(window)
        window.type_old("first")
        window.type_new(NEW_PASSWORD)
        self.desktop.click(controls[OK])
        network.wait_change(1)
        return window, controls

    def state(self, control, question):
        return self.desktop.call_in(control, "user32.dll", question, control.handle) != 0

    def test_a_window_that_is_closed_in_the_middle_of_a_run_changes_no_further_target(self):
        with HeldNetwork() as network:
            window, _ = self.start_run(network)
            self.desktop.close_window(window.window)
            network.let_go()
            self.assertEqual(window.process.wait_exit(), 0)
            self.assertEqual([new for _, _, new in network.changes], [NEW_PASSWORD])
            self.assertEqual(network.changes[0][1], "first")
        wait_until(lambda: self.endings() == 1, "the end of the session asked for")

    def test_clicks_and_a_change_of_colours_during_a_run_do_no_harm(self):
        with HeldNetwork() as network:
            window, controls = self.start_run(network)
            self.desktop.click(controls[OK])
            self.desktop.click(controls[CANCEL])
            self.desktop.post(window.window, WM_SYSCOLORCHANGE)
            for _ in range(2):
                network.let_go(ERROR_INVALID_PASSWORD)
            paragraphs = window.wait_results()
            self.assertEqual([len(paragraphs), len(network.changes)], [3, 2])
            self.assertTrue(window.enabled(OK))

    def test_the_window_says_that_it_is_at_work(self):
        with HeldNetwork() as network:
            window, controls = self.start_run(network)
            network.let_go(ERROR_INVALID_PASSWORD)
            network.wait_change(2)
            self.picture("list-during-96", window.window)
            self.assertEqual(window.title(), TITLE_DURING)
            self.assertEqual(self.desktop.pointer(window.window), "wait")
            shown = {number for number, control in controls.items() if self.state(control, "IsWindowVisible")}
            usable = {number for number in shown if self.state(controls[number], "IsWindowEnabled")}
            self.assertEqual(shown, {USER_LABEL, USER, STATUS, OK, CANCEL, WAIT})
            self.assertEqual(usable, {USER_LABEL, STATUS, WAIT})
            network.let_go(ERROR_INVALID_PASSWORD)
            window.wait_results()


class Sizes(ListCase):
    def look_at(self, count, patience):
        """Opens with so many servers, edits rows in the list mode and runs."""
        class Many(ListCase):
            # Without a provider Wine looks for one anew at each bind, for some 10 milliseconds.
            options = {
                "dlls": {**STAND_INS, **practice_directory.LIBRARY},
                "registry": {
                    **targets(["\\\\S%05d" % n for n in range(count)]), **practice_directory.REGISTRATION,
                },
            }

            def runTest(self):
                self.network = PracticeNetwork(self.desktop, practice_directory.install)
                start = time.monotonic()
                window = PasswordWindow(self.desktop, variables=self.network.variables)
                self.desktop.wait_focus(window.window, OLD)
                opened = time.monotonic()
                self.assertLess(opened - start, 20)
                self.assertEqual(self.desktop.send(window.control(TARGETS), LB_GETCOUNT), count + 1)
                self.enter_list(window)
                self.go(window, "Down", 1)
                window.type_old("abc")
                self.go(window, "Down", 2)
                self.go(window, "Up", 1)
                self.assertEqual(window.length(OLD), 3)
                self.run_all(window, count, patience)

            def run_all(self, window, count, patience):
                window.type_new(NEW_PASSWORD)
                start = time.monotonic()
                window.click(OK)
                wait_until(lambda: window.title() == TITLE_AFTER, "the results", patience)
                print("%d targets run in %.1f s" % (count, time.monotonic() - start))
                paragraphs = window.paragraphs()
                self.assertEqual([paragraph.split(":")[0] for paragraph in paragraphs[1:]],
                                 ["\\\\S%05d" % n for n in range(count)])

        run_at(self, Many())

    def test_ten_thousand_targets_open_are_edited_and_run(self):
        self.look_at(10000, patience=480)

    def test_passwords_of_32000_characters_go_through_unchanged(self):
        old, new = "o" * 31990 + "\u6f22\u0436 \\\t;%s", "N2-" + "\u00e9" * 31997

        def long_one(world):
            for place in world["network"]["computers"] + world["network"]["domains"]:
                place["accounts"][0]["password"] = old

        window = self.open_list(long_one)
        for row in range(3):
            self.desktop.paste(old)
            window.wait_length(OLD, len(old))
            if row < 2:
                self.go(window, "Down", row + 1)
        for identifier in (NEW, CONFIRM):
            window.click(identifier)
            self.desktop.wait_focus(window.window, identifier)
            self.desktop.paste(new)
            window.wait_length(identifier, len(new))
        window.click(OK)
        window.wait_results()
        self.assertEqual(set(self.network.passwords().values()), {new})


if __name__ == "__main__":
    unittest.main()
