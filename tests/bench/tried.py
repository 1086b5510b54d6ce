"""How much the fault matrix and the fuzzers have tried."""

import json
import pathlib
import re
import subprocess

from figures import Measure

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
NATIVE_TESTS = ROOT / "out" / "sanitized" / "tests" / "native" / "native_tests"
RECORD = ROOT / "tests" / "fuzz" / "record.json"
RUNS = 10_000_000
"""Of each parser."""
HOURS = 8
SESSIONS = {"sessions"}


def fault_matrix(output, code):
    """From what the tests print, and their exit code."""
    told = re.search(r"^faults: (\d+) cells tried, (\d+) held$", output, re.MULTILINE)
    if told is None:
        raise RuntimeError("the fault matrix tells no cells")
    tried, held = int(told[1]), int(told[2])
    return Measure("fault matrix", "{:,} cells tried, {:,} held".format(tried, held), goal="all held",
                   met=code == 0 and 0 < tried == held)


def fuzzers(record):
    """`record`: {name: {"runs", "seconds", "findings", "since_finding"}}, those without sanitizers apart; None where
    there is none."""
    if record is None:
        return [Measure("fuzzers", "no record")]
    return [fuzzer(name, entry) for name, entry in sorted(record.items())]


def fuzzer(name, entry):
    """Seconds are those of a processor. What counts is all that was run since the last finding, with sanitizers and
    without."""
    entries = [entry, entry["without_sanitizers"]] if "without_sanitizers" in entry else [entry]
    runs, seconds, findings = (sum(one[key] for one in entries) for key in ("runs", "seconds", "findings"))
    quiet_runs, quiet_seconds = (sum(one["since_finding"][key] for one in entries) for key in ("runs", "seconds"))
    figure = told_runs(runs, seconds)
    if len(entries) > 1:
        figure += ", {:,} of them with sanitizers".format(entry["runs"])
    figure += ", findings: %d" % findings
    if findings:
        figure += "; since the last one %s" % told_runs(quiet_runs, quiet_seconds)
    if name in SESSIONS:
        return Measure("fuzzer " + name, figure, goal="at least %d quiet hours" % HOURS,
                       met=quiet_seconds >= HOURS * 3600)
    return Measure("fuzzer " + name, figure, goal="at least {:,} quiet runs".format(RUNS), met=quiet_runs >= RUNS)


def told_runs(runs, seconds):
    return "{:,} runs in {:.1f} hours".format(runs, seconds / 3600)


def measures():
    run = subprocess.run([NATIVE_TESTS, "--gtest_brief=1", "--gtest_filter=*Fault*"], cwd=ROOT,
                         stdout=subprocess.PIPE, text=True)
    record = json.loads(RECORD.read_text(encoding="utf-8")) if RECORD.exists() else None
    return [fault_matrix(run.stdout, run.returncode), *fuzzers(record)]
