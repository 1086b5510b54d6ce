"""Runs the suites of the rings named and prints one closing line for all of them.

Each ring is a process of its own, and they run side by side: most of what the desktop and the servers do is to wait,
while the native ring, which steps back for them, has something to do. The first ring speaks as it runs; what another
one says is kept until those ahead of it have ended. Whoever breaks off the run ends its rings.

A suite is a function that gives (passed, failed, skipped). What it has to say goes to the terminal as it runs.
"""

import json
import os
import pathlib
import queue
import re
import signal
import subprocess
import sys
import threading
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
OUT = ROOT / "out"
CLOSING_LINE = re.compile(r"^\w+: (\d+) passed, (\d+) failed, (\d+) skipped$", re.MULTILINE)


def build(preset, target):
    """True when it could be built."""
    configured = subprocess.run(["cmake", "--preset", preset], cwd=ROOT, stdout=subprocess.DEVNULL)
    return configured.returncode == 0 and (
        subprocess.run(["cmake", "--build", "--preset", preset, "--target", target], cwd=ROOT).returncode == 0
    )


def google_test(program):
    """A test program under the sanitizers, which look for leaks when the tests are over."""
    report = program.with_suffix(".json")
    report.unlink(missing_ok=True)
    code = subprocess.run([program, "--gtest_brief=1", "--gtest_output=json:%s" % report], cwd=ROOT).returncode
    if not report.exists():
        print("%s ended with code %d and no report" % (program.name, code))
        return 0, 1, 0
    result = json.loads(report.read_text())
    failed = result["failures"] + result["errors"]
    skipped = sum(test["result"] == "SKIPPED" for suite in result["testsuites"] for test in suite["testsuite"])
    passed = result["tests"] - failed - skipped
    if code != 0 and failed == 0:
        print("%s ended with code %d behind its tests" % (program.name, code))
        failed = 1
    return passed, failed, skipped


def google_tests():
    """The native tests."""
    if not build("sanitized", "all"):
        return 0, 1, 0
    programs = sorted((OUT / "sanitized" / "tests").glob("**/*_tests"))
    return tuple(map(sum, zip((0, 0, 0), *map(google_test, programs))))


def runner(*command):
    """A program of its own, which closes with a line of counts."""

    def run():
        ended = subprocess.Popen(command, cwd=ROOT, stdout=subprocess.PIPE, text=True)
        counts = None
        for line in ended.stdout:
            sys.stdout.write(line)
            sys.stdout.flush()
            counts = CLOSING_LINE.match(line) or counts
        code = ended.wait()
        if counts is None:
            print("%s ended with code %d and no closing line" % (" ".join(command), code))
            return 0, 1, 0
        passed, failed, skipped = map(int, counts.groups())
        return passed, failed if code == 0 or failed else 1, skipped

    return run


def python_tests(folder):
    """The unittest modules of a folder."""
    return runner("/usr/bin/python3", "tests/run_folder.py", folder)


def fuzzers():
    """Each of them for a moment."""
    if not build("fuzz", "fuzzers"):
        return 0, 1, 0
    return runner("/usr/bin/python3", "tests/fuzz/run.py", "short")()


SUITES = {
    "native": {
        "tests/native": google_tests,
        "tests/fuzz": fuzzers,
        **{folder: python_tests(folder) for folder in (
            "tests/languages", "tests/help", "tests/installer", "tests/lint", "tests/rings", "tests/mutants",
            "tests/coverage")},
    },
    "desktop": {"tests/desktop": runner("bash", "tests/desktop/run.sh")},
    "interop": {"tests/interop": runner("bash", "tests/interop/run.sh")},
}
STEPS_BACK = {"native": 10}
"""Nice values beside other rings."""
LAST_WORDS = 10.0
"""Seconds for a ring to end by itself."""


def run_suites(name, suites):
    """One ring, in this process."""
    totals = [0, 0, 0]
    for suite, run in suites.items():
        begun = time.monotonic()
        totals = [total + count for total, count in zip(totals, run())]
        print("-- %s: %.0f s" % (suite, time.monotonic() - begun), flush=True)
    print("%s: %d passed, %d failed, %d skipped" % (name, *totals), flush=True)


class Ring:
    """A ring that runs in a process, and in a process group, of its own."""

    def __init__(self, name, command, nice=0):
        self.name = name
        self.counts = None
        self._process = subprocess.Popen(
            ["nice", "-n", str(nice), *command], cwd=ROOT, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT, encoding="utf-8", errors="replace", start_new_session=True
        )
        self._lines = queue.SimpleQueue()
        threading.Thread(target=self._listen, daemon=True).start()

    def _listen(self):
        for line in self._process.stdout:
            self._lines.put(line)
        self._lines.put(None)

    def speak(self):
        """Passes on what it says until it has ended."""
        print("== %s" % self.name, flush=True)
        while (line := self._lines.get()) is not None:
            sys.stdout.write(line)
            sys.stdout.flush()
            counts = CLOSING_LINE.match(line)
            if counts and line.startswith(self.name + ":"):
                self.counts = tuple(map(int, counts.groups()))
        code = self._process.wait()
        if self.counts is None or code != 0:
            print("%s ended with code %d" % (self.name, code))
            self.counts = tuple(map(sum, zip(self.counts or (0, 0, 0), (0, 1, 0))))

    def end(self):
        """By its group's id, with all that it started; nothing where it has ended."""
        if self._process.poll() is not None:
            return
        group = self._process.pid
        os.killpg(group, signal.SIGTERM)
        deadline = time.monotonic() + LAST_WORDS
        try:
            while time.monotonic() < deadline:
                self._process.poll()
                os.killpg(group, 0)
                time.sleep(0.05)
            os.killpg(group, signal.SIGKILL)
        except ProcessLookupError:
            pass
        self._process.wait()


def run_side_by_side(commands):
    """The sums of (passed, failed, skipped) of {ring: its command}."""
    rings = []
    try:
        for name, command in commands.items():
            rings.append(Ring(name, command, STEPS_BACK.get(name, 0) if len(commands) > 1 else 0))
        for ring in rings:
            ring.speak()
    finally:
        for ring in rings:
            ring.end()
    return tuple(map(sum, zip(*(ring.counts for ring in rings))))


def close(passed, failed, skipped):
    """Prints the closing line; the exit code."""
    print("%d passed, %d failed" % (passed, failed) + (", %d skipped" % skipped if skipped else ""), flush=True)
    return 0 if failed == 0 and passed > 0 else 1


def break_off(number, _):
    sys.exit(128 + number)


def run(commands):
    for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, break_off)
    return close(*run_side_by_side(commands))


def main(arguments):
    if arguments[0] == "--alone":
        run_suites(arguments[1], SUITES[arguments[1]])
        return 0
    itself = [sys.executable, "-u", str(pathlib.Path(__file__).resolve()), "--alone"]
    return run({ring: [*itself, ring] for ring in dict.fromkeys(arguments)})


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
