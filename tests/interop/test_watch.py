"""The watch at logon asks real servers: each state of an account, set up by the server's own tools, and what
Moorlink.exe makes of it, by the directory and by the network API."""

import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(Path(__file__).parent))
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

import practice_directory  # noqa: E402
from cases import fresh  # noqa: E402
from desktop_case import PICTURES  # noqa: E402
from password_window import PATIENCE, STAND_INS, PasswordWindow  # noqa: E402
from servers import USER  # noqa: E402
from watched_servers import (  # noqa: E402
    DOMAIN, EXPIRED, HAS_EXPIRED, QUESTION, SERVER, WatchedServers, require_watch,
)

EXPIRING, APART = "Your Password Is About to Expire", "Your Passwords Differ"
REFUSES = "The password that you logged on with is not valid for %s."
RESTRICTED = "Information: Password status = Account disabled, locked or otherwise restricted"

setUpModule = require_watch


class States:
    """What holds on either road."""

    def test_fresh_passwords_are_met_with_silence(self):
        self.assert_silent()
        self.assertIn("Information: Password status = OK", self.lines())

    def test_a_password_within_the_lead_time_is_told_with_its_days(self):
        self.controller.set_policy(max_age=10)
        process = self.start()
        box = self.question(process)
        self.desktop.picture(PICTURES / "interop-watch-expiring.png", box.window)
        self.assertEqual(box.title, EXPIRING)
        self.assertRegex(box.text, r"^Your password for the domain PRACTICE expires in 9 days and 23 hours\.\r\n")
        box.answer("No")
        self.assertEqual(process.wait_exit(PATIENCE), 0)

    def test_a_password_that_has_expired_is_told(self):
        for server, words in ((self.controller, DOMAIN), (self.server, SERVER)):
            with self.subTest(server.name):
                self.grow_old(server)
                self.assert_asks(EXPIRED, HAS_EXPIRED % words)
                server.set_policy(max_age=42)

    def test_a_password_that_must_be_changed_is_told_as_expired(self):
        self.controller.require_change(USER)
        self.assert_asks(EXPIRED, HAS_EXPIRED % DOMAIN)

    def test_a_disabled_account_is_met_with_silence(self):
        self.disable(self.controller)
        self.assert_silent()
        self.assert_logged(self.SAID_OF_DISABLED)

    def test_a_locked_account_is_met_with_silence(self):
        self.lock(self.server)
        self.assert_silent()
        self.assert_logged(self.SAID_OF_LOCKED)

    def test_a_wrong_password_in_use_is_told_and_narrows_the_window(self):
        self.server.set_password(USER, "Set-elsewhere-5")
        process = self.start()
        box = self.question(process)
        self.assertEqual((box.title, box.text), (APART, REFUSES % SERVER + QUESTION))
        box.press("Enter")
        window = PasswordWindow(self.desktop, process=process)
        self.assertEqual(window.rows(), ["\\\\SERVER1"])
        new = fresh()
        window.change("Set-elsewhere-5", new)
        self.assertTrue(self.server.log_on(USER, new))
        self.assertFalse(self.server.log_on(USER, "Set-elsewhere-5"))
        self.assertTrue(self.controller.log_on(USER, self.controller.first_password))
        self.assertEqual(window.close(), 0)
        whole = self.log.read_bytes()
        for password in ("Set-elsewhere-5", new):
            self.assertNotIn(password.encode("utf-8"), whole)
            self.assertNotIn(password.encode("utf-16-le"), whole)

    def test_a_controller_that_is_down_is_met_with_silence(self):
        self.controller.stop_service()
        self.addCleanup(self.controller.start_service)
        self.assert_silent()
        self.assert_logged(r"Error: NetUserGetInfo failed with error 53: .+")

    def test_a_password_that_never_expires_is_met_with_silence_however_old(self):
        for server in (self.controller, self.server):
            self.addCleanup(server.set_never_expires, USER, False)
            server.set_never_expires(USER, True)
            self.grow_old(server)
        self.assert_silent()
        self.assert_never_expires_was_seen()


class ByTheNetworkApi(States, WatchedServers):
    SAID_OF_DISABLED = r"Error: NetUserGetInfo failed with error 1331: .+"
    SAID_OF_LOCKED = r"Error: NetUserGetInfo failed with error 1909: .+"

    def assert_never_expires_was_seen(self):
        asked = [line for line in self.lines() if "-> NetUserModalsGet" in line]
        self.assertEqual(asked, ['Information: -> NetUserModalsGet ""'])

    def test_the_lines_of_a_fresh_password(self):
        self.start().wait_exit(PATIENCE)
        lines = self.lines()
        begin = lines.index('Information: -> NetUserGetInfo "\\\\DC1" "user"')
        self.assertEqual(lines[begin + 1:begin + 5], [
            "Information: Password status = OK",
            'Information: -> NetUserModalsGet "\\\\DC1"',
            "Information: Max PWD Age = 3628800",
            "Information: Min PWD Length = 7",
        ])
        self.assertRegex(lines[begin + 5], r"^Information: Seconds before password expiration = 36287\d\d$")
        self.assertEqual(len(lines), begin + 6)


class ByTheDirectory(States, WatchedServers):
    dlls = {**STAND_INS, **practice_directory.LIBRARY}
    registry = {**WatchedServers.registry, **practice_directory.REGISTRATION}
    SAID_OF_DISABLED = SAID_OF_LOCKED = RESTRICTED

    def assert_never_expires_was_seen(self):
        self.assertEqual(self.lines().count("Information: UserFlags = &H10201"), 2)
        self.assertEqual(self.lines().count("Information: Password status = Never expires"), 2)

    def test_the_lines_of_a_fresh_password(self):
        self.start().wait_exit(PATIENCE)
        lines = self.lines()
        begin = lines.index('Information: -> GetObject "WinNT://PRACTICE/user,user"')
        self.assertEqual(lines[begin + 1:begin + 4], [
            'Information: -> IADsUser.Get "UserFlags"',
            "Information: UserFlags = &H201",
            "Information: Password status = OK",
        ])
        self.assertRegex(lines[begin + 4], r"^Information: Days before password expiration = 41\.99\d*$")
        self.assertEqual(len(lines), begin + 5)

    def test_a_restricted_account_stands_beside_what_is_told_of_others(self):
        self.disable(self.server)
        self.controller.require_change(USER)
        self.assert_asks(
            EXPIRED,
            "Your account for %s is disabled, locked or restricted. Please ask your administrator for help."
            % SERVER,
            HAS_EXPIRED % DOMAIN)
        self.assertIn(RESTRICTED, self.lines())

    def test_a_change_goes_through_the_directory(self):
        old, new = fresh(), fresh()
        for server in self.network.servers:
            self.assertEqual(self.change("\\\\" + server.name, server.first_password, old), 0)
        self.controller.set_policy(max_age=10)
        process = self.start()
        self.question(process).press("Enter")
        window = PasswordWindow(self.desktop, process=process)
        window.change(old, new)
        for server in self.network.servers:
            self.assertTrue(server.log_on(USER, new), server.name)
            self.assertFalse(server.log_on(USER, old), server.name)
        self.assertEqual(self.lines().count("Information: -> IADsUser.ChangePassword"), 3)
        self.assertEqual([line for line in self.lines() if "NetUserChangePassword" in line], [])


if __name__ == "__main__":
    unittest.main()
