"""Moorlink.exe itself changes a password on real servers."""

import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(Path(__file__).parent))
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

from cases import fresh  # noqa: E402
from change_case import (  # noqa: E402
    CHANGED, CONTROLLER, FAILURE, LOCAL, NO_CONTROLLER, NOT_CHANGED, OWN_NAME, SERVERS, ChangeCase, changed,
    no_directory, policy_refused, require_program,
)
from desktop_case import PICTURES  # noqa: E402
from servers import USER  # noqa: E402
from waiting import wait_until  # noqa: E402

setUpModule = require_program


class Change(ChangeCase):
    def test_one_run_changes_the_computer_a_server_and_a_domain(self):
        window = self.open(SERVERS)
        new = fresh()
        paragraphs = window.change(self.OLD, new)
        self.desktop.picture(PICTURES / "interop-changed.png", window.window)
        self.assertEqual(paragraphs[:3], [CHANGED % LOCAL, CHANGED % "\\\\SERVER1", CHANGED % "PRACTICE"])
        self.assertIn("logged off", paragraphs[3])
        for server in self.network.servers:
            self.assert_changed(server, new)
        self.assertEqual(window.close(), 0)
        wait_until(lambda: self.desktop.session_endings() == 1, "the end of the session asked for")

    def test_a_wrong_old_password_is_told_for_its_target_and_the_run_goes_on(self):
        self.network.server.set_password(USER, "Another-word-7")
        window = self.open(SERVERS)
        new = fresh()
        paragraphs = window.change(self.OLD, new)
        self.assertEqual(len(paragraphs), 4)
        self.assertEqual(paragraphs[0], CHANGED % LOCAL)
        self.assertTrue(paragraphs[1].startswith(NOT_CHANGED % ("\\\\SERVER1", "Error 86: ")), paragraphs[1])
        self.assertEqual(paragraphs[2], CHANGED % "PRACTICE")
        self.assert_changed(self.network.controller, new)
        self.assertTrue(self.network.server.log_on(USER, "Another-word-7"))
        self.assertFalse(self.network.server.log_on(USER, new))

    def test_a_new_password_that_a_policy_refuses_is_told_and_the_run_goes_on(self):
        window = self.open(SERVERS)
        simple = "simpleword"  # long enough for all, not complex enough for the controller
        paragraphs = window.change(self.OLD, simple)
        self.desktop.picture(PICTURES / "interop-refused.png", window.window)
        self.assertEqual(paragraphs[1], CHANGED % "\\\\SERVER1")
        self.assertTrue(paragraphs[2].startswith(NOT_CHANGED % ("PRACTICE", "Error 2245: ")), paragraphs[2])
        self.assert_unchanged(self.network.controller)
        self.assert_changed(self.network.server, simple)

    def test_a_server_that_is_not_there_is_told_and_the_run_goes_on(self):
        window = self.open(["\\\\NOWHERE", "PRACTICE"])
        new = fresh()
        paragraphs = window.change(self.OLD, new)
        self.assertTrue(paragraphs[1].startswith(NOT_CHANGED % ("\\\\NOWHERE", "Error 53: ")), paragraphs[1])
        self.assertEqual(paragraphs[2], CHANGED % "PRACTICE")
        self.assert_changed(self.network.controller, new)

    def test_the_log_holds_exactly_the_told_lines_and_no_password(self):
        window = self.open(["\\\\SERVER1", "PRACTICE", "NODOMAIN"], log=True)
        new = fresh()
        window.change(self.OLD, new)
        window.close()
        lines = self.log_lines()
        self.assertRegex(lines[0], "^Information: Log started on .+")
        self.assertEqual([FAILURE.sub(r"\1", line) for line in lines[1:]], [
            "Information: -> NetWkstaUserGetInfo",
            "Information: Current User = user",
            "Information: -> LsaOpenPolicy",
            "Information: -> LsaQueryInformationPolicy",
            "Information: Domain Member = False",
            *OWN_NAME, *no_directory("DESK1"), *policy_refused(""),
            *no_directory("SERVER1"), *policy_refused("\\\\SERVER1"),
            *no_directory("NODOMAIN"), *NO_CONTROLLER, *policy_refused(""),
            *no_directory("PRACTICE"), *CONTROLLER, *policy_refused("\\\\DC1"),
            *OWN_NAME, *no_directory("DESK1"), *OWN_NAME, *changed("\\\\DESK1"),
            *no_directory("SERVER1"), *changed("\\\\SERVER1"),
            *no_directory("NODOMAIN"), *NO_CONTROLLER,
            *no_directory("PRACTICE"), *CONTROLLER, *changed("\\\\DC1"),
        ])
        whole = self.log.read_bytes()
        for password in (self.OLD, new):
            self.assertNotIn(password.encode("utf-8"), whole)
            self.assertNotIn(password.encode("utf-16-le"), whole)


if __name__ == "__main__":
    unittest.main()
