"""The logic on the practice platform: runs its benchmarks and judges those that have a goal."""

import json
import os
import pathlib
import subprocess

from figures import Measure, print_table, ratio_within, with_spread, within

PROGRAM = pathlib.Path(__file__).resolve().parent.parent.parent / "out" / "native" / "tests" / "bench" / "logic_bench"
REPETITIONS = 9
KEEPS_FREED_BLOCKS = "glibc.malloc.tcache_count=60000"
"""This computer's heap keeps seven freed blocks of a size at hand and takes longer over more, which would count as
growth. So it keeps as many as a list of 10,000 names has; Windows' heap keeps blocks by their size, too."""
UNITS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}

LARGEST_GROWTH = 12
GROWING = [
    ("`LoadTargets`", "LoadTargets"),
    ("the settings' list", "OpenTheSettingsWithServers"),
    ("loading the settings", "LoadSettingsWithServers"),
    ("saving the settings", "SaveTheSettingsWithServers"),
]

BESIDE_ITS_CALLS = ("RunOverServers", "BareCallsToServers")


def plain(name):
    """Without what says how it was measured."""
    return "/".join(part for part in name.split("/")
                    if part not in ("manual_time", "real_time") and not part.startswith("repeats:"))


def output(*options):
    return subprocess.run(
        [PROGRAM, *options], env={**os.environ, "GLIBC_TUNABLES": KEEPS_FREED_BLOCKS}, stdout=subprocess.PIPE,
        stderr=subprocess.DEVNULL, text=True, check=True).stdout


def families():
    """The names of the benchmarks, those together that stand beside each other."""
    names = dict.fromkeys(name.partition("/")[0] for name in output("--benchmark_list_tests=true").splitlines())
    return [BESIDE_ITS_CALLS, *((name,) for name in names if name not in BESIDE_ITS_CALLS)]


def runs(repetitions):
    """The records of all benchmarks. Each family has a process of its own, so that none works in the memory that
    another has left in pieces; in it the repetitions of all sizes take turns, so that what else this computer does
    comes upon all of them."""
    for names in families():
        report = output(
            "--benchmark_filter=^(%s)(/|$)" % "|".join(names), "--benchmark_format=json",
            "--benchmark_enable_random_interleaving=true",
            "--benchmark_min_time=0.1", "--benchmark_repetitions=%d" % repetitions)
        yield from json.loads(report)["benchmarks"]


def measured(records):
    """{name: [nanoseconds of each repetition]} and {name: counters}."""
    times, counters = {}, {}
    for run in records:
        if run.get("error_occurred"):
            raise RuntimeError("%s: %s" % (run["name"], run["error_message"]))
        if run["run_type"] == "iteration":
            name = plain(run["run_name"])
            times.setdefault(name, []).append(run["real_time"] * UNITS[run["time_unit"]])
            counters[name] = run
    return times, counters


def shown(nanoseconds):
    """With the unit that fits the median."""
    middle = sorted(nanoseconds)[len(nanoseconds) // 2]
    unit = next((name for name in ("s", "ms", "us") if middle >= UNITS[name]), "ns")
    scaled = [value / UNITS[unit] for value in nanoseconds]
    text = with_spread(scaled, "%.1f") if len(scaled) > 1 else "%.1f" % scaled[0]
    return text + " " + unit


def growth(times, words, name):
    many, few = ([value / UNITS["ms"] for value in times[name + count]] for count in ("/10000", "/1000"))
    pairs = list(zip(many, few))
    return ratio_within(words + ", 10,000 servers", pairs, LARGEST_GROWTH, "%.2f", "ms", "with 1,000")


def run_beside_its_calls(times, counters):
    run, bare = (name + "/1000" for name in BESIDE_ITS_CALLS)
    targets = counters[run]["targets"]
    # What the click makes ahead of the targets and behind them is no target's.
    if abs(counters[run]["calls"] - counters[bare]["calls"]) >= targets:
        return Measure("a run over 1,000 targets", "not known: it makes %d calls, the bare loop %d"
                       % (counters[run]["calls"], counters[bare]["calls"]), goal="at most 0.1 ms per target", met=False)
    own = [(one - other) / targets / UNITS["ms"] for one, other in zip(times[run], times[bare])]
    return within("a run over 1,000 targets beside its calls, per target", own, 0.1, "%.4f", "ms")


def judged(times, counters):
    guard = [value / UNITS["ms"] for value in times["UpdateOkButton/10000"]]
    fetched = [value / UNITS["ms"] for value in times["FetchEveryTextOfALibrary"]]
    texts = counters["FetchEveryTextOfALibrary"]["texts"]
    return [
        *(growth(times, words, name) for words, name in GROWING),
        within("`UpdateOkButton` with 10,000 stored passwords", guard, 1, "%.3f", "ms"),
        run_beside_its_calls(times, counters),
        within("a language library loaded and its %d texts fetched" % texts, fetched, 1, "%.3f", "ms"),
    ]


def measures(pairs):
    """`pairs`: repetitions of each benchmark, None for the full number."""
    repetitions = pairs or REPETITIONS
    times, counters = measured(runs(repetitions))
    print_table("All benchmarks of the logic, median and quartiles of %d" % repetitions,
                [(name, shown(values)) for name, values in times.items()])
    return judged(times, counters)
