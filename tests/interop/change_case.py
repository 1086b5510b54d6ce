"""The frame of a test in which Moorlink.exe itself changes passwords on real servers."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

from cases import ProgramCase  # noqa: E402
from desktop import Desktop, NoWine  # noqa: E402
from password_window import PROGRAM, STAND_INS, PasswordWindow, targets  # noqa: E402
from servers import USER  # noqa: E402

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


def require_program():
    missing = [path.name for path in (PROGRAM, *STAND_INS.values()) if not path.exists()]
    if missing:
        raise RuntimeError("%s not built; the remedy: ./build.sh" % ", ".join(missing))


class ChangeCase(ProgramCase):
    """One old password for all targets, as a person types it."""

    OLD = "Common-old-word-1"
    dlls = STAND_INS
    registry = {}

    def setUp(self):
        super().setUp()
        for server in self.network.servers:
            server.set_password(USER, self.OLD)

    def open(self, names, log=False):
        """The window with these targets and the local computer; with a log where asked for."""
        try:
            self.desktop = self.enterContext(
                Desktop(dlls=self.dlls, registry={**self.registry, **targets(names)},
                        variables={"KESTRELMOOR_BRIDGE": self.bridge.address})
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
