"""Moorlink.exe changes passwords, and looks at them at logon, where the network is bad: servers that don't answer,
answer late, break off, or are not those that their names say.

It asks the stand-in network library, which asks the bridge, whose client library is Samba's: how long an answer
may take is theirs to say, and a minute is what that library gives it. The program has no limit of its own.
"""

import sys
import time
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(Path(__file__).parent))
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

import practice_directory  # noqa: E402
from cases import BridgeCase, fresh  # noqa: E402
from change_case import CHANGED, LOCAL, NOT_CHANGED, SERVERS, ChangeCase, require_program  # noqa: E402
from desktop_case import PICTURES  # noqa: E402
from mapped_windows import MappedWindows  # noqa: E402
from password_window import (  # noqa: E402
    CANCEL, OK, STATUS, TITLE_AFTER, TITLE_DURING, USER_LABEL, WAIT, PasswordWindow,
)
from password_window import USER as USER_BOX  # noqa: E402
from road import NOBODY, Road  # noqa: E402
from servers import USER  # noqa: E402
from watched_servers import DOMAIN as THE_DOMAIN  # noqa: E402
from watched_servers import EXPIRED, HAS_EXPIRED, QUESTION, WatchedServers, require_watch  # noqa: E402
from watched_servers import SERVER as THE_SERVER  # noqa: E402

LOCAL_NAME, SERVER, DOMAIN, DC = "\\\\DESK1", "\\\\SERVER1", "PRACTICE", "\\\\DC1"
CHANGE_FAILED = "NetUserChangePassword failed with error %d: "
A_MINUTE = 60


def setUpModule():
    require_program()
    require_watch()


class BadNetwork(ChangeCase):
    """Some of the targets lie at the end of a bad road; what comes behind them in the list is reached."""

    def start(self, names):
        """A run that has begun; it is told in the log."""
        self.window = self.open(names, log=True)
        self.controls = {control.id: control for control in self.desktop.children(self.window.window)}
        self.new = fresh()
        self.window.fill(self.OLD, self.new)
        self.window.click(OK)

    def run_to_its_end(self, names):
        self.start(names)
        return self.window.wait_results()

    def assert_failed(self, paragraph, target, failure):
        """The paragraph says what the log says."""
        self.assertTrue(paragraph.startswith(NOT_CHANGED % (target, failure)), paragraph)
        words = paragraph.removeprefix(NOT_CHANGED % (target, ""))
        self.assertIn("Error: " + words, self.log_lines())

    def assert_succeeded(self, paragraph, target, server):
        self.assertEqual(paragraph, CHANGED % target)
        self.assert_changed(server, self.new)

    def assert_unchanged(self, server):
        super().assert_unchanged(server)
        self.assertFalse(server.log_on(USER, self.new), "%s: the new password doesn't" % server.name)

    def assert_at_work(self):
        """The window during a run, asked in ways that don't need its thread."""
        def state(control, question):
            return self.desktop.call_in(control, "user32.dll", question, control.handle) != 0

        shown = {number for number, control in self.controls.items() if state(control, "IsWindowVisible")}
        usable = {number for number in shown if state(self.controls[number], "IsWindowEnabled")}
        self.assertEqual(self.window.title(), TITLE_DURING)
        self.assertEqual(self.desktop.pointer(self.window.window), "wait")
        self.assertEqual(shown, {USER_LABEL, USER_BOX, STATUS, OK, CANCEL, WAIT})
        self.assertEqual(usable, {USER_LABEL, STATUS, WAIT})

    def changes_at(self, *names):
        """How many changes each has been asked for so far, answered or not."""
        asked = [call["domainname"] for call in self.bridge.asked if call["call"] == "NetUserChangePassword"]
        return [asked.count(name) for name in names]


class NoAnswer(BadNetwork):
    def test_refusal_is_told_at_once_and_silence_when_the_platform_gives_up(self):
        self.network.desk.addresses["change_password"] = NOBODY
        self.addCleanup(self.network.desk.addresses.clear)
        with Road(self.network.server, "silent") as road:
            self.start(SERVERS)
            road.wait("connected")
            begun = time.monotonic()
            while time.monotonic() - begun < A_MINUTE - 10:
                self.assert_at_work()
                self.assertEqual(self.changes_at(LOCAL_NAME, SERVER, DC), [1, 1, 0])
                time.sleep(5)
            paragraphs = self.window.wait_results(2 * A_MINUTE)
            self.assertGreater(time.monotonic() - begun, A_MINUTE - 2)
        self.assert_failed(paragraphs[0], LOCAL, CHANGE_FAILED % 53)
        self.assert_unchanged(self.network.desk)
        self.assert_failed(paragraphs[1], SERVER, CHANGE_FAILED % 121)
        self.assert_unchanged(self.network.server)
        self.assert_succeeded(paragraphs[2], DOMAIN, self.network.controller)
        self.assertEqual(self.changes_at(LOCAL_NAME, SERVER, DC), [1, 1, 1])

    def test_silence_behind_the_change_is_told_as_silence_ahead_of_it_and_the_new_password_holds(self):
        with Road(self.network.server, "hold") as road:
            self.start(SERVERS)
            road.wait("answered")
            begun = time.monotonic()
            paragraphs = self.window.wait_results(2 * A_MINUTE)
            self.assertGreater(time.monotonic() - begun, A_MINUTE - 2)
        self.assert_succeeded(paragraphs[0], LOCAL, self.network.desk)
        self.assert_failed(paragraphs[1], SERVER, CHANGE_FAILED % 121)
        self.assert_changed(self.network.server, self.new)
        self.assert_succeeded(paragraphs[2], DOMAIN, self.network.controller)
        self.assertEqual(self.changes_at(LOCAL_NAME, SERVER, DC), [1, 1, 1])


class LateAnswer(BadNetwork):
    LATE = 12.0
    """Seconds; after five without a word Windows itself takes a window for hung."""

    def test_the_program_waits_and_takes_the_answer_when_it_comes(self):
        with Road(self.network.server, "hold") as road:
            self.start(SERVERS)
            road.wait("answered")
            begun = time.monotonic()
            self.desktop.picture(PICTURES / "interop-waiting.png", self.window.window)
            while time.monotonic() - begun < self.LATE:
                self.assert_at_work()
                self.assertEqual(self.changes_at(LOCAL_NAME, SERVER, DC), [1, 1, 0])
                time.sleep(1)
            road.let_go()
            paragraphs = self.window.wait_results()
        self.assert_succeeded(paragraphs[0], LOCAL, self.network.desk)
        self.assert_succeeded(paragraphs[1], SERVER, self.network.server)
        self.assert_succeeded(paragraphs[2], DOMAIN, self.network.controller)
        self.assertEqual(self.log_lines().count("Information: Password changed"), 3)


class BrokenOff(BadNetwork):
    """One report for two truths: the program can't see on which side of the change the connection broke."""

    def test_ahead_of_the_change_and_behind_it_the_report_is_the_same_and_bears_the_code(self):
        with Road(self.network.desk, "cut ahead"), Road(self.network.server, "cut behind"):
            paragraphs = self.run_to_its_end(SERVERS)
        self.assert_failed(paragraphs[0], LOCAL, CHANGE_FAILED % 64)
        self.assert_unchanged(self.network.desk)
        self.assert_failed(paragraphs[1], SERVER, CHANGE_FAILED % 64)
        self.assert_changed(self.network.server, self.new)
        self.assertEqual(paragraphs[0].removeprefix(LOCAL), paragraphs[1].removeprefix(SERVER))
        self.assert_succeeded(paragraphs[2], DOMAIN, self.network.controller)
        self.assertEqual(self.changes_at(LOCAL_NAME, SERVER, DC), [1, 1, 1])

    def test_behind_the_change_of_the_own_computer_the_session_stays_and_a_second_run_is_86(self):
        with Road(self.network.desk, "cut behind"), Road(self.network.controller, "cut behind"):
            paragraphs = self.run_to_its_end(SERVERS)
        self.assertEqual(len(paragraphs), 3)
        self.assert_failed(paragraphs[0], LOCAL, CHANGE_FAILED % 64)
        self.assert_changed(self.network.desk, self.new)
        self.assert_succeeded(paragraphs[1], SERVER, self.network.server)
        self.assert_failed(paragraphs[2], DOMAIN, CHANGE_FAILED % 64)
        self.assert_changed(self.network.controller, self.new)
        for paragraph, target in zip(self.run_again(), (LOCAL, SERVER, DOMAIN), strict=True):
            self.assert_failed(paragraph, target, CHANGE_FAILED % 86)
        self.assertEqual(self.desktop.session_endings(), 0)

    def run_again(self):
        """The way back, and the old password once more for all; the paragraphs."""
        self.desktop.wait_focus(self.window.window, OK)
        self.desktop.press("Enter")
        self.desktop.wait_no_window(title=TITLE_AFTER)
        again = PasswordWindow(self.desktop, process=self.window.process)
        paragraphs = again.change(self.OLD, fresh())
        self.assertEqual(again.close(), 0)
        return paragraphs

    def test_through_the_directory_it_is_told_alike_and_the_network_api_is_not_tried(self):
        self.dlls = {**self.dlls, **practice_directory.LIBRARY}
        self.registry = practice_directory.REGISTRATION
        # The directory is asked in the session, so that the session has to know the password.
        self.OLD = fresh()
        for server in self.network.servers:
            self.assertEqual(self.change("\\\\" + server.name, ChangeCase.OLD, self.OLD), 0)
        del self.bridge.record[:]
        with Road(self.network.server, "cut behind"):
            paragraphs = self.run_to_its_end(SERVERS)
        self.assert_failed(paragraphs[1], SERVER, "IADsUser.ChangePassword failed with error -2147024832: ")
        self.assert_changed(self.network.server, self.new)
        self.assert_succeeded(paragraphs[2], DOMAIN, self.network.controller)
        self.assertEqual([call for call in self.bridge.record if call["call"] == "NetUserChangePassword"], [])


class AnotherName(BadNetwork):
    """The report bears the target's name; whose password it was is the affair of whoever answers."""

    def test_a_controllers_name_that_leads_to_a_server_of_no_domain_changes_that_one(self):
        self.bridge.misnamed["dc1"] = self.network.server
        paragraphs = self.run_to_its_end([DOMAIN])
        self.assert_succeeded(paragraphs[1], DOMAIN, self.network.server)
        self.assertIn('Information: -> NetUserChangePassword "%s"' % DC, self.log_lines())
        self.assert_unchanged(self.network.controller)

    def test_two_names_of_one_server_are_two_targets_and_the_second_is_86(self):
        self.bridge.misnamed.update(elsewhere=self.network.server, dc1=self.network.server)
        paragraphs = self.run_to_its_end(["\\\\ELSEWHERE", DOMAIN])
        self.assert_succeeded(paragraphs[1], "\\\\ELSEWHERE", self.network.server)
        self.assert_failed(paragraphs[2], DOMAIN, CHANGE_FAILED % 86)
        self.assertIn('Information: -> NetUserChangePassword "\\\\ELSEWHERE"', self.log_lines())
        self.assert_unchanged(self.network.controller)


class WatchAtLogon(WatchedServers):
    """A target that can't be asked is no matter of the watch's: it stays out of the report, and the next is asked."""

    REFUSED = "53"
    BROKEN_OFF = "64"
    SILENT = "121"

    def refuse(self, server):
        server.addresses["user_info"] = NOBODY
        self.addCleanup(server.addresses.clear)

    def assert_failed(self, call, code):
        self.assert_logged("Error: %s failed with error %s: .+" % (call, code))

    def assert_waits_unseen(self, shown, process, seconds):
        begun = time.monotonic()
        while time.monotonic() - begun < seconds:
            self.assertIsNone(process.exit_code())
            self.assertEqual(shown.count(), 0)
            time.sleep(1)

    def test_where_nobody_answers_it_is_silent(self):
        for server in self.network.servers:
            self.refuse(server)
        self.assert_silent()
        self.assert_failed("NetUserGetInfo", self.REFUSED)

    def test_refusal_hides_nothing_of_the_next(self):
        self.refuse(self.server)
        self.grow_old(self.controller)
        self.assert_asks(EXPIRED, HAS_EXPIRED % THE_DOMAIN)
        self.assert_failed("NetUserGetInfo", self.REFUSED)

    def test_silence_is_waited_for_unseen_until_the_platform_gives_up(self):
        self.grow_old(self.controller)
        with Road(self.server, "silent", "user_info") as road, MappedWindows(self.desktop.display) as shown:
            process = self.start()
            road.wait("connected")
            self.assert_waits_unseen(shown, process, A_MINUTE - 10)
            box = self.desktop.box(pid=process.pid, timeout=A_MINUTE)
        self.assertEqual(box.text, HAS_EXPIRED % THE_DOMAIN + QUESTION)
        self.assert_failed("NetUserGetInfo", self.SILENT)
        box.answer("No")
        self.assertEqual(process.wait_exit(), 0)

    def test_a_late_answer_is_waited_for_unseen_and_counts(self):
        self.grow_old(self.server)
        with Road(self.server, "late", "user_info") as road, MappedWindows(self.desktop.display) as shown:
            process = self.start()
            road.wait("connected")
            self.assert_waits_unseen(shown, process, LateAnswer.LATE)
            road.let_go()
            box = self.desktop.box(pid=process.pid)
        self.assertEqual(box.text, HAS_EXPIRED % THE_SERVER + QUESTION)
        box.answer("No")
        self.assertEqual(process.wait_exit(), 0)

    def test_broken_off_in_the_middle_it_is_silent(self):
        for place in ("at 1", "at 300", "at 1500"):
            with self.subTest(place), Road(self.server, "cut " + place, "user_info") as road:
                self.assert_silent()
                road.wait("cut")
                self.assert_failed("NetUserGetInfo", self.BROKEN_OFF)
                self.log.unlink()

    def test_where_only_the_policy_breaks_off_the_password_counts_as_sound(self):
        self.controller.set_policy(max_age=10)
        with Road(self.controller, "cut at 300", "modals") as road:
            self.assert_silent()
            road.wait("cut")
        self.assert_failed("NetUserModalsGet", self.BROKEN_OFF)


class CutAnywhere(BridgeCase):
    """The bridge alone, cut after ever more bytes of one and the same conversation."""

    def test_no_cut_is_told_as_a_success_and_only_one_behind_the_change_leaves_it_done(self):
        for server in (self.network.server, self.network.controller):
            with self.subTest(server.name):
                old = fresh()
                with Road(server, "open") as road:
                    self.assertEqual(self.change("\\\\" + server.name, server.first_password, old), 0)
                    whole = road.passed_with_the_answer()
                # A first connection is closed in time or not, which makes 128 bytes more or less.
                cuts = ["at 1", *("at %d" % (whole * part // 12) for part in (4, 8, 10)), "within"]
                done = [self.changed_by_a_cut(server, old, cut) for cut in cuts]
                self.assertEqual(done, [False, False, False, False, True])

    def changed_by_a_cut(self, server, old, cut):
        """Whether the new password holds after a change that is told as broken off; then it is the old one's
        turn again."""
        new = fresh()
        with Road(server, "cut " + cut) as road:
            self.assertEqual(self.change("\\\\" + server.name, old, new), 64, cut)
            road.wait("cut")
        lets_in = (server.log_on(USER, old), server.log_on(USER, new))
        self.assertIn(lets_in, [(True, False), (False, True)])
        server.set_password(USER, old)
        return lets_in == (False, True)


if __name__ == "__main__":
    unittest.main()
