"""Runs the suites of the rings named and prints one closing line for all of them.

A suite is a function that gives (passed, failed, skipped). What it has to say goes to the terminal as it runs.
"""

import json
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
OUT = ROOT / "out"
CLOSING_LINE = re.compile(r"^\w+: (\d+) passed, (\d+) failed, (\d+) skipped$", re.MULTILINE)


def build(preset, target):
    """True when it could be built."""
    configured = subprocess.run(["cmake", "--preset", preset], cwd=ROOT, stdout=subprocess.DEVNULL)
    return configured.returncode == 0 and (
        subprocess.run(["cmake", "--build", "--preset", preset, "--target", target], cwd=ROOT).returncode == 0
    )


def google_tests():
    """The native tests under the sanitizers."""
    if not build("sanitized", "all"):
        return 0, 1, 0
    counts = [0, 0, 0]
    for program in sorted((OUT / "sanitized" / "tests").glob("**/*_tests")):
        report = program.with_suffix(".json")
        report.unlink(missing_ok=True)
        subprocess.run([program, "--gtest_brief=1", "--gtest_output=json:%s" % report], cwd=ROOT)
        if not report.exists():
            print("%s ended without a report" % program.name)
            counts[1] += 1
            continue
        result = json.loads(report.read_text())
        failed = result["failures"] + result["errors"]
        skipped = sum(
            test["result"] == "SKIPPED" for suite in result["testsuites"] for test in suite["testsuite"]
        )
        counts[0] += result["tests"] - failed - skipped
        counts[1] += failed
        counts[2] += skipped
    return tuple(counts)


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
    "native": [google_tests, fuzzers, python_tests("tests/languages"), python_tests("tests/help"),
               python_tests("tests/installer"),
               python_tests("tests/lint"), python_tests("tests/mutants"), python_tests("tests/coverage")],
    "desktop": [runner("bash", "tests/desktop/run.sh")],
    "interop": [runner("bash", "tests/interop/run.sh")],
}


def main(rings):
    totals = [0, 0, 0]
    for ring in rings:
        print("== %s" % ring, flush=True)
        for suite in SUITES[ring]:
            totals = [total + count for total, count in zip(totals, suite())]
            sys.stdout.flush()
    passed, failed, skipped = totals
    print("%d passed, %d failed" % (passed, failed) + (", %d skipped" % skipped if skipped else ""))
    return 0 if failed == 0 and passed > 0 else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
