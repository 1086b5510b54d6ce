"""Passwords on a real desktop: wherever another program can look, none is found."""

import time
import unittest

import practice_directory
from desktop_case import DesktopCase
from held_network import HeldNetwork
from password_window import (
    CONFIRM, NEW, OK, OLD, PROGRAM, SAME, SETTINGS_BUTTON, STAND_INS, STATUS, TARGETS, USER, PasswordWindow, targets,
)
from practice_network import PracticeNetwork
from traces import Traces
from waiting import wait_until
from watched_network import UTC, WatchedNetwork, places

OLD_MARK, NEW_MARK, WRONG_MARK = "Xq4!ZvKw9jHb", "Yw8?GtPz2mQd", "Jr6+NkVx5cLf"
PASSWORDS = (OLD_MARK, NEW_MARK, WRONG_MARK)
PLANTED = "Bz3=TsRg7nWk"
SERVER, DOMAIN = "\\\\ARCHIVE", "PRACTICE"
CHANGED, NOT_CHANGED = "The password has been changed.", "The password has not been changed."
KEY = "HKCU\\Software\\Planted"
WM_SETTEXT, EM_SETPASSWORDCHAR, LB_ADDSTRING = 0x000C, 0x00CC, 0x0180


def mark(world):
    for place in places(world).values():
        place["accounts"][0]["password"] = OLD_MARK


def mark_with_directory(world):
    mark(world)
    practice_directory.install(world)


def mark_and_expire(world):
    mark(world)
    places(world)["ARCHIVE"]["accounts"][0]["password_expired"] = True


def mark_and_restrict(world):
    mark(world)
    for place, restriction in zip(places(world).values(), ("cannot_change_password", "locked", "disabled"), strict=True):
        place["accounts"][0][restriction] = True


class SecretsCase(DesktopCase):
    options = {
        "dlls": {**STAND_INS, **practice_directory.LIBRARY},
        "registry": {**targets([SERVER, DOMAIN]), **practice_directory.REGISTRATION},
        "variables": UTC,
    }

    def setUp(self):
        self.since = time.time()
        self.desktop.guard_session()
        self.endings = self.desktop.session_endings()
        self.traces = Traces(self.desktop, *PASSWORDS)
        # The practice network's own file has the accounts, and with them their passwords.
        self.network = PracticeNetwork(self.desktop, mark)
        self.log = self.desktop.work / "secrets.log"
        self.log.unlink(missing_ok=True)

    def open(self, variables=None):
        return PasswordWindow(self.desktop, ["/d", self.desktop.windows_path(self.log)],
                              variables=variables or self.network.variables)

    def look(self, window=None):
        """Nothing is found now; `window` is one of the program's."""
        found = self.traces.in_windows() | self.traces.in_processes() | self.files(self.traces)
        self.assertEqual(found | (self.traces.in_blocks(window) if window else set()), set())

    def files(self, traces):
        return traces.in_files(self.since, but=[self.network.path])

    def run_and_look(self, window, old, new=NEW_MARK):
        window.fill(old, new)
        self.look(window.window)
        window.click(OK)
        paragraphs = window.wait_results()
        self.look(window.window)
        return paragraphs


class Secrets(SecretsCase):
    """The registry is looked at behind each road, and the files that it is kept in behind all of them."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.addClassCleanup(cls.look_at_hives)

    @classmethod
    def look_at_hives(cls):
        cls.desktop.stop()
        found = Traces(cls.desktop, *PASSWORDS).in_hives()
        assert not found, found

    def tearDown(self):
        super().tearDown()
        self.assertEqual(self.traces.in_registry(), set())

    def test_success_and_the_log_off_leave_no_trace(self):
        window = self.open()
        paragraphs = self.run_and_look(window, OLD_MARK)
        self.assertEqual([CHANGED in text for text in paragraphs[:3]], [True] * 3)
        self.assertEqual(set(self.network.passwords().values()), {NEW_MARK})
        self.assertEqual(window.close(), 0)
        wait_until(lambda: self.desktop.session_endings() > self.endings, "the end of the session asked for")
        self.assertGreater(len(self.log.read_text("utf-8").splitlines()), 12)
        self.look()

    def test_failure_and_the_way_back_leave_no_trace(self):
        window = self.open()
        paragraphs = self.run_and_look(window, WRONG_MARK)
        self.assertEqual([NOT_CHANGED in text for text in paragraphs], [True] * 3)
        window.click(OK)
        wait_until(lambda: self.desktop.window(window.window) is None, "the first window gone")
        again = PasswordWindow(self.desktop, process=window.process)
        self.assertEqual([again.length(box) for box in (OLD, NEW, CONFIRM)], [0, 0, 0])
        self.look(again.window)
        self.assertIn(CHANGED, self.run_and_look(again, OLD_MARK)[0])

    def test_restricted_accounts_leave_no_trace(self):
        self.network = PracticeNetwork(self.desktop, mark_and_restrict)
        window = self.open()
        paragraphs = self.run_and_look(window, OLD_MARK)
        self.assertEqual([NOT_CHANGED in text for text in paragraphs], [True] * 3)
        self.assertEqual(set(self.network.passwords().values()), {OLD_MARK})

    def test_a_refused_confirmation_and_the_settings_leave_no_trace(self):
        window = self.open()
        window.fill(OLD_MARK, NEW_MARK, confirm=WRONG_MARK)
        window.click(OK)
        box = self.desktop.box(pid=window.process.pid)
        self.look(box.window)
        box.answer("OK")
        wait_until(lambda: window.length(NEW) == 0, "the new password taken away")
        window.type_new(NEW_MARK)
        window.click(SETTINGS_BUTTON)
        settings = self.desktop.wait_window(class_name="frmSettings", pid=window.process.pid)
        self.look(settings)
        self.desktop.press("Escape")
        wait_until(lambda: self.desktop.window(settings) is None, "the settings closed")
        self.assertEqual(window.length(NEW), 12)

    def test_an_old_password_for_each_target_leaves_no_trace_through_the_directory(self):
        self.network = PracticeNetwork(self.desktop, mark_with_directory)
        window = self.open()
        self.desktop.wait_focus(window.window, OLD)
        window.click(SAME)
        wait_until(lambda: window.control(TARGETS).visible, "the list shown")
        for row, old in enumerate((OLD_MARK, WRONG_MARK, OLD_MARK)):
            window.click_row(row)
            window.wait_edit(row)
            window.type_old(old)
            self.look(window.window)
        window.type_new(NEW_MARK)
        self.assertEqual([len(mask) for mask in window.masks()], [12] * 3)
        self.look(window.window)
        window.click(OK)
        self.assertEqual([CHANGED in text for text in window.wait_results()[:3]], [True, False, True])
        lines = self.log.read_text("utf-8")
        self.assertEqual((lines.count("-> IADsUser.ChangePassword"), lines.count("-> NetUserChangePassword")), (3, 0))
        self.look(window.window)

    def test_a_change_under_way_leaves_no_trace(self):
        with HeldNetwork() as network:
            window = self.open(network.variables)
            window.fill(OLD_MARK, NEW_MARK)
            window.click(OK)
            network.wait_change(1)
            self.assertEqual(network.changes[0][1:], (OLD_MARK, NEW_MARK))
            # The program waits for the server and answers nobody: only its title can be read.
            self.assertFalse(self.traces.holds(window.title()))
            self.assertEqual(self.traces.in_processes() | self.files(self.traces), set())
            for _ in range(3):
                network.let_go()
            window.wait_results()
            self.look(window.window)

    def test_the_reminder_and_its_window_leave_no_trace(self):
        self.network = WatchedNetwork(self.desktop, mark_and_expire)
        process = self.desktop.start(PROGRAM, ["/d", self.desktop.windows_path(self.log)],
                                     variables=self.network.variables)
        box = self.desktop.box(pid=process.pid)
        self.look(box.window)
        box.press("Enter")
        window = PasswordWindow(self.desktop, process=process)
        self.assertIn(CHANGED, "".join(self.run_and_look(window, OLD_MARK)))


class WhatStays(SecretsCase):
    """The registry, in the system and on the disk, and the search itself: another password is planted in every
    place, and must be found in each."""

    def test_nothing_stays_but_what_was_planted(self):
        planted = Traces(self.desktop, PLANTED)
        window = PasswordWindow(self.desktop, ["/d", "%s\\%s.log" % (self.desktop.windows_path(self.desktop.work),
                                                                    PLANTED)],
                                variables={**self.network.variables, "PLANTED": PLANTED.upper()})
        self.run_and_look(window, OLD_MARK)
        self.plant_in_windows(window)
        places = {"title of frmPass", "row of frmPass %d" % TARGETS,
                  *("text of frmPass %d" % box for box in (USER, STATUS))}
        self.assertEqual(planted.in_windows(), places)
        self.desktop.send(window.control(NEW), EM_SETPASSWORDCHAR, 0)
        self.assertEqual(planted.in_windows(), places | {"text of frmPass %d" % NEW})
        self.assertEqual(planted.in_blocks(window.window), {"GetCommandLineW", "GetEnvironmentStringsW"})
        self.assertIn("cmdline of Moorlink.exe", planted.in_processes())
        window.close()
        self.plant_in_files()
        self.assertEqual(self.files(planted), {"name %s.log" % PLANTED, "file wide.bin", "file small.txt"})
        for name, value in (("text", PLANTED[:6]), ("bytes", PLANTED.lower().encode("utf-16-le")),
                            ("list", (7, ("a\0%s\0\0" % PLANTED).encode("utf-16-le")))):
            self.desktop.write_registry(KEY, name, value)
        self.assertEqual((planted.in_registry(), self.traces.in_registry()), ({"registry", "data in registry"}, set()))
        self.look()
        self.desktop.stop()
        self.assertEqual((planted.in_hives(), self.traces.in_hives()), ({"user.reg", "data in user.reg"}, set()))

    def plant_in_windows(self, window):
        self.desktop.send_text(window.window, WM_SETTEXT, 0, PLANTED.lower())
        for identifier in (USER, STATUS, NEW):
            self.desktop.send_text(window.control(identifier), WM_SETTEXT, 0, "so: " + PLANTED)
        self.desktop.send_text(window.control(TARGETS), LB_ADDSTRING, 0, PLANTED[3:9])

    def plant_in_files(self):
        self.desktop.prefix_file("users").mkdir(exist_ok=True)
        (self.desktop.prefix_file("users") / "wide.bin").write_bytes(b"x" + PLANTED.encode("utf-16-le"))
        (self.desktop.work / "small.txt").write_text(PLANTED[:6].lower(), "utf-8")


if __name__ == "__main__":
    unittest.main()
