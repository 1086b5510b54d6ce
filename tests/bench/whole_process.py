"""Moorlink.exe beside bare programs, each as a whole process in the Wine of the desktop tests.

The two programs run in turn, pair by pair. A ratio is taken within its pair; what is told is the median of the
ratios, with the quartiles.
"""

import copy
import dataclasses
import pathlib
import statistics
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parent / "desktop")]

from desktop import OUT, Desktop  # noqa: E402
from figures import Measure, print_table, quartiles, ratio_within  # noqa: E402
import practice_directory  # noqa: E402
from password_window import PROGRAM, STAND_INS, targets  # noqa: E402
from watched_network import UTC, WatchedNetwork, expires_in, places  # noqa: E402
from wine_desktop import NoWine  # noqa: E402,F401

BARE = OUT / "windows" / "bench"
SERVERS = ["\\\\ARCHIVE", "PRACTICE"]
TARGET_COUNTS = [1, 10, 100]
"""The local computer is one of them."""
SILENT_RATIO = 1.15
MEMORY = 1024
"""KB that a silent start may hold more than the bare program."""
LOOKS = 5
PATIENCE = 900.0
"""Seconds for all pairs of a case."""


@dataclasses.dataclass(frozen=True)
class Case:
    what: str
    point: str
    """Up to where it is measured, as the stopwatch names it."""
    arguments: str
    bare: str
    pairs: int


USAGE = Case("`/?` to the end of its box", "box", "/?", "bare_usage.exe", 200)
WINDOW = Case("`/f` to its painted window", "window", "/f", "bare_window.exe", 60)
SILENT_PAIRS = 200


@dataclasses.dataclass(frozen=True)
class Seen:
    """What a case has shown."""

    times: list
    """(milliseconds of ours, of the bare one) of each pair"""
    memory: list
    """(KB of ours, of the bare one) of each look"""
    alone: set
    """Libraries that only ours has loaded in some look."""


def run(desktop, stopwatch, *arguments, variables=None):
    """The lines that the watch prints."""
    watch = desktop.start(stopwatch, [str(argument) for argument in arguments], variables=variables)
    end = time.monotonic() + PATIENCE
    while (code := watch.exit_code()) is None:
        if time.monotonic() > end:
            raise TimeoutError("the pairs take more than %g seconds" % PATIENCE)
        time.sleep(0.5)
    lines = watch.output().splitlines()
    if code != 0:
        raise RuntimeError(lines[-1] if lines else "the watch ended with code %d" % code)
    return lines


def loaded(lines):
    """({lower-case names of the libraries}, working set in bytes)"""
    records = [line.split(" ", 1) for line in lines]
    memory, = [int(value) for kind, value in records if kind == "memory"]
    return {value.lower() for kind, value in records if kind == "library"}, memory


def look(desktop, case, line, variables):
    return loaded(run(desktop, BARE / "stopwatch.exe", "look", case.point, line, variables=variables))


def print_libraries(case, ours, bare):
    print_table("Libraries: " + case.what, [
        ("of both", ", ".join(sorted(ours & bare))),
        ("of ours alone", ", ".join(sorted(ours - bare)) or "none"),
        ("of the bare one alone", ", ".join(sorted(bare - ours)) or "none"),
    ])
    sys.stdout.flush()


def compare(desktop, case, pairs, variables=None):
    """`pairs` in place of the case's own number, None for that."""
    ours = ('"%s" %s' % (desktop.windows_path(PROGRAM), case.arguments)).rstrip()
    bare = '"%s" %s' % (desktop.windows_path(BARE / case.bare),
                        desktop.windows_path(PROGRAM.parent / "default.loc"))
    looks = [[look(desktop, case, line, variables) for line in (ours, bare)] for _ in range(min(LOOKS, pairs or LOOKS))]
    libraries = [set.union(*(seen[which][0] for seen in looks)) for which in (0, 1)]
    print_libraries(case, *libraries)
    lines = run(desktop, BARE / "stopwatch.exe", "time", case.point, pairs or case.pairs, ours, bare,
                variables=variables)
    return Seen([tuple(float(text) / 1000 for text in line.split("\t")) for line in lines],
                [tuple(memory / 1024 for _, memory in seen) for seen in looks], libraries[0] - libraries[1])


def time_measure(case, seen, limit):
    return ratio_within(case.what, seen.times, limit, "%.1f", "ms")


def memory_measure(case, seen):
    """Of the working sets' difference."""
    more = [one - other for one, other in seen.memory]
    middles = [quartiles(values)[1] for values in zip(*seen.memory)]
    return Measure(case.what + ", greatest working set", "%.0f KB" % middles[0], "%.0f KB" % middles[1],
                   goal="at most %d KB more; it is %.0f" % (MEMORY, statistics.median(more)),
                   met=statistics.median(more) <= MEMORY)


def library_measure(what, alone):
    return Measure(what + ", libraries that the bare program has not", ", ".join(sorted(alone)) or "none", goal="none",
                   met=not alone)


def servers(count):
    return ["\\\\SERVER%03d" % number for number in range(1, count)]


def make_network(desktop, count, with_directory):
    """A network of so many computers on which all is well."""
    def change(world):
        like = places(world)["ARCHIVE"]
        for name in servers(count):
            world["network"]["computers"].append({**copy.deepcopy(like), "name": name.lstrip("\\")})
        for name in places(world):
            expires_in(world, name, days=40)
        if with_directory:
            practice_directory.install(world)
    return WatchedNetwork(desktop, change)


def silent_measures(with_directory, pairs):
    """Of the starts with few and many targets on one road."""
    road = "directory" if with_directory else "network API"
    registration = practice_directory.REGISTRATION if with_directory else {}
    libraries = {**STAND_INS, **practice_directory.LIBRARY}
    alone = set()
    for count in TARGET_COUNTS:
        registry = {**registration, **(targets(servers(count)) if count > 1 else {})}
        with Desktop(dlls=libraries, registry=registry, variables=UTC) as desktop:
            network = make_network(desktop, count, with_directory)
            case = Case("silent start, %s, targets: %d" % (road, count), "exit", "", "bare_silent.exe", SILENT_PAIRS)
            seen = compare(desktop, case, pairs, network.variables)
        alone |= seen.alone
        yield from (time_measure(case, seen, SILENT_RATIO), memory_measure(case, seen))
    yield library_measure("silent starts, %s" % road, alone)


def measures(pairs):
    """`pairs`: of each case, None for the full numbers."""
    with Desktop(registry=targets(SERVERS)) as desktop:
        usage, window = (compare(desktop, case, pairs) for case in (USAGE, WINDOW))
    return [
        time_measure(USAGE, usage, None),
        library_measure("`/?`", usage.alone),
        time_measure(WINDOW, window, 1.5),
        *silent_measures(False, pairs),
        *silent_measures(True, pairs),
    ]
