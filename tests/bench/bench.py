"""bench.py [--pairs N] [--page FILE] PART...: measures the parts, which have been built, and prints their figures.
All parts with their full numbers of pairs are a whole run, which writes docs/figures.md. bench.sh calls it."""

import argparse
import os
import pathlib
import sys

import logic
import machine
import settings_dialog
import sizes
import tried
import whole_process
from figures import print_measures
from others import OthersWatch
from page import render

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
PAGE = ROOT / "docs" / "figures.md"

LOGIC = """\
`./bench.sh logic`: Google Benchmark on the practice platform of this computer, what stands beside each other in turns in
one process. Beside a growth stand the same steps with 1,000 servers. The heap keeps freed blocks at hand, as that of
Windows does."""

PROCESS = """\
`./bench.sh process`: `Moorlink.exe` in the Wine of the desktop tests, seen from outside, in turn with a bare program
that makes the same calls (`tests/bench/bare`)."""

TESTS = """\
`./bench.sh tests`: the fault matrix and the explorer of the windows are run. The soak's growths, in handles and bytes,
are those of its last long run (`KESTRELMOOR_SOAK=long tests/desktop/run.sh test_soak`), which
`tests/desktop/soak_record.json` keeps; flat is what grows by no more than a bare program's labels and lists do in the
heap, by no more than 64 bytes of pages for each label, which is a bound and no measure, and by one load of the English
library each time that the settings look into it. The fuzzers' runs (`tests/fuzz/run.py long NAME`) are those that
`tests/fuzz/record.json` keeps."""


def processes(pairs):
    return [*whole_process.measures(pairs), *settings_dialog.measures(pairs)]


PARTS = {
    "sizes": ("Sizes", "`./bench.sh sizes`: of the files in `out/program` and `out/installer`.",
              lambda _: sizes.measures()),
    "logic": ("Logic", LOGIC, logic.measures),
    "process": ("Whole processes", PROCESS, processes),
    "tests": ("What the tests have tried", TESTS, lambda _: tried.measures()),
}
"""Title, introduction, and what gives the measures for a number of pairs, None for the full ones."""


def arguments(given):
    parser = argparse.ArgumentParser(description=__doc__.partition(": ")[2])
    parser.add_argument("--pairs", type=int, metavar="N")
    parser.add_argument("--page", type=pathlib.Path, metavar="FILE")
    parser.add_argument("parts", nargs="+", choices=PARTS)
    options = parser.parse_args(given)
    if options.pairs is not None and options.pairs < 2:
        parser.error("quartiles want two pairs at least")
    return options


def page_of(options):
    """Where the page goes; None: nowhere, since not all of it was measured as it should be."""
    whole = set(options.parts) == set(PARTS) and options.pairs is None
    return options.page or (PAGE if whole else None)


def main(given):
    options = arguments(given)
    os.sync()  # what the builds wrote is not written beside the first figures
    sections = []
    with OthersWatch() as others:
        for part in dict.fromkeys(options.parts):
            title, introduction, measure = PARTS[part]
            sections.append((title, introduction, measure(options.pairs)))
            print_measures(title, sections[-1][2])
            sys.stdout.flush()
    print("\nOther programs took %.1f seconds of a processor in the worst minute." % others.most)
    if page := page_of(options):
        page.write_text(render(machine.description(), others.most, sections), encoding="utf-8")
        print("The page of figures: %s" % page)


if __name__ == "__main__":
    try:
        main(sys.argv[1:])
    except whole_process.NoWine as reason:
        sys.exit("bench: whole processes can't be measured: %s" % reason)
