"""Moorlink.exe itself changes a password on real servers."""

import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(Path(__file__).parent))
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

from cases import BridgeCase, fresh  # noqa: E402
from desktop import Desktop, NoWine  # noqa: E402
from desktop_case import PICTURES  # noqa: E402
from password_window import OK, PROGRAM, STAND_INS, PasswordWindow, targets  # noqa: E402
from servers import USER  # noqa: E402
from waiting import wait_until  # noqa: E402

SERVERS = ["\\\\SERVER1", "PRACTICE"]
CHANGED = "%s: The password has been changed."
NOT_CHANGED = "%s: The password has not been changed. %s"
LOCAL = " This computer"


def setUpModule():
    missing = [path.name for path in (PROGRAM, *STAND_INS.values()) if not path.exists()]
    if missing:
        raise RuntimeError("%s not built; the remedy: ./build.sh" % ", ".join(missing))


class Change(BridgeCase):
    """One old password for all targets, as a person types it."""

    OLD = "Common-old-word-1"

    def setUp(self):
        super().setUp()
        for server in self.network.servers:
            server.set_password(USER, self.OLD)

    def open(self, names, log=False):
        """The window with these targets and the local computer; with a log where asked for."""
        try:
            self.desktop = self.enterContext(
                Desktop(dlls=STAND_INS, registry=targets(names), variables={"KESTRELMOOR_BRIDGE": self.bridge.address})
            )
        except NoWine as trouble:
            self.skipTest(str(trouble))
        self.desktop.guard_session()
        self.log = self.desktop.work / "change.log"
        arguments = ["/d", self.desktop.windows_path(self.log)] if log else []
        return PasswordWindow(self.desktop, arguments)

    def log_lines(self):
        return self.log.read_text(encoding="utf-8").splitlines()

    def assert_changed(self, server, new):
        self.assertTrue(server.log_on(USER, new), "%s: the new password logs on" % server.name)
        self.assertFalse(server.log_on(USER, self.OLD), "%s: the old one doesn't" % server.name)

    def assert_unchanged(self, server):
        self.assertTrue(server.log_on(USER, self.OLD), "%s: the old password logs on" % server.name)

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
        privilege = [
            "Information: -> OpenProcessToken",
            'Information: -> LookupPrivilegeValue "SeChangeNotifyPrivilege"',
            "Information: -> AdjustTokenPrivileges",
        ]

        def change(server):
            return privilege + [
                'Information: -> NetUserChangePassword "%s"' % server,
                "Information: Password changed",
            ]

        self.assertEqual(
            lines[1:],
            [
                "Information: -> NetWkstaUserGetInfo",
                "Information: Current User = user",
                "Information: -> LsaOpenPolicy",
                "Information: -> LsaQueryInformationPolicy",
                "Information: Domain Member = False",
                "Information: -> NetWkstaGetInfo",
                "Information: Computer Name = \\\\DESK1",
                *change("\\\\DESK1"),
                *change("\\\\SERVER1"),
                'Information: -> NetGetDCName "NODOMAIN"',
                lines[19],
                'Information: -> DsGetDcNameW "NODOMAIN"',
                lines[21],
                'Information: -> NetGetDCName "PRACTICE"',
                "Information: Primary DC Name = \\\\DC1",
                *change("\\\\DC1"),
            ],
        )
        self.assertRegex(lines[19], "^Error: NetGetDCName failed with error 2453: .+")
        self.assertRegex(lines[21], "^Error: DsGetDcNameW failed with error 1355: .*")
        whole = self.log.read_bytes()
        for password in (self.OLD, new):
            self.assertNotIn(password.encode("utf-8"), whole)
            self.assertNotIn(password.encode("utf-16-le"), whole)


if __name__ == "__main__":
    unittest.main()
