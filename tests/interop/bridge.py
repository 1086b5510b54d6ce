"""Carries the network management and directory calls of a Windows program over to the real servers.

Listens on 127.0.0.1. A call is one JSON line with the call's name and arguments as the API names them, the
answer one JSON line with "code", the API's return value, and what a call that succeeded hands out:

    {"call": "NetUserChangePassword", "domainname": "\\\\\\\\DC1", "username": null,
     "oldpassword": "...", "newpassword": "..."}          ->  {"code": 86}

Passwords stay in memory: they are in `changes`, but in no file, on no command line and not in `record`.

Run by itself it makes the servers too, prints the place where it listens and then every call, and takes all
of it down when its standard input ends.
"""

import json
import socketserver
import sys
import threading
from typing import NamedTuple

import windows_codes as codes
from directory import Directory
from enclosure import obstacle
from servers import DOMAIN, USER, Network

_SECRETS = {"oldpassword", "newpassword"}
_SUPPORTED_LEVEL = {
    "NetWkstaUserGetInfo": 0,
    "NetWkstaGetInfo": 100,
    "NetUserGetInfo": 3,
    "NetUserModalsGet": 0,
}


class Change(NamedTuple):
    """A change that a server was asked for, and the code that its caller was given."""

    server: object
    user: str
    old: str
    new: str
    code: int


class Bridge:
    """`address` is where it listens; `asked` holds the calls that have come, `record` those that were answered,
    each with its "code", and `told` is called with each. `changes` holds what was asked of servers. A computer's
    name (in lower case, without backslashes) that stands in `misnamed` leads to the server given there.

    The program's user is logged on as `user_name` at `computer_name`, which is in no domain. On each server
    the session has the password that the server began with, or the last one that came over the bridge.
    """

    def __init__(self, network, user_name=USER, computer_name="DESK1", workgroup="WORKGROUP", told=None):
        self.asked = []
        self.record = []
        self.changes = []
        self.misnamed = {}
        self._told = told or (lambda call: None)
        self._network = network
        self._user_name = user_name
        self._computer_name = computer_name
        self._workgroup = workgroup
        self._session_passwords = {server.name: server.first_password for server in network.servers}
        self._directory = Directory(self)
        self._one_at_a_time = threading.Lock()
        self._listener = _Listener(self.answer)
        self.address = "%s:%d" % self._listener.server_address
        self._thread = threading.Thread(target=self._listener.serve_forever, daemon=True)
        self._thread.start()

    def answer(self, request):
        """Makes the call. A call or level that the bridge doesn't know is refused as the API does it."""
        call = request["call"]
        shown = {key: value for key, value in request.items() if key not in _SECRETS}
        self.asked.append(shown)
        with self._one_at_a_time:
            if request.get("level") != _SUPPORTED_LEVEL.get(call):
                reply = {"code": codes.ERROR_INVALID_LEVEL}
            elif call in self._CALLS:
                reply = self._CALLS[call](self, request)
            elif call in Directory.CALLS:
                reply = self._directory.answer(request)
            else:
                reply = {"code": codes.ERROR_NOT_SUPPORTED}
            self.record.append({**shown, "code": reply["code"]})
            self._told(self.record[-1])
        return reply

    def close(self):
        self._listener.shutdown()
        self._listener.server_close()
        self._thread.join()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def server_of_place(self, place):
        """The server that holds the accounts of a computer or domain; None for an unknown name."""
        if place.lower() in self._network.controller.domain_names:
            return self._server(self._network.controller.name)
        return self._server(place)

    def _server(self, name):
        wanted = (name or self._computer_name).removeprefix("\\\\").lower()
        if wanted in self.misnamed:
            return self.misnamed[wanted]
        return next((server for server in self._network.servers if wanted in server.names), None)

    def query(self, server, operation, **arguments):
        """An account call in the user's session; the answer as the API gives it."""
        if server is None:
            return {"code": codes.ERROR_BAD_NETPATH}
        password = self._session_passwords[server.name]
        session = {"session_user": self._user_name, "session_password": password}
        answer = server.call(operation, **session, **arguments)
        return {"code": codes.code_of_status(answer["status"]), **(answer.get("value") or {})}

    def change_password(self, server, user, old, new):
        """A change of the user's own password; the code as the API gives it."""
        if server is None:
            return {"code": codes.ERROR_BAD_NETPATH}
        answer = server.call("change_password", user=user, old=old, new=new)
        if answer["status"] == 0 and user == self._user_name:
            self._session_passwords[server.name] = new
        self.changes.append(Change(server, user, old, new, codes.code_of_status(answer["status"])))
        return {"code": self.changes[-1].code}

    def _change_own_password(self, request):
        old, new = request["oldpassword"], request["newpassword"]
        if old is None or new is None:
            return {"code": codes.ERROR_INVALID_PARAMETER}
        user = request["username"] or self._user_name
        return self.change_password(self._server(request["domainname"]), user, old, new)

    def _user_info(self, request):
        return self.query(self._server(request["servername"]), "user_info", user=request["username"])

    def _modals(self, request):
        return self.query(self._server(request["servername"]), "modals")

    def _workstation_user(self, _request):
        return {"code": 0, "username": self._user_name}

    def _workstation(self, _request):
        return {"code": 0, "computername": self._computer_name, "langroup": self._workgroup}

    def _controller_name(self, request):
        if (request["domainname"] or "").upper() != DOMAIN:
            return {"code": codes.NERR_DCNotFound}
        return {"code": 0, "name": "\\\\" + self._network.controller.name}

    def _controller(self, request):
        if (request["domainname"] or "").lower() not in self._network.controller.domain_names:
            return {"code": codes.ERROR_NO_SUCH_DOMAIN}
        return {"code": 0, "name": "\\\\" + self._network.controller.dns_name}

    def _buffer_freed(self, _request):
        return {"code": 0}

    _CALLS = {
        "NetWkstaUserGetInfo": _workstation_user,
        "NetWkstaGetInfo": _workstation,
        "NetGetDCName": _controller_name,
        "DsGetDcNameW": _controller,
        "NetUserGetInfo": _user_info,
        "NetUserModalsGet": _modals,
        "NetUserChangePassword": _change_own_password,
        "NetApiBufferFree": _buffer_freed,
    }


class _Listener(socketserver.ThreadingTCPServer):
    daemon_threads = True
    allow_reuse_address = True

    def __init__(self, answer):
        super().__init__(("127.0.0.1", 0), _Conversation)
        self.answer = answer


class _Conversation(socketserver.StreamRequestHandler):
    def handle(self):
        for line in self.rfile:
            reply = self.server.answer(json.loads(line))
            self.wfile.write(json.dumps(reply).encode("ascii") + b"\n")


def main():
    trouble = obstacle()
    if trouble:
        sys.exit(trouble)

    def tell(call):
        print(json.dumps(call), flush=True)

    with Network() as network, Bridge(network, told=tell) as bridge:
        print(f"KESTRELMOOR_BRIDGE={bridge.address}", flush=True)
        sys.stdin.read()


if __name__ == "__main__":
    main()
