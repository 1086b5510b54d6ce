"""The tests' end of the driver's line protocol (see driver/line_protocol.h)."""

import re
import subprocess
import threading

ANSWER_PATIENCE = 180.0
"""Seconds after which a driver that does not answer counts as lost. The first answer waits for Wine, another
one for the end of a program."""


class DriverError(Exception):
    """The driver could not do what was asked; the text says why."""


def escape(field):
    marks = {"\\": "\\\\", "\t": "\\t", "\n": "\\n", "\r": "\\r"}
    return "".join(marks.get(character, character) for character in str(field))


def unescape(field):
    marks = {"t": "\t", "n": "\n", "r": "\r", "\\": "\\"}
    return re.sub(r"\\(.)", lambda match: marks[match.group(1)], field)


class Driver:
    """The running driver. `command` starts it; it ends when its standard input is closed."""

    def __init__(self, command, environment):
        self._process = subprocess.Popen(command, env=environment, stdin=subprocess.PIPE,
                                         stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self._lock = threading.Lock()

    def call(self, command, *arguments):
        """The records of the answer, each a list of texts. Raises DriverError."""
        line = "\t".join(escape(field) for field in (command, *arguments))
        with self._lock:
            self._process.stdin.write(line.encode("utf-8", "surrogatepass") + b"\n")
            self._process.stdin.flush()
            return self._read_answer(command)

    def number(self, command, *arguments):
        """The one number of the answer, or None when it holds no record."""
        records = self.call(command, *arguments)
        return int(records[0][0]) if records else None

    def _read_answer(self, command):
        # A driver that hangs is ended, which ends the reading too.
        timer = threading.Timer(ANSWER_PATIENCE, self._process.kill)
        timer.start()
        try:
            return self._read_records(command)
        finally:
            timer.cancel()

    def _read_records(self, command):
        records = []
        while True:
            line = self._process.stdout.readline().decode("utf-8")
            if not line.endswith("\n"):
                raise DriverError("%s: the driver is gone" % command)
            if line == ".\n":
                return records
            if line.startswith("!"):
                raise DriverError("%s: %s" % (command, unescape(line[1:-1])))
            records.append([unescape(field) for field in line[1:-1].split("\t")])

    def close(self):
        """Ends the driver and with it every program on its desktop."""
        try:
            self._process.stdin.close()
            self._process.wait(10)
        except (subprocess.TimeoutExpired, BrokenPipeError):
            self._process.terminate()
        try:
            self._process.wait(10)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
        self._process.stdout.close()
