"""Servers and domains added, chosen and removed in the settings window, by keys and by mouse."""

import unittest

from browse_dialog import BrowseDialog
from password_window import SETTINGS
from settings_case import ARCHIVE, SERVER, SettingsCase
from settings_window import ADD, ENTRY, ENTRY_BOX, ENTRY_BROWSE, OK, REMOVE, SERVERS
from waiting import wait_until

ODD_NAMES = [" ", "\tTAB", "Q", "\\\\", "L" * 1000, "\N{GRINNING FACE}", "שרת"]


class Entry(SettingsCase):
    def test_a_name_that_stands_in_another_case_is_chosen_and_not_added(self):
        self.settings.add("practice")
        self.settings.wait_rows(ARCHIVE, SERVER, "PRACTICE")
        self.settings.wait_current(2)
        self.assertTrue(self.settings.enabled(OK))

    def test_after_a_cancelled_dialog_the_entry_still_takes_a_name(self):
        self.settings.open_entry()
        self.desktop.click(self.settings.entry_part(ENTRY_BROWSE))
        BrowseDialog.wait(self.desktop, self.settings.passwords.process.pid).cancel()
        self.desktop.click(self.settings.entry_part(ENTRY_BOX))
        self.settings.wait_focus(self.settings.entry_part(ENTRY_BOX))
        self.settings.type_name("OMEGA")
        self.settings.leave_entry()
        self.save()
        self.assert_stored(ARCHIVE, SERVER, "OMEGA", "PRACTICE")

    def test_a_click_on_ok_takes_the_name_being_typed(self):
        self.settings.open_entry()
        self.settings.type_name("OMEGA")
        self.save()
        self.assert_stored(ARCHIVE, SERVER, "OMEGA", "PRACTICE")

    def test_enter_within_the_entry_stores_the_row_that_stands_for_it(self):
        self.settings.open_entry()
        self.settings.type_name("OMEGA")
        self.desktop.press("Enter")
        self.settings.wait_closed()
        self.assert_stored("...", ARCHIVE, SERVER, "PRACTICE")
        self.assertEqual(b"\x0f", self.settings.stored("Active"))

    def test_escape_within_the_entry_stores_nothing(self):
        before = self.all_stored()
        self.settings.open_entry()
        self.settings.type_name("OMEGA")
        self.desktop.press("Escape")
        self.settings.wait_closed()
        self.assertEqual(before, self.all_stored())
        self.settings.open()
        self.settings.wait_rows(ARCHIVE, SERVER, "PRACTICE")


class ClickBesideTheEntry(SettingsCase):
    """The entry's row stands above all others, so each of them moves up when it goes."""

    def press_row(self, at, rows, row):
        self.desktop.hold(self.settings.control(SERVERS), at=(at, self.settings.row_middle(row)))
        wait_until(lambda: not self.settings.control(ENTRY).visible, "the entry closed")
        self.settings.wait_rows(*rows)

    def test_on_a_name_chooses_the_row_that_was_pressed(self):
        self.settings.open_entry()
        self.press_row(60, [ARCHIVE, SERVER, "PRACTICE"], 2)
        self.settings.wait_current(1)
        self.assertFalse(self.settings.enabled(OK))
        wait_until(lambda: self.settings.enabled(REMOVE), "a row to remove")

    def test_on_a_mark_turns_the_mark_that_was_pressed(self):
        self.settings.open_entry()
        self.press_row(7, [ARCHIVE, SERVER, "PRACTICE"], 2)
        self.settings.wait_current(1)
        wait_until(lambda: self.settings.enabled(OK), "a change")
        self.save()
        self.assertEqual(b"\x05", self.settings.stored("Active"))

    def test_on_a_mark_with_a_name_typed_takes_both(self):
        self.settings.open_entry()
        self.settings.type_name("\\\\BACKUP")
        self.press_row(7, [ARCHIVE, "\\\\BACKUP", SERVER, "PRACTICE"], 3)
        self.settings.wait_current(3)
        self.save()
        self.assert_stored(ARCHIVE, "\\\\BACKUP", SERVER, "PRACTICE")
        self.assertEqual(b"\x07", self.settings.stored("Active"))

    def test_on_the_mark_of_the_row_itself_leaves_all_as_it_was(self):
        self.settings.open_entry()
        self.press_row(7, [ARCHIVE, SERVER, "PRACTICE"], 0)
        self.assertFalse(self.settings.enabled(OK))

    def test_the_next_click_is_a_click_like_any_other(self):
        self.settings.open_entry()
        self.press_row(60, [ARCHIVE, SERVER, "PRACTICE"], 1)
        self.settings.click_mark(2)
        self.settings.wait_current(2)
        self.save()
        self.assertEqual(b"\x03", self.settings.stored("Active"))


class ManyServers(SettingsCase):
    names = ["HOST%d" % number for number in range(1, 10)]

    def test_add_brings_its_row_into_sight_and_opens_over_it(self):
        self.settings.click_name(0)
        self.desktop.press("End")
        self.settings.wait_current(8)
        self.assertGreater(self.desktop.list_state(self.settings.control(SERVERS))[1], 0)
        self.settings.open_entry()
        self.assertEqual((0, 0), self.desktop.list_state(self.settings.control(SERVERS)))
        self.settings.type_name("HOST0")
        self.settings.leave_entry()
        self.assertEqual("HOST0", self.settings.rows()[0])

    def test_nine_servers_take_two_bytes_of_marks(self):
        self.settings.click_mark(0)
        self.save()
        self.assertEqual(b"\xfe\x01", self.settings.stored("Active"))

    def test_a_row_out_of_sight_is_reached_turned_and_removed_by_keys(self):
        self.desktop.press("Alt+S")
        self.settings.wait_focus(self.settings.control(SERVERS))
        self.desktop.press("End")
        self.settings.wait_current(8)
        self.desktop.press("Up")
        self.desktop.press("Space")
        wait_until(lambda: self.settings.enabled(OK), "a change")
        self.desktop.press("End")
        self.desktop.press("Alt+R")
        self.settings.wait_rows(*self.names[:8])
        self.assertFalse(self.settings.enabled(REMOVE))
        self.save()
        self.assert_stored(*self.names[:8])
        self.assertEqual(b"\x7f", self.settings.stored("Active"))


class Removed(SettingsCase):
    def test_the_marks_of_the_rows_behind_it_move_up(self):
        self.settings.click_mark(1)
        self.settings.click_name(0)
        self.settings.click(REMOVE)
        self.settings.wait_rows(SERVER, "PRACTICE")
        self.assertEqual(-1, self.settings.current_row())
        self.save()
        self.assert_stored(SERVER, "PRACTICE")
        self.assertEqual(b"\x02", self.settings.stored("Active"))

    def test_the_last_one_leaves_nothing_stored(self):
        for _ in range(3):
            self.settings.click_name(0)
            wait_until(lambda: self.settings.enabled(REMOVE), "a row to remove")
            self.settings.click(REMOVE)
            wait_until(lambda: not self.settings.enabled(REMOVE), "the row removed")
        self.save()
        self.assertEqual([], self.desktop.list_registry(SETTINGS)[1])


class EmptyList(SettingsCase):
    names = []

    def test_tab_and_keys_do_no_harm(self):
        self.desktop.press("Tab")
        self.settings.wait_focus(self.settings.control(SERVERS))
        for key in ("Space", "Down", "Up", "End", "PageDown", "Delete"):
            self.desktop.press(key)
        self.desktop.click(self.settings.control(SERVERS), at=(7, 20))
        self.desktop.press("Tab")
        self.settings.wait_focus(self.settings.control(ADD))
        self.desktop.press("Alt+R")
        wait_until(lambda: not self.settings.enabled(REMOVE), "nothing to remove")
        self.assertEqual([], self.settings.rows())
        self.assertFalse(self.settings.enabled(OK))

    def paste_name(self, name):
        self.settings.open_entry()
        self.desktop.paste(name)
        self.desktop.wait_text(self.settings.entry_part(ENTRY_BOX), name)
        self.settings.leave_entry()
        wait_until(lambda: name in self.settings.rows(), "the row %.20r" % name)

    def test_odd_names_stand_in_the_list_and_the_registry_as_they_came(self):
        for name in ODD_NAMES:
            self.paste_name(name)
        self.picture("settings_odd_names", self.settings.window)
        rows = self.settings.rows()
        self.assertEqual(sorted(ODD_NAMES), sorted(rows))
        self.save()
        self.assert_stored(*rows)
        self.assertEqual(b"\x7f", self.settings.stored("Active"))
        self.settings.passwords.close()
        self.settings = self.open()
        self.settings.wait_rows(*rows)


if __name__ == "__main__":
    unittest.main()
