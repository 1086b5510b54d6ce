"""How much the fault matrix, the explorer of the windows, the soak and the fuzzers have tried."""

import json
import os
import pathlib
import re
import subprocess
import sys

from figures import Measure

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "tests" / "fuzz"))

from run import quiet  # noqa: E402

NATIVE_TESTS = ROOT / "out" / "sanitized" / "tests" / "native" / "native_tests"
FAST_TESTS = ROOT / "out" / "native" / "tests" / "native" / "native_tests"
"""The same without sanitizers, with which the explorer would take too long."""
RECORD = ROOT / "tests" / "fuzz" / "record.json"
RUNS = 10_000_000
"""Of each parser."""
DEPTH = 6
EXPLORED = re.compile(r"^explored: .*, depth (\d+): (\d+) states, (\d+) inputs, \d+ steps in \d+ starts, (\d+) unreached$",
                      re.MULTILINE)
SOAKED = ROOT / "tests" / "desktop" / "soak_record.json"
TIMES = {
    "about": 500, "about in the classic style": 500, "browse dialog": 100, "changes of language": 200,
    "password by back": 500, "password by back by the watch": 200, "settings": 500, "settings in the classic style": 500,
}
"""How often each is done at least."""
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


def explorer(output, code):
    """From what the explorer's tests print, and their exit code."""
    found = [tuple(map(int, told)) for told in EXPLORED.findall(output)]
    figure = "{:,} states and {:,} inputs from {} starts".format(
        sum(states for _, states, _, _ in found), sum(inputs for _, _, inputs, _ in found), len(found))
    met = code == 0 and bool(found) and all(depth >= DEPTH and unreached == 0 for depth, _, _, unreached in found)
    return Measure("windows explored", figure, goal="the rules hold to depth %d" % DEPTH, met=met)


def soaks(record):
    """`record`: {what was done: {"times", "growths", "faults"}}; None where there is none."""
    if record is None:
        return [Measure("soak", "no record")]
    return [soak(name, record.get(name), least) for name, least in TIMES.items()]


def soak(name, entry, least):
    goal = "flat, at least %d times" % least
    if entry is None:
        return Measure("soak, " + name, "no record", goal=goal, met=False)
    grown = ", ".join("%s %+d" % pair for pair in entry["growths"].items() if pair[1] != 0)
    return Measure("soak, " + name, "%d times; %s" % (entry["times"], grown or "nothing grew"), goal=goal,
                   met=not entry["faults"] and entry["times"] >= least)


def fuzzers(record):
    """`record`: {name: {"runs", "seconds", "findings", "alarms", "since_finding", "before_alarms"}}, those without
    sanitizers apart; None where there is none."""
    if record is None:
        return [Measure("fuzzers", "no record")]
    return [fuzzer(name, entry) for name, entry in sorted(record.items())]


def fuzzer(name, entry):
    """Seconds are those of a processor. What counts is all that was run since the last finding that was no alarm, with
    sanitizers and without."""
    entries = [entry, entry["without_sanitizers"]] if "without_sanitizers" in entry else [entry]
    runs, seconds, findings = (sum(one[key] for one in entries) for key in ("runs", "seconds", "findings"))
    figure = told_runs(runs, seconds)
    if len(entries) > 1:
        figure += ", {:,} of them with sanitizers".format(entry["runs"])
    figure += ", findings: %d" % findings
    alarms = entry.get("alarms", 0)
    if alarms:
        figure += " (%d of them alarms of a rule that asked too much)" % alarms
    if findings:
        figure += "; since the last one %s" % told_runs(*total(one["since_finding"] for one in entries))
    quiet_runs, quiet_seconds = total(map(quiet, entries))
    if alarms:
        figure += ", since the last one that was no alarm %s" % told_runs(quiet_runs, quiet_seconds)
    if name in SESSIONS:
        return Measure("fuzzer " + name, figure, goal="at least %d quiet hours" % HOURS,
                       met=quiet_seconds >= HOURS * 3600)
    return Measure("fuzzer " + name, figure, goal="at least {:,} quiet runs".format(RUNS), met=quiet_runs >= RUNS)


def total(counts):
    """Runs and seconds."""
    return tuple(map(sum, zip(*((one["runs"], one["seconds"]) for one in counts))))


def told_runs(runs, seconds):
    return "{:,} runs in {:.1f} hours".format(runs, seconds / 3600)


def native_tests(program, names, **variables):
    """What they print, and their exit code."""
    run = subprocess.run([program, "--gtest_brief=1", "--gtest_filter=" + names], cwd=ROOT, stdout=subprocess.PIPE,
                         env={**os.environ, **variables}, text=True)
    return run.stdout, run.returncode


def read(path):
    return json.loads(path.read_text(encoding="utf-8")) if path.exists() else None


def measures():
    return [
        fault_matrix(*native_tests(NATIVE_TESTS, "*Fault*")),
        explorer(*native_tests(FAST_TESTS, "*Explored*", EXPLORED_DEPTH=str(DEPTH))),
        *soaks(read(SOAKED)),
        *fuzzers(read(RECORD)),
    ]
