"""Moorlink.exe itself changes a password on real servers."""

import re
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

# The lines of the log. The system's words are its own affair, and so is why it finds no provider.
FAILURE = re.compile("^(Error: (?:GetObject failed|[A-Za-z]+ failed with error [0-9]+)).*")
OWN_NAME = ["Information: -> NetWkstaGetInfo", "Information: Computer Name = \\\\DESK1"]
CONTROLLER = ['Information: -> NetGetDCName "PRACTICE"', "Information: Primary DC Name = \\\\DC1"]
NO_CONTROLLER = [
    'Information: -> NetGetDCName "NODOMAIN"', "Error: NetGetDCName failed with error 2453",
    'Information: -> DsGetDcNameW "NODOMAIN"', "Error: DsGetDcNameW failed with error 1355",
]


def no_directory(name):
    """This system has no provider of that name."""
    return ['Information: -> GetObject "WinNT://%s/user,user"' % name, "Error: GetObject failed"]


def policy_refused(server):
    """The session's own password is none that the server knows."""
    return ['Information: -> NetUserModalsGet "%s"' % server, "Error: NetUserModalsGet failed with error 1326"]


def changed(server):
    return [
        "Information: -> OpenProcessToken",
        'Information: -> LookupPrivilegeValue "SeChangeNotifyPrivilege"',
        "Information: -> AdjustTokenPrivileges",
        'Information: -> NetUserChangePassword "%s"' % server,
        "Information: Password changed",
    ]


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
