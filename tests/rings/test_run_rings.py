"""The runner of the rings, tried on rings that are made up."""

import contextlib
import io
import pathlib
import signal
import subprocess
import sys
import tempfile
import time
import unittest

TESTS = pathlib.Path(__file__).resolve().parent.parent
sys.path.append(str(TESTS))

import run_rings  # noqa: E402

PATIENCE = 60.0
# Each waits for the other's file: in turn they would never end.
MEETING = """
import pathlib, sys, time
folder, mine, other, passed = sys.argv[1:]
print("first of", mine, flush=True)
(pathlib.Path(folder) / mine).touch()
while not (pathlib.Path(folder) / other).exists():
    time.sleep(0.01)
print("last of", mine)
print("another: 9 passed, 9 failed, 9 skipped")
print("%s: %s passed, 1 failed, 2 skipped" % (mine, passed))
"""
# Tells what it started, and waits with it.
WITH_A_CHILD = """
import pathlib, subprocess, sys
child = subprocess.Popen(["sleep", "600"])
told = pathlib.Path(sys.argv[1])
told.with_suffix(".new").write_text(str(child.pid))
told.with_suffix(".new").rename(told)
child.wait()
"""
BROKEN_OFF = """
import sys
sys.path.append(%r)
import run_rings
child = %r
sys.exit(run_rings.run({path: [sys.executable, "-c", child, path] for path in sys.argv[1:]}))
""" % (str(TESTS), WITH_A_CHILD)


# A program of GoogleTest's: of three tests one is left out; how many fail (-1: no report), and its code.
GOOGLE_TEST = """#!%s
import json, sys
report = next(word for word in sys.argv if word.startswith("--gtest_output=json:")).partition(":")[2]
tests = [{"result": "COMPLETED"}, {"result": "COMPLETED"}, {"result": "SKIPPED"}]
failures = %d
if failures >= 0:
    with open(report, "w") as file:
        json.dump({"tests": 3, "failures": failures, "errors": 0, "testsuites": [{"testsuite": tests}]}, file)
sys.exit(%d)
"""


def program(text, *arguments):
    return [sys.executable, "-c", text, *arguments]


def program_output(text):
    return subprocess.run(program(text), stdout=subprocess.PIPE, check=True, text=True).stdout


def runs(process):
    """A process that has ended, and that nobody has asked about, runs no longer."""
    try:
        return pathlib.Path("/proc/%d/stat" % process).read_text(encoding="ascii").rpartition(") ")[2][0] != "Z"
    except FileNotFoundError:
        return False


class GoogleTests(unittest.TestCase):
    def run_one(self, failures, code):
        with tempfile.TemporaryDirectory() as folder, contextlib.redirect_stdout(io.StringIO()):
            made = pathlib.Path(folder) / "made_up_tests"
            made.write_text(GOOGLE_TEST % (sys.executable, failures, code))
            made.chmod(0o755)
            return run_rings.google_test(made)

    def test_are_counted_as_they_report(self):
        self.assertEqual((2, 0, 1), self.run_one(0, 0))
        self.assertEqual((1, 1, 1), self.run_one(1, 1))

    def test_that_end_with_a_leak_behind_them_have_failed(self):
        self.assertEqual((2, 1, 1), self.run_one(0, 23))

    def test_without_a_report_have_failed(self):
        self.assertEqual((0, 1, 0), self.run_one(-1, 0))


class Rings(unittest.TestCase):
    def run_all(self, commands):
        """The counts, and what is printed."""
        printed = io.StringIO()
        with contextlib.redirect_stdout(printed):
            counts = run_rings.run_side_by_side(commands)
        return counts, printed.getvalue()

    def test_they_run_side_by_side_and_each_speaks_as_a_whole(self):
        with tempfile.TemporaryDirectory() as folder:
            counts, printed = self.run_all({
                "one": program(MEETING, folder, "one", "two", "3"),
                "two": program(MEETING, folder, "two", "one", "40"),
            })
        self.assertEqual((43, 2, 4), counts)
        another = "another: 9 passed, 9 failed, 9 skipped\n"
        self.assertEqual(
            "== one\nfirst of one\nlast of one\n" + another + "one: 3 passed, 1 failed, 2 skipped\n"
            "== two\nfirst of two\nlast of two\n" + another + "two: 40 passed, 1 failed, 2 skipped\n",
            printed,
        )

    def test_one_that_tells_no_counts_has_failed(self):
        counts, printed = self.run_all({"one": program("print('no counts')")})
        self.assertEqual((0, 1, 0), counts)
        self.assertEqual("== one\nno counts\none ended with code 0\n", printed)

    def test_one_that_ends_with_a_code_has_failed_beside_what_it_tells(self):
        told = "import sys; print('one: 5 passed, 0 failed, 1 skipped'); sys.exit(3)"
        counts, _ = self.run_all({"one": program(told)})
        self.assertEqual((5, 1, 1), counts)

    def test_the_native_ring_steps_back_for_others_only(self):
        asked = "import os; print('native: %d passed, 0 failed, 0 skipped' % os.nice(0))"
        own = int(program_output("import os; print(os.nice(0))"))
        self.assertEqual((own, 0, 0), self.run_all({"native": program(asked)})[0])
        other = program("print('other: 0 passed, 0 failed, 0 skipped')")
        counts, _ = self.run_all({"native": program(asked), "other": other})
        self.assertEqual((min(own + 10, 19), 0, 0), counts)


class TheClosingLine(unittest.TestCase):
    def close(self, *counts):
        printed = io.StringIO()
        with contextlib.redirect_stdout(printed):
            code = run_rings.close(*counts)
        return code, printed.getvalue()

    def test_tells_the_sums_and_the_code_whether_all_is_well(self):
        self.assertEqual((0, "5 passed, 0 failed\n"), self.close(5, 0, 0))
        self.assertEqual((0, "5 passed, 0 failed, 2 skipped\n"), self.close(5, 0, 2))
        self.assertEqual((1, "5 passed, 1 failed\n"), self.close(5, 1, 0))
        self.assertEqual((1, "0 passed, 0 failed, 7 skipped\n"), self.close(0, 0, 7))


class BreakingOff(unittest.TestCase):
    def test_it_ends_every_ring_with_what_that_started(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            with self.subTest(number), tempfile.TemporaryDirectory() as folder:
                told = [pathlib.Path(folder) / name for name in ("one", "two")]
                runner = subprocess.Popen(program(BROKEN_OFF, *map(str, told)), stdout=subprocess.DEVNULL)
                self.addCleanup(runner.wait)
                self.addCleanup(runner.kill)
                self.wait_for(lambda told=told: all(path.exists() for path in told))
                children = [int(path.read_text()) for path in told]
                self.assertEqual([True, True], [runs(child) for child in children])
                runner.send_signal(number)
                self.assertEqual(128 + number, runner.wait(PATIENCE))
                self.wait_for(lambda children=children: not any(runs(child) for child in children))

    def wait_for(self, condition):
        deadline = time.monotonic() + PATIENCE
        while not condition():
            self.assertLess(time.monotonic(), deadline)
            time.sleep(0.01)


if __name__ == "__main__":
    unittest.main()
