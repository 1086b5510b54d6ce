"""whole_process.py [BUILD]: Moorlink.exe beside bare programs, each as a whole process in the Wine of the
desktop tests. BUILD is the Windows build's folder (out/windows), in which `bare_programs` has been built.

The two programs run in turn, pair by pair. A ratio is taken within its pair; what is printed is the median of
the ratios, with the quartiles.
"""

import copy
import pathlib
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parent / "desktop"), str(HERE.parent / "lint")]

from desktop import OUT, Desktop  # noqa: E402
from figures import print_table, with_spread  # noqa: E402
from imports import LONGEST, imports  # noqa: E402
import practice_directory  # noqa: E402
from password_window import STAND_INS, targets  # noqa: E402
from watched_network import UTC, WatchedNetwork, expires_in, places  # noqa: E402
from wine_desktop import NoWine  # noqa: E402

CASES = [
    # what, point in time, arguments, bare program, pairs
    ("/? to the end of its box", "box", "/?", "bare_usage.exe", 200),
    ("/f to the painted window", "window", "/f", "bare_window.exe", 60),
]
SILENT_PAIRS = 200
TARGET_COUNTS = [1, 10, 100]
"""The local computer is one of them."""
SILENT_GOALS = [("goals", "ratio at most 1.15, no library of ours alone, working set at most 1 MB more")]
SERVERS = ["\\\\ARCHIVE", "PRACTICE"]
PATIENCE = 900.0
"""Seconds for all pairs of a case."""


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
    """({lower-case names of the libraries}, working set in bytes or None)"""
    records = [line.split(" ", 1) for line in lines]
    memory = [int(value) for kind, value in records if kind == "memory"]
    return {value.lower() for kind, value in records if kind == "library"}, memory[0] if memory else None


def print_size(program):
    size = program.stat().st_size
    print_table("Moorlink.exe", [
        ("size", "%d bytes of %d" % (size, LONGEST)),
        ("imports from", ", ".join(sorted({library for library, _ in imports(program)}))),
    ])


def compare(desktop, build, case, variables=None, goals=()):
    what, kind, arguments, bare_name, pairs = case
    stopwatch = build / "bench" / "stopwatch.exe"
    ours = ('"%s" %s' % (desktop.windows_path(build / "program" / "Moorlink.exe"), arguments)).rstrip()
    bare = '"%s" %s' % (desktop.windows_path(build / "bench" / bare_name),
                          desktop.windows_path(build / "program" / "default.loc"))
    our_libraries, our_memory = loaded(run(desktop, stopwatch, "look", kind, ours, variables=variables))
    bare_libraries, bare_memory = loaded(run(desktop, stopwatch, "look", kind, bare, variables=variables))
    lines = run(desktop, stopwatch, "time", kind, pairs, ours, bare, variables=variables)
    times = [tuple(map(float, line.split("\t"))) for line in lines]
    rows = [
        ("ratio", with_spread([one / other for one, other in times], "%.2f")),
        ("ours", with_spread([one / 1000 for one, _ in times], "%.1f") + " ms"),
        ("bare", with_spread([other / 1000 for _, other in times], "%.1f") + " ms"),
        ("libraries of both", ", ".join(sorted(our_libraries & bare_libraries))),
        ("of ours alone", ", ".join(sorted(our_libraries - bare_libraries)) or "none"),
        ("of the bare one alone", ", ".join(sorted(bare_libraries - our_libraries)) or "none"),
    ]
    if our_memory and bare_memory:
        rows.append(("working set", "%d KB, bare %d KB" % (our_memory // 1024, bare_memory // 1024)))
    print_table("%s, %d pairs" % (what, pairs), [*rows, *goals])
    sys.stdout.flush()


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


def compare_silent_starts(build):
    for with_directory in (False, True):
        road = "directory" if with_directory else "network API"
        registration = practice_directory.REGISTRATION if with_directory else {}
        for count in TARGET_COUNTS:
            libraries = {**STAND_INS, **practice_directory.LIBRARY}
            registry = {**registration, **(targets(servers(count)) if count > 1 else {})}
            with Desktop(dlls=libraries, registry=registry, variables=UTC) as desktop:
                network = make_network(desktop, count, with_directory)
                what = "silent start to its end by the %s, targets: %d" % (road, count)
                case = (what, "exit", "", "bare_silent.exe", SILENT_PAIRS)
                compare(desktop, build, case, network.variables, SILENT_GOALS)


def main(build):
    print_size(build / "program" / "Moorlink.exe")
    try:
        with Desktop(registry=targets(SERVERS)) as desktop:
            for case in CASES:
                compare(desktop, build, case)
        compare_silent_starts(build)
    except NoWine as reason:
        print("\nwhole processes were not measured: %s" % reason)


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]).resolve() if len(sys.argv) > 1 else OUT / "windows")
