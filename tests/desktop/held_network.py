"""A network whose servers take their time: what they are asked waits until the test lets it go on."""

import json
import queue
import socketserver
import threading

from waiting import wait_until

_NOT_SUPPORTED = 50
_HANDED_OUT = {
    "NetWkstaUserGetInfo": {"username": "user"},
    "NetWkstaGetInfo": {"computername": "WORKBENCH", "langroup": "WORKGROUP"},
    "NetUserModalsGet": {"min_passwd_len": 0, "max_passwd_age": 0xFFFFFFFF},
    "NetApiBufferFree": {},
}


class HeldNetwork:
    """Each change of a password waits. A context manager. `variables` tell programs of it; `changes` holds
    (server, old, new) of each change that was asked for so far."""

    def __init__(self):
        self.changes = []
        self._answers = queue.Queue()
        network = self

        class Handler(socketserver.StreamRequestHandler):
            def handle(self):
                reply = network._answer(json.loads(self.rfile.readline()))
                self.wfile.write(json.dumps(reply).encode("utf-8") + b"\n")

        class Listener(socketserver.ThreadingTCPServer):
            daemon_threads = True

        self._listener = Listener(("127.0.0.1", 0), Handler)
        self.variables = {"KESTRELMOOR_BRIDGE": "%s:%d" % self._listener.server_address}

    def __enter__(self):
        threading.Thread(target=self._listener.serve_forever, daemon=True).start()
        return self

    def __exit__(self, *_):
        self._listener.shutdown()
        self._listener.server_close()

    def wait_change(self, number):
        """Waits until so many changes were asked for; the last one is then held."""
        wait_until(lambda: len(self.changes) == number, "change %d asked for" % number)

    def let_go(self, code=0):
        """Answers the change that is held, or the next one."""
        self._answers.put(code)

    def _answer(self, request):
        call = request["call"]
        if call == "NetUserChangePassword":
            self.changes.append((request["domainname"], request["oldpassword"], request["newpassword"]))
            return {"code": self._answers.get()}
        if call in _HANDED_OUT:
            return {"code": 0, **_HANDED_OUT[call]}
        return {"code": _NOT_SUPPORTED}


class HeldDirectory(HeldNetwork):
    """Each bind of a directory object waits; `binds` holds the paths so far."""

    def __init__(self):
        super().__init__()
        self.binds = []

    def wait_bind(self, number):
        """Waits until so many binds were asked for; the last one is then held."""
        wait_until(lambda: len(self.binds) == number, "bind %d asked for" % number)

    def _answer(self, request):
        if request["call"] != "GetObject":
            return super()._answer(request)
        self.binds.append(request["path"])
        return {"code": self._answers.get()}


class BridgedDirectory(HeldNetwork):
    """A directory that answers for every path at once: `values` by the member's name. `calls` holds the requests so
    far."""

    def __init__(self, **values):
        super().__init__()
        self.calls = []
        self._values = values

    def _answer(self, request):
        if "path" not in request:
            return super()._answer(request)
        self.calls.append(request)
        member = request.get("name") or request["call"].removeprefix("IADsUser.")
        return {"code": 0, "value": self._values.get(member)}
