"""What the tests share: one network for all of them, made at the first need and taken down at the end."""

import atexit
import itertools
import json
import socket
import unittest
from functools import cache

from bridge import Bridge
from enclosure import obstacle
from servers import USER, Network
from windows_codes import ERROR_NETNAME_DELETED, ERROR_SEM_TIMEOUT

BROKEN_OFF = (ERROR_NETNAME_DELETED, ERROR_SEM_TIMEOUT)
"""Codes of a connection that ended, or fell silent, ahead of an answer."""
HAND_OUT_A_BUFFER = {
    "NetWkstaUserGetInfo", "NetWkstaGetInfo", "NetGetDCName", "DsGetDcNameW", "NetUserGetInfo", "NetUserModalsGet",
}
"""Calls whose caller owes a buffer back when they succeed."""


@cache
def shared_network():
    network = Network()
    atexit.register(network.close)
    return network


_numbers = itertools.count(1)


def fresh():
    """A password that every policy takes and that no test has used before: the controller remembers 24."""
    return f"Fresh-word-{next(_numbers)}"


class BridgeCase(unittest.TestCase):
    """A test with `network` and a `bridge` to it, that finds each account with its first password. At its end
    every change that went over the bridge is held against what the servers let in: who sets a password in
    another way after such a change puts the last one back."""

    @classmethod
    def setUpClass(cls):
        trouble = obstacle()
        if trouble:
            raise unittest.SkipTest(trouble)
        cls.network = shared_network()

    def setUp(self):
        for server in self.network.servers:
            server.set_password(USER, server.first_password)
        self.bridge = self.enterContext(Bridge(self.network))
        # Comes behind all that a test puts back at its end: accounts are open and servers run again.
        self.addCleanup(self._prove_changes)

    def _prove_changes(self):
        for server, user in {(change.server, change.user) for change in self.bridge.changes}:
            asked = [change for change in self.bridge.changes if (change.server, change.user) == (server, user)]
            with self.subTest("what the servers let in at the end", server=server.name):
                self._prove_changes_of(server, user, asked)

    def _prove_changes_of(self, server, user, asked):
        """What was told as changed lets in with the new password, and no longer with an earlier one; where nothing
        was, the one that was set does. What was told as refused doesn't let in with the refused one. A change that
        broke off may have been made: then either of two passwords lets in, and not both."""
        done = [change for change in asked if change.code == 0]
        behind = asked[asked.index(done[-1]) + 1:] if done else asked
        last = done[-1].new if done else server.set_passwords[user]
        held = {last} | {change.new for change in behind if change.code in BROKEN_OFF}
        self.assertEqual([server.log_on(user, word) for word in held].count(True), 1, "the password in force")
        for old in {change.old for change in done} - held:
            self.assertFalse(server.log_on(user, old), "an old password")
        taken = {change.new for change in asked if change.code in (0, *BROKEN_OFF)}
        for new in {change.new for change in asked} - taken - {server.first_password, last}:
            self.assertFalse(server.log_on(user, new), "a refused password")

    def send(self, call, **arguments):
        """What the bridge answers over its socket."""
        host, port = self.bridge.address.split(":")
        with socket.create_connection((host, int(port))) as link, link.makefile("rw") as lines:
            lines.write(json.dumps({"call": call, **arguments}) + "\n")
            lines.flush()
            return json.loads(lines.readline())

    def change(self, name, old, new):
        """The code of a change of the own password on the server `name` (with its backslashes)."""
        return self.send(
            "NetUserChangePassword", domainname=name, username=None, oldpassword=old, newpassword=new
        )["code"]


class ProgramCase(BridgeCase):
    """A test in which Moorlink.exe itself makes the calls: each buffer that it was handed comes back once."""

    def setUp(self):
        super().setUp()
        # Comes when the program has ended, with its desktop.
        self.addCleanup(self._prove_buffers)

    def _prove_buffers(self):
        with self.subTest("the buffers that the program was handed"):
            self.assertEqual(*buffers_of(self.bridge.record))


def buffers_of(record):
    """What the releases in a record of calls should have been, one True for each buffer handed out, and what they
    were: False stands for a release of nothing that is out."""
    handed_out = [call for call in record if call["call"] in HAND_OUT_A_BUFFER and call["code"] == 0]
    return [True] * len(handed_out), [call["known"] for call in record if call["call"] == "NetApiBufferFree"]
