"""logic.py PROGRAM: runs the benchmarks of the logic on the practice platform and prints their figures."""

import json
import subprocess
import sys

from figures import print_table, with_spread

REPETITIONS = 5
UNITS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}

GROWING = [
    ("LoadTargets", "LoadTargets"),
    ("the settings' list", "OpenTheSettingsWithServers"),
    ("saving the settings", "SaveTheSettingsWithServers"),
]


def plain(name):
    """Without what says how it was measured."""
    parts = [part for part in name.split("/") if part not in ("manual_time", "real_time") and not part.startswith("repeats:")]
    return "/".join(parts)


def output(program, *options):
    return subprocess.run(
        [program, *options], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=True).stdout


def runs(program):
    """The records of all benchmarks. Each family has a process of its own, so that none works in the memory that
    another has left in pieces."""
    families = dict.fromkeys(
        name.partition("/")[0] for name in output(program, "--benchmark_list_tests=true").splitlines())
    for family in families:
        report = output(
            program, "--benchmark_filter=^%s(/|$)" % family, "--benchmark_format=json",
            "--benchmark_min_time=0.1", "--benchmark_repetitions=%d" % REPETITIONS)
        yield from json.loads(report)["benchmarks"]


def measured(program):
    """{name: [nanoseconds of each repetition]} and {name: counters}."""
    times, counters = {}, {}
    for run in runs(program):
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


def growth(times, name):
    """How often the time with 1,000 servers goes into that with 10,000, for each repetition."""
    return [many / few for few, many in zip(times[name + "/1000"], times[name + "/10000"])]


def print_goals(times, counters):
    guard = [value / UNITS["ms"] for value in times["UpdateOkButton/10000"]]
    fetched = [value / UNITS["ms"] for value in times["FetchEveryTextOfALibrary"]]
    run, bare = "RunOverServers/1000", "BareCallsToServers/1000"
    own = [(one - other) / counters[run]["targets"] / UNITS["ms"] for one, other in zip(times[run], times[bare])]
    rows = [
        (words + ", 10,000 servers against 1,000", with_spread(growth(times, name), "%.1f") + " times",
         "goal: at most 12")
        for words, name in GROWING
    ] + [
        ("UpdateOkButton with 10,000 stored passwords", with_spread(guard, "%.3f") + " ms", "goal: at most 1"),
        ("a language library loaded and its %d texts fetched" % counters["FetchEveryTextOfALibrary"]["texts"],
         with_spread(fetched, "%.3f") + " ms", "goal: at most 1"),
        ("a run beside its calls", with_spread(own, "%.3f") + " ms per target", "goal: at most 0.1"),
    ]
    # What the click makes ahead of the targets and behind them is no target's.
    if abs(counters[run]["calls"] - counters[bare]["calls"]) >= counters[run]["targets"]:
        rows.append(("", "The run makes %d calls, the bare loop %d: what lies beside them is not known."
                     % (counters[run]["calls"], counters[bare]["calls"]), ""))
    print_table("Goals", rows)


def main(program):
    times, counters = measured(program)
    print_table("Logic on the practice platform, median and quartiles of %d" % REPETITIONS,
                [(name, shown(values)) for name, values in times.items()])
    print_goals(times, counters)


if __name__ == "__main__":
    main(sys.argv[1])
