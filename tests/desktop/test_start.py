"""What Moorlink.exe does at its start, as a person meets it."""

import pathlib
import subprocess
import unittest

from desktop import OUT
from desktop_case import DesktopCase
from password_window import PROGRAM, SETTINGS, STAND_INS, USER, PasswordWindow
from practice_network import PracticeNetwork, program_folder

TITLE = "Kestrelmoor"
ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


class Start(DesktopCase):
    options = {"dlls": STAND_INS}

    def setUp(self):
        self.network = PracticeNetwork(self.desktop)

    def start(self, *arguments, program=PROGRAM):
        return self.desktop.start(program, list(arguments), variables=self.network.variables)

    def assert_box(self, process, icon, *texts):
        """A box with an OK button, the program's title and these texts in it; it is answered."""
        box = self.desktop.box(pid=process.pid)
        self.assertEqual((box.title, box.buttons, box.icon), (TITLE, ["OK"], icon))
        for text in texts:
            self.assertIn(text, box.text)
        box.answer("OK")

    def test_usage_box_names_the_switches_and_the_process_ends(self):
        process = self.start("/?")
        box = self.desktop.box(pid=process.pid)
        self.picture("usage")
        self.assertEqual((box.title, box.buttons, box.icon), (TITLE, ["OK"], "information"))
        for switch in ("/f", "/d", "/l", "/?"):
            self.assertIn(switch, box.text)
        loaded = self.desktop.modules(process)
        self.assertIn("default.loc", loaded)
        self.assertNotIn("netapi32.dll", loaded)
        box.answer("OK")
        self.assertEqual(process.wait_exit(), 0)

    def test_a_bad_token_is_named_and_the_process_ends(self):
        process = self.start("/f", "/quiet")
        self.assert_box(process, "warning", "/quiet")
        self.assertEqual(process.wait_exit(), 0)

    def test_a_log_that_cannot_be_opened_is_told_and_the_program_goes_on(self):
        process = self.start("/f", "/d", "C:\\no such folder\\a.log")
        self.assert_box(process, "warning", "C:\\no such folder\\a.log")
        window = PasswordWindow(self.desktop, process=process)
        self.assertEqual(window.text(USER), "user")

    def test_a_log_may_be_a_link_and_grows_where_that_leads(self):
        log = self.desktop.work / "told.log"
        link = self.desktop.work / "link.log"
        log.write_bytes(b"from before\r\n")
        link.symlink_to(log.name)
        process = self.start("/f", "/d", self.desktop.windows_path(link.parent) + "\\" + link.name)
        PasswordWindow(self.desktop, process=process)
        self.assertTrue(link.is_symlink())
        first, date, _ = log.read_text(encoding="utf-8").split("\n", 2)
        self.assertEqual("from before", first)
        self.assertRegex(date, r"\d\d")

    def test_a_library_that_is_none_is_told_in_the_fixed_words(self):
        process = self.start("/f", program=program_folder(self.desktop, default_loc=b"no library at all"))
        self.assert_box(process, "warning", "Error loading localization library.")
        self.assertEqual(process.wait_exit(), 0)

    def test_a_library_without_the_exports_is_told_in_the_fixed_words(self):
        other = (OUT / "stand_ins" / "netmsg.dll").read_bytes()
        process = self.start("/f", program=program_folder(self.desktop, default_loc=other))
        self.assert_box(process, "warning", "Error loading localization library.")
        self.assertEqual(process.wait_exit(), 0)

    def test_a_library_that_serves_no_english_is_told_in_the_fixed_words(self):
        process = self.start("/f", program=program_folder(self.desktop, default_loc=self.library_for("1031")))
        self.assert_box(process, "warning", "Error initializing localization library.")
        self.assertEqual(process.wait_exit(), 0)

    def library_for(self, number):
        """The English words in a library that serves another language."""
        words = (ROOT / "languages" / "en.po").read_text(encoding="utf-8")
        other = self.desktop.work / "other.po"
        other.write_text(words.replace("X-Language-Numbers: 1033", "X-Language-Numbers: " + number), encoding="utf-8")
        made = self.desktop.work / "other.loc"
        library = OUT / "program" / "default.loc"
        command = [ROOT / "tools" / "po_to_loc.py", "--library", library, "--po", other, "--out", made]
        subprocess.run(["/usr/bin/python3", *command], check=True, stdout=subprocess.DEVNULL)
        return made.read_bytes()

    def test_no_library_is_told_in_the_fixed_words(self):
        process = self.start("/f", program=program_folder(self.desktop, default_loc=None))
        self.assert_box(process, "warning", "Localization library not found.")
        self.assertEqual(process.wait_exit(), 0)

    def test_stored_values_of_the_wrong_kind_stand_for_nothing_and_are_left_alone(self):
        stored = {"Servers": "text", "Active": 5, "ReminderTime": "x", "Options": b"\x00", "LangID": "1031"}
        for name, value in stored.items():
            self.desktop.write_registry(SETTINGS, name, value)
        self.addCleanup(self.desktop.delete_registry, SETTINGS)
        window = PasswordWindow(self.desktop, variables=self.network.variables)
        self.assertEqual(window.rows(), [" This computer"])
        self.assertEqual(window.close(), 0)
        for name, value in stored.items():
            self.assertEqual(self.desktop.registry_value(SETTINGS, name), value)


if __name__ == "__main__":
    unittest.main()
