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
NO_PARSERS = {"sessions"}


def fault_matrix(output, code):
    """From what the tests print, and their exit code."""
    told = re.search(r"^faults: (\d+) cells tried, (\d+) held$", output, re.MULTILINE)
    if told is None:
        raise RuntimeError("the fault matrix tells no cells")
    tried, held = int(told[1]), int(told[2])
    return Measure("fault matrix", "{:,} cells tried, {:,} held".format(tried, held), goal="all held",
                   met=code == 0 and 0 < tried == held)


def fuzzers(record):
    """`record`: {name: {"runs", "seconds", "findings"}}, or None where there is none."""
    if record is None:
        return [Measure("fuzzers", "no record")]
    return [fuzzer(name, entry) for name, entry in sorted(record.items())]


def fuzzer(name, entry):
    findings = entry["findings"]
    number = findings if isinstance(findings, int) else len(findings)
    figure = "{:,} runs in {:.1f} hours, findings: {}".format(entry["runs"], entry["seconds"] / 3600, number)
    if name in NO_PARSERS:
        return Measure("fuzzer " + name, figure)
    return Measure("fuzzer " + name, figure, goal="at least {:,} runs".format(RUNS), met=entry["runs"] >= RUNS)


def measures():
    run = subprocess.run([NATIVE_TESTS, "--gtest_brief=1", "--gtest_filter=*Fault*"], cwd=ROOT,
                         stdout=subprocess.PIPE, text=True)
    record = json.loads(RECORD.read_text(encoding="utf-8")) if RECORD.exists() else None
    return [fault_matrix(run.stdout, run.returncode), *fuzzers(record)]
