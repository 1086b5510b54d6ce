"""A bad road to a server: a proxy in the server's network that does a caller harm in one way.

    with Road(server, "hold") as road:
        ...                       # somebody changes a password on the server
        road.wait("answered")     # the server has made the change, and the caller waits for the answer
        road.let_go()

The ways: "open" passes everything on, "silent" takes connections and says nothing, "late" keeps back all that the
server says until it is let go, "hold" keeps back its answer to the change until then, "cut ahead" breaks off when the
request for the change comes and doesn't pass it on, "cut behind" passes it on and breaks off when the server's answer
comes, "cut within" breaks off ahead of the last byte of that answer, and "cut at N" breaks off when N bytes have gone
to callers; a server's word that it is still at work, which comes or not by chance, doesn't count.

A road tells what happens on it, in the order in which it happens: "connected", "asked" (the request for the
change has come), "answered" (so has the answer to it), "cut", and "passed N", the bytes to callers so far.
"""

import re
import socket
import sys
import threading
import time
from pathlib import Path

PORT = 445
ELSEWHERE = "127.0.0.2"
"""Where a road begins; it is a room of its own, so that every server has such a place."""
NOBODY = "127.0.0.3"
"""Where nobody listens."""

_PATIENCE = 60.0
_PENDING = 0x00000103
# A request for operation 63 of the account service, by the head of its record (MS-RPCE, MS-SAMR): it goes as
# nobody, and so in the clear.
_CHANGE = re.compile(rb"\x05\x00\x00[\x00-\x03]\x10\x00\x00\x00.{2}\x00\x00.{10}\x3f\x00", re.DOTALL)
_STATUS = slice(8, 12)
_MESSAGE = slice(24, 32)


class Road:
    """Calls of one operation of account_client.py, a change where none is named, take it to the server as long as it
    lives; `told` holds what it tells."""

    def __init__(self, server, way, operation="change_password"):
        self.told = []
        self._server = server
        self._operation = operation
        program = ["/usr/bin/python3", "-P", str(Path(__file__).resolve()), *way.split()]
        self._program = server.enclosure.open(program)
        self._listener = threading.Thread(target=self._listen, daemon=True)
        self._listener.start()
        try:
            self.wait("ready")
        except BaseException:
            self.close()
            raise
        server.addresses[operation] = ELSEWHERE

    def wait(self, word):
        """Waits until the road has told it."""
        deadline = time.monotonic() + _PATIENCE
        while word not in self.told:
            if time.monotonic() > deadline:
                raise TimeoutError(f"the road never told {word!r}, but {self.told}")
            time.sleep(0.01)

    def passed_with_the_answer(self):
        """The bytes that had gone to callers when the answer to the change was through."""
        self.wait("answered")
        behind = self.told[self.told.index("answered"):]
        return next(int(word.removeprefix("passed ")) for word in behind if word.startswith("passed "))

    def let_go(self):
        self._program.stdin.write("go\n")
        self._program.stdin.flush()

    def close(self):
        """Ends the road and what is on it."""
        self._server.addresses.pop(self._operation, None)
        self._program.kill()
        self._program.wait()
        self._listener.join()
        self._program.stdin.close()
        self._program.stdout.close()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def _listen(self):
        for line in self._program.stdout:
            self.told.append(line.rstrip("\n"))


class Harm:
    """What the road does, common to all its connections."""

    def __init__(self, way, limit):
        self.way = way
        self.go = threading.Event()
        self._limit = limit
        self._passed = 0
        self._lock = threading.Lock()

    def tell(self, words):
        with self._lock:
            print(words, flush=True)

    def allowed(self, count):
        """How many of so many bytes to a caller may still pass; they count as passed."""
        with self._lock:
            if self._limit is not None:
                count = min(count, self._limit - self._passed)
            self._passed += count
            print(f"passed {self._passed}", flush=True)
        return count


class Passage:
    """One connection: a caller and the server, and frames between them."""

    def __init__(self, caller, harm):
        self._caller = caller
        self._harm = harm
        self._server = socket.create_connection(("127.0.0.1", PORT))
        self._change = None

    def start(self):
        for work in (self._to_server, self._to_caller):
            threading.Thread(target=self._until_broken, args=(work,), daemon=True).start()

    def _until_broken(self, work):
        try:
            while work():
                pass
        except OSError:
            pass
        self._end()

    def _end(self):
        for link in (self._caller, self._server):
            try:
                link.shutdown(socket.SHUT_RDWR)
            except OSError:
                pass

    def _cut(self):
        self._harm.tell("cut")
        self._end()

    def _to_server(self):
        frame = read_frame(self._caller)
        if frame is None:
            return False
        if _CHANGE.search(frame):
            self._change = frame[4:][_MESSAGE]
            self._harm.tell("asked")
            if self._harm.way == "cut ahead":
                self._cut()
                return False
        self._server.sendall(frame)
        return True

    def _to_caller(self):
        frame = read_frame(self._server)
        if frame is None:
            return False
        if self._harm.way == "late":
            self._harm.go.wait()
        if is_pending(frame[4:]):
            self._caller.sendall(frame)
            return True
        if self._change is not None and frame[4:][_MESSAGE] == self._change:
            self._harm.tell("answered")
            if self._harm.way == "hold":
                self._harm.go.wait()
            if self._harm.way == "cut behind":
                self._cut()
                return False
            if self._harm.way == "cut within":
                self._caller.sendall(frame[:-1])
                self._cut()
                return False
        count = self._harm.allowed(len(frame))
        self._caller.sendall(frame[:count])
        if count < len(frame):
            self._cut()
            return False
        return True


def is_pending(message):
    """Whether a server says with it that the answer is still to come."""
    return int.from_bytes(message[_STATUS], "little") == _PENDING


def read_frame(link):
    """A whole message with the four bytes that tell its length; None at the end."""
    head = read_exactly(link, 4)
    body = head and read_exactly(link, int.from_bytes(head[1:], "big"))
    return None if body is None else head + body


def read_exactly(link, count):
    read = b""
    while len(read) < count:
        piece = link.recv(count - len(read))
        if not piece:
            return None
        read += piece
    return read


def serve(listener, harm):
    kept = []  # lest a connection be closed for want of an owner
    while True:
        caller, _ = listener.accept()
        harm.tell("connected")
        if harm.way == "silent":
            kept.append(caller)
        else:
            Passage(caller, harm).start()


def main(words):
    limit = int(words.pop()) if words[-1].isdigit() else None
    harm = Harm(" ".join(words), limit)
    listener = socket.create_server((ELSEWHERE, PORT))
    threading.Thread(target=serve, args=(listener, harm), daemon=True).start()
    harm.tell("ready")
    for _ in sys.stdin:
        harm.go.set()


if __name__ == "__main__":
    main(sys.argv[1:])
