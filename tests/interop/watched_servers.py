"""The frame of a test in which the watch at logon asks real servers."""

import re
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

import practice_directory  # noqa: E402
from cases import ProgramCase  # noqa: E402
from desktop import Desktop, NoWine  # noqa: E402
from mapped_windows import MappedWindows  # noqa: E402
from password_window import PATIENCE, PROGRAM, STAND_INS, targets  # noqa: E402
from servers import USER  # noqa: E402
from watched_network import UTC  # noqa: E402

QUESTION = "\r\n\r\nDo you want to change your password now?"
EXPIRED = "Your Password Has Expired"
HAS_EXPIRED = "Your password for %s has expired."
DOMAIN, SERVER = "the domain PRACTICE", "the computer \\\\SERVER1"


def require_watch():
    for path in (PROGRAM, *STAND_INS.values(), *practice_directory.LIBRARY.values()):
        if not path.exists():
            raise RuntimeError("%s not built; the remedy: ./build.sh" % path.name)


class WatchedServers(ProgramCase):
    """The user's computer, a server and a domain, whose passwords last 42 days."""

    dlls = STAND_INS
    registry = targets(["\\\\SERVER1", "PRACTICE"])

    def setUp(self):
        super().setUp()
        self.controller, self.server, self.desk = (
            self.network.controller, self.network.server, self.network.desk)
        for server in self.network.servers:
            self.addCleanup(server.set_policy, max_age=42 if server is self.controller else None)
            server.set_policy(max_age=42)
        variables = {"KESTRELMOOR_BRIDGE": self.bridge.address, **UTC}
        try:
            self.desktop = self.enterContext(
                Desktop(dlls=self.dlls, registry=self.registry, variables=variables))
        except NoWine as trouble:
            self.skipTest(str(trouble))
        self.desktop.guard_session()
        self.log = self.desktop.work / "watch.log"

    def start(self):
        return self.desktop.start(PROGRAM, ["/d", self.desktop.windows_path(self.log)])

    def lines(self):
        return self.log.read_text(encoding="utf-8").splitlines()

    def assert_logged(self, pattern):
        self.assertTrue(any(re.fullmatch(pattern, line) for line in self.lines()), self.lines())

    def question(self, process):
        return self.desktop.box(pid=process.pid, timeout=PATIENCE)

    def assert_silent(self):
        """The program ends and no window of any kind was ever on the screen."""
        with MappedWindows(self.desktop.display) as shown:
            self.assertEqual(self.start().wait_exit(PATIENCE), 0)
            self.assertEqual(shown.count(), 0)

    def assert_asks(self, title, *lines):
        process = self.start()
        box = self.question(process)
        self.assertEqual((box.title, box.text), (title, "\r\n".join(lines) + QUESTION))
        box.answer("No")
        self.assertEqual(process.wait_exit(PATIENCE), 0)

    def grow_old(self, server):
        """Passwords older than a second have expired from now on."""
        server.set_max_age(1)
        time.sleep(2)

    def disable(self, server):
        self.addCleanup(server.set_disabled, USER, False)
        server.set_disabled(USER, True)

    def lock(self, server):
        self.addCleanup(server.unlock, USER)
        self.addCleanup(server.set_policy, lockout=0)
        server.set_policy(lockout=2)
        for _ in range(3):
            server.log_on(USER, "Not-the-one-7")
