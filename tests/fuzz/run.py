"""Runs the fuzzers.

    run.py short                               every fuzzer for a moment, what was once found first
    run.py long NAME --runs N | --seconds N    one fuzzer, on from the seeds and from what it has found interesting
    run.py minimise NAME                       adds to the seeds what has turned out to be interesting
    run.py alarm NAME                          what the last finding broke was a rule of ours that asked too much

A fuzzer is a program NAME_fuzz of the build with the preset fuzz; --plain takes the preset fuzz_plain, without
sanitizers and faster, and its runs are counted apart. seeds/NAME holds files to begin with, regressions/NAME what
was a finding once, dictionaries/NAME.dict words that its inputs are made of. What is found comes to lie in
out/fuzz/findings.
"""

import argparse
import contextlib
import fcntl
import json
import os
import pathlib
import re
import resource
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
OUT = ROOT / "out" / "fuzz"
RECORD = HERE / "record.json"
PYTHON = "/usr/bin/python3"
PO_COMPILER = "po_compiler"
"""The one fuzzer that is no program of the build; it takes the same arguments."""

SHORT_RUNS = 4000
SHORT_SECONDS = 5
CHUNK_SECONDS = 600
"""After so long the record is written, lest all is lost when a long run is broken off. Each begins with all that was ever
found interesting, which takes the sessions most of a minute."""

LARGEST_INPUT = 2048
PATIENCE = 20
"""Seconds for one input."""

DONE = re.compile(r"^stat::number_of_executed_units: *([0-9]+)", re.MULTILINE)


def names():
    return sorted([path.name.removesuffix("_fuzz.cpp") for path in HERE.glob("*_fuzz.cpp")] + [PO_COMPILER])


def files_in(folder):
    return sorted(path for path in folder.glob("*") if path.is_file())


class Fuzzer:
    def __init__(self, name, plain=False):
        self.name = name
        self.preset = "fuzz_plain" if plain else "fuzz"
        self.program = ROOT / "out" / self.preset / "tests" / "fuzz" / ("%s_fuzz" % name)
        self.seeds = HERE / "seeds" / name
        self.corpus = OUT / "corpus" / name
        self.findings = OUT / "findings" / name

    def command(self):
        return [PYTHON, str(HERE / "po_compiler.py")] if self.name == PO_COMPILER else [str(self.program)]

    def is_built(self):
        return self.name == PO_COMPILER or self.program.exists()

    def run(self, arguments):
        """The exit code, the number of inputs that were tried, and what the fuzzer said."""
        environment = {**os.environ, "ASAN_OPTIONS": "quarantine_size_mb=16:malloc_context_size=2"}
        ended = subprocess.run(
            [*self.command(), *map(str, arguments)], cwd=ROOT, env=environment, stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT
        )
        said = ended.stdout.decode("utf-8", "replace")
        done = DONE.search(said)
        return ended.returncode, int(done[1]) if done else 0, said

    def fuzz(self, folders, *bounds):
        """The first folder takes what turns out to be interesting."""
        self.findings.mkdir(parents=True, exist_ok=True)
        known = set(self.findings.iterdir())
        # To weigh inputs by how rare their ways are took a third of the time of a session.
        options = ["-print_final_stats=1", "-timeout=%d" % PATIENCE, "-max_len=%d" % LARGEST_INPUT, "-entropic=0",
                   "-artifact_prefix=%s/" % self.findings, *bounds]
        dictionary = HERE / "dictionaries" / ("%s.dict" % self.name)
        if dictionary.exists():
            options.append("-dict=%s" % dictionary)
        code, done, said = self.run(options + [folder for folder in folders if folder.is_dir()])
        return code, done, said, sorted(set(self.findings.iterdir()) - known)

    def tell(self, said, inputs):
        """What went wrong, and how to see it again."""
        print("\n".join(said.splitlines()[-40:]))
        for path in inputs:
            print("%s: to see it again: %s %s" % (self.name, " ".join(self.command()), path), flush=True)

    def try_regressions(self):
        """True: nothing that was found once is back. None: nothing was ever found."""
        inputs = files_in(HERE / "regressions" / self.name)
        if not inputs:
            return None
        code, _, said = self.run(inputs)
        if code != 0:
            self.tell(said, inputs)
        return code == 0

    def try_shortly(self):
        with tempfile.TemporaryDirectory() as fresh:
            code, done, said, found = self.fuzz(
                [pathlib.Path(fresh), self.seeds], "-seed=1", "-runs=%d" % SHORT_RUNS, "-max_total_time=%d" % SHORT_SECONDS)
        if code != 0 or done == 0:
            self.tell(said, found)
        print("%s: %d runs" % (self.name, done), flush=True)
        return code == 0 and done > 0


def run_short():
    passed = failed = 0
    for name in names():
        fuzzer = Fuzzer(name)
        if not fuzzer.is_built():
            print("%s is not there: build the target fuzzers with the preset fuzz" % fuzzer.program)
            failed += 1
            continue
        results = [result for result in (fuzzer.try_regressions(), fuzzer.try_shortly()) if result is not None]
        passed += results.count(True)
        failed += results.count(False)
    print("fuzz: %d passed, %d failed, 0 skipped" % (passed, failed))
    return 0 if failed == 0 else 1


def processor_seconds():
    """What the fuzzers that have ended took of a processor; beside other work that is less than what went by."""
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


def add(counts, more):
    for key, number in more.items():
        counts[key] = counts.get(key, 0) + number


def grow(record, name, is_plain, runs, seconds, findings):
    """One entry for each fuzzer, with the runs that were made without sanitizers apart; seconds of a processor. A finding
    puts in doubt, for both, all that was run before: what is counted begins anew."""
    entries = [record.setdefault(name, {})]
    if is_plain or "without_sanitizers" in entries[0]:
        entries.append(entries[0].setdefault("without_sanitizers", {}))
    entry = entries[-1] if is_plain else entries[0]
    add(entry, {"runs": runs, "seconds": seconds, "findings": findings})
    if findings:
        for one in entries:
            add(one.setdefault("in_doubt", {}), quiet(one))
            one.pop("before_alarms", None)
            one["since_finding"] = {"runs": 0, "seconds": 0}
    else:
        add(entry.setdefault("since_finding", {}), {"runs": runs, "seconds": seconds})


def quiet(entry):
    """What was run since the last finding that was no alarm."""
    counts = {"runs": 0, "seconds": 0}
    for part in ("since_finding", "before_alarms"):
        add(counts, entry.get(part, {}))
    return counts


def take_for_an_alarm(entry):
    """Of the last finding, where a rule of the tests asked too much and was mended by letting more through: what was run
    before it holds by the mended rule as well, and counts again."""
    if "in_doubt" not in entry:
        raise ValueError("there is no finding that waits for a judgement")
    add(entry, {"alarms": 1})
    for one in (entry, entry.get("without_sanitizers", {})):
        add(one.setdefault("before_alarms", {}), one.pop("in_doubt", {}))


@contextlib.contextmanager
def changed_record():
    """For one process at a time."""
    OUT.mkdir(parents=True, exist_ok=True)
    with open(OUT / "record.lock", "w", encoding="utf-8") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        record = json.loads(RECORD.read_text(encoding="utf-8")) if RECORD.exists() else {}
        yield record
        fresh = OUT / "record.json"
        fresh.write_text(json.dumps(record, indent=2, sort_keys=True) + "\n", encoding="utf-8")
        os.replace(fresh, RECORD)


def add_to_record(fuzzer, seed, runs, seconds, findings):
    """With the seed of a fuzzer that makes the same inputs again from it."""
    with changed_record() as record:
        grow(record, fuzzer.name, fuzzer.preset == "fuzz_plain", runs, seconds, findings)
        if fuzzer.name == PO_COMPILER:
            record[fuzzer.name].setdefault("pieces", []).append({"runs": runs, "seed": seed})


def run_long(fuzzer, runs, seconds):
    """In pieces, each with a seed of its own."""
    fuzzer.corpus.mkdir(parents=True, exist_ok=True)
    end = time.monotonic() + seconds if seconds else float("inf")
    left = runs or float("inf")
    while left > 0 and time.monotonic() < end:
        seed = time.time_ns() // 1000 % 2**31 + 1
        bounds = ["-seed=%d" % seed,
                  "-max_total_time=%d" % max(1, min(CHUNK_SECONDS, end - time.monotonic()))]
        if runs:
            bounds.append("-runs=%d" % left)
        begin = processor_seconds()
        code, done, said, found = fuzzer.fuzz([fuzzer.corpus, fuzzer.seeds], *bounds)
        add_to_record(fuzzer, seed, done, round(processor_seconds() - begin), int(code != 0))
        if code != 0 or done == 0:
            fuzzer.tell(said, found)
            return 1
        left -= done
        print("%s: %d runs more" % (fuzzer.name, done), flush=True)
    return 0


def minimise(fuzzer):
    """The seeds get what the corpus reaches and they don't, in as few and small files as that takes."""
    fuzzer.seeds.mkdir(parents=True, exist_ok=True)
    # How often a place is reached does not count, which would keep five times as many files.
    code, _, said = fuzzer.run(["-merge=1", "-use_counters=0", fuzzer.seeds, fuzzer.corpus])
    if code != 0:
        fuzzer.tell(said, [])
        return 1
    kept = files_in(fuzzer.seeds)
    print("%s: %d files, %d bytes" % (fuzzer.seeds, len(kept), sum(path.stat().st_size for path in kept)))
    return 0


def judge_as_alarm(name):
    try:
        with changed_record() as record:
            take_for_an_alarm(record.get(name, {}))
    except ValueError as error:
        print("%s: %s" % (name, error), file=sys.stderr)
        return 2
    return 0


def main(arguments=None):
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    modes = parser.add_subparsers(dest="mode", required=True)
    modes.add_parser("short")
    long_mode = modes.add_parser("long")
    bound = long_mode.add_mutually_exclusive_group(required=True)
    bound.add_argument("--runs", type=int)
    bound.add_argument("--seconds", type=int)
    long_mode.add_argument("--plain", action="store_true", help="the build without sanitizers")
    long_mode.add_argument("name", choices=names())
    modes.add_parser("minimise").add_argument("name", choices=[name for name in names() if name != PO_COMPILER])
    modes.add_parser("alarm").add_argument("name", choices=names())
    options = parser.parse_args(arguments)
    if options.mode == "short":
        return run_short()
    if options.mode == "alarm":
        return judge_as_alarm(options.name)
    fuzzer = Fuzzer(options.name, options.mode == "long" and options.plain)
    if not fuzzer.is_built():
        parser.error("%s is not there: build the target fuzzers with the preset %s" % (fuzzer.program, fuzzer.preset))
    return run_long(fuzzer, options.runs, options.seconds) if options.mode == "long" else minimise(fuzzer)


if __name__ == "__main__":
    sys.exit(main())
