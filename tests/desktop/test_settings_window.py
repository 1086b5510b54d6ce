"""The settings window on a real desktop: its looks, its list with check marks and its entry, and what it stores."""

import unittest

from desktop_case import run_at
from settings_case import ARCHIVE, SERVER, SettingsCase
from settings_window import ADD, DAYS, DAYS_LABEL, ENTRY, ENTRY_BOX, LOCAL, OK, PERMANENT, REMIND, SERVERS
from waiting import wait_until

MODAL_FRAME_IN_TASK_BAR = 0x00040000


class Looks(SettingsCase):
    def place(self, identifier):
        found = self.settings.control(identifier).place
        return found.left, found.top, found.width, found.height

    def test_it_stands_in_the_middle_of_its_owner_and_holds_it_off(self):
        own = self.desktop.window(self.settings.window)
        owner = self.desktop.window(self.settings.passwords.window)
        self.assertEqual(owner.handle, own.owner)
        self.assertFalse(owner.enabled)
        self.assertAlmostEqual(owner.place.left + owner.place.right, own.place.left + own.place.right, delta=2)
        self.assertAlmostEqual(owner.place.top + owner.place.bottom, own.place.top + own.place.bottom, delta=2)
        self.assertEqual(0, own.extended_style & MODAL_FRAME_IN_TASK_BAR)
        area = self.desktop.client_area(self.settings.window)
        self.assertEqual((345, 257), (area.width, area.height))

    # The told twips by 15; the row of the reminder follows the width of its caption.
    def test_everything_stands_where_it_is_designed(self):
        self.assertEqual((16, 16, 201, 64), self.place(SERVERS))
        left, top, width, height = self.place(REMIND)
        self.assertEqual((8, 128, 17), (left, top, height))
        days = self.place(DAYS)
        self.assertEqual((left + width + 3, 127, 25, 19), days)
        self.assertEqual((days[0] + days[2] + 7, 130), self.place(DAYS_LABEL)[:2])
        self.assertEqual(337, self.place(DAYS_LABEL)[0] + self.place(DAYS_LABEL)[2])

    def test_every_text_fits_and_nothing_overlaps(self):
        self.assertEqual([], self.desktop.layout_faults(self.settings.window))
        self.picture("settings", self.settings.window)

    def test_the_entry_lies_over_its_row_beside_the_mark(self):
        self.settings.open_entry()
        self.picture("settings_entry", self.settings.window)
        area = self.desktop.client_area(self.settings.control(SERVERS))
        entry = self.desktop.client_area(self.settings.control(ENTRY))
        self.assertEqual((area.left + 15, area.top), (entry.left, entry.top))
        self.assertEqual(area.right, entry.right)


class AtResolution(SettingsCase):
    dpi = 96

    @classmethod
    def setUpClass(cls):
        cls.options = {**SettingsCase.options, "dpi": cls.dpi}
        super().setUpClass()

    def test_an_entry_that_is_open(self):
        self.settings.open_entry()
        self.desktop.type("NEW")
        self.desktop.wait_text(self.settings.entry_part(ENTRY_BOX), "NEW")
        self.picture("settings-%d" % self.dpi, self.settings.window)
        self.settings.leave_entry()
        self.assertEqual([], self.desktop.layout_faults(self.settings.window))


class Resolutions(unittest.TestCase):
    def look_at(self, dpi):
        run_at(self, type("AtResolution%d" % dpi, (AtResolution,), {"dpi": dpi})("test_an_entry_that_is_open"))

    def test_120_dots_per_inch(self):
        self.look_at(120)

    def test_144_dots_per_inch(self):
        self.look_at(144)

    def test_192_dots_per_inch(self):
        self.look_at(192)


class Servers(SettingsCase):
    def test_a_click_on_a_mark_is_stored(self):
        self.settings.click_mark(1)
        self.save()
        self.assert_stored(ARCHIVE, SERVER, "PRACTICE")
        self.assertEqual(b"\x05", self.settings.stored("Active"))

    def test_space_turns_the_mark_of_the_row_and_a_click_on_its_name_does_not(self):
        self.settings.click_name(2)
        wait_until(lambda: self.desktop.list_state(self.settings.control(SERVERS))[0] == 2, "the row chosen")
        self.assertFalse(self.settings.control(OK).enabled)
        self.desktop.press("Space")
        wait_until(lambda: self.settings.control(OK).enabled, "a change")
        self.save()
        self.assertEqual(b"\x03", self.settings.stored("Active"))

    def test_a_name_typed_into_the_entry_is_sorted_in_and_checked(self):
        self.settings.add("OMEGA")
        self.assertEqual([ARCHIVE, SERVER, "OMEGA", "PRACTICE"], self.settings.rows())
        self.save()
        self.assert_stored(ARCHIVE, SERVER, "OMEGA", "PRACTICE")
        self.assertEqual(b"\x0f", self.settings.stored("Active"))

    def test_a_click_on_add_closes_the_entry_and_opens_the_next(self):
        self.settings.open_entry()
        self.desktop.type("OMEGA")
        self.desktop.wait_text(self.settings.entry_part(ENTRY_BOX), "OMEGA")
        self.settings.click(ADD)
        wait_until(lambda: "OMEGA" in self.settings.rows() and "..." in self.settings.rows(), "the next entry")
        self.settings.wait_focus(self.settings.entry_part(ENTRY_BOX))
        self.desktop.wait_text(self.settings.entry_part(ENTRY_BOX), "")

    def test_an_entry_left_empty_vanishes_and_changes_nothing(self):
        self.settings.open_entry()
        self.settings.leave_entry()
        self.assertEqual([ARCHIVE, SERVER, "PRACTICE"], self.settings.rows())
        self.assertFalse(self.settings.control(OK).enabled)

    def test_escape_stores_nothing(self):
        self.settings.click_mark(0)
        wait_until(lambda: self.settings.control(OK).enabled, "a change")
        self.desktop.press("Escape")
        self.settings.wait_closed()
        self.assertEqual(b"\x07", self.settings.stored("Active"))


class Days(SettingsCase):
    def setUp(self):
        super().setUp()
        self.desktop.click(self.settings.control(DAYS), clicks=2)

    def test_a_hundred_and_more_keep_the_focus_and_letters_are_dropped(self):
        days = self.settings.control(DAYS)
        self.desktop.type("1x00")
        self.desktop.wait_text(days, "100")
        self.desktop.press("Tab")
        self.desktop.click(self.settings.control(SERVERS))
        self.desktop.type("0")
        self.desktop.wait_text(days, "1000")
        self.settings.wait_focus(days)

    def test_the_sentence_follows_the_number(self):
        self.desktop.type("1")
        self.desktop.wait_text(self.settings.control(DAYS_LABEL), "day before a password expires")
        self.assertTrue(self.settings.control(OK).enabled)
        self.settings.click(LOCAL)
        self.assertEqual(1, self.desktop.checked(self.settings.control(PERMANENT)))


if __name__ == "__main__":
    unittest.main()
