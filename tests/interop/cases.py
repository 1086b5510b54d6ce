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
    """A test with `network` and a `bridge` to it, that finds each account with its first password."""

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
