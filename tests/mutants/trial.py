"""Runs a changed test program: once to see which test reaches which point, then once for each change."""

import dataclasses
import pathlib
import re
import resource
import signal
import subprocess
import tempfile

FAILED = re.compile(r"^\[  FAILED  \] ([^\s,]+)", re.MULTILINE)
MEMORY = 2 << 30
FIRST_BATCH_MS = 200


@dataclasses.dataclass(frozen=True)
class Test:
    """A test with what it costs, in milliseconds of the processor, and the numbers that it reaches."""

    name: str
    cost: float
    reached: frozenset


def read_notes(path):
    tests = []
    for line in path.read_text().splitlines():
        name, cost, *numbers = line.split(" ")
        tests.append(Test(name, float(cost), frozenset(map(int, numbers))))
    return tests


class Program:
    """A test program that holds all changes, of which none or one is tried in a run."""

    def __init__(self, path, folder):
        self.path = pathlib.Path(path)
        self.folder = folder

    def record(self):
        """Its tests with what they reach, fastest first. All of them have to pass while nothing is changed."""
        with tempfile.TemporaryDirectory() as folder:
            notes = pathlib.Path(folder) / "notes"
            ended = self.run({"MUTANT_NOTES": str(notes)}, ["--gtest_brief=1"])
            if ended.returncode != 0:
                raise RuntimeError("The tests fail without a change:\n" + ended.stdout[-2000:])
            return sorted(read_notes(notes), key=lambda test: test.cost)

    def run(self, environment, words, seconds=None, wait=None):
        """`seconds` of the processor are allowed, and `wait` seconds by the clock."""

        def limit():
            if seconds is not None:
                resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds + 5))
                resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

        return subprocess.run(
            [self.path, *words],
            cwd=self.folder,
            env={"PATH": "/usr/bin:/bin", **environment},
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            text=True,
            errors="replace",
            preexec_fn=limit,
            timeout=wait,
        )

    def what_kills(self, number, tests):
        """The first test that a change turns red, with how; none: it passes all of them."""
        for batch in batches(tests):
            killer = self.fails(number, batch)
            if killer:
                return killer
        return None

    def fails(self, number, batch):
        # Ten times what it takes by itself, of the processor; by the clock it may have to wait for others.
        seconds = 2 + int(sum(test.cost for test in batch) / 100)
        with tempfile.NamedTemporaryFile("w") as flags:
            flags.write("--gtest_filter=%s\n--gtest_fail_fast=1\n" % ":".join(test.name for test in batch))
            flags.flush()
            words = ["--gtest_flagfile=" + flags.name]
            try:
                ended = self.run({"MUTANT": str(number)}, words, seconds, 100 * seconds)
            except subprocess.TimeoutExpired:
                return "waits for ever"
        if ended.returncode == 0:
            return None
        if ended.returncode < 0:
            last = re.findall(r"^\[ RUN      \] (\S+)", ended.stdout, re.MULTILINE)[-1:]
            name = "time limit" if -ended.returncode == signal.SIGXCPU else signal.Signals(-ended.returncode).name
            return " ".join(last + [name])
        failed = FAILED.search(ended.stdout)
        return failed.group(1) if failed else "code %d" % ended.returncode


def batches(tests):
    """The tests in runs that grow, so that the quick ones have their say first."""
    batch, cost, most = [], 0.0, FIRST_BATCH_MS
    for test in tests:
        if batch and cost + test.cost > most:
            yield batch
            batch, cost, most = [], 0.0, most * 4
        batch.append(test)
        cost += test.cost
    if batch:
        yield batch
