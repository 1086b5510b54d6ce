"""report.py LINES BRANCHES PAGE: reads what llvm-cov counted, the lines in the form of lcov and the branches, which
have columns there, in its own; prints totals and, for each source, the lines that no test reaches and those with a
branch that none takes; and compares both with the page's list: a line
`- \`src/a.cpp\` (3 lines, 4 branches): why` for each source with some, and how many."""

import json
import os
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
LEAST_LINES = 0.97
LEAST_BRANCHES = 0.92
ENTRY = re.compile(r"^- `(src/[^`]+)` \((?:(\d+) lines?)?(?:, (?=\d))?(?:(\d+) branch(?:es)?)?\): \S.*$")


def source_named(name):
    return os.path.relpath(ROOT / name, ROOT)


def counted_lines(report):
    """{source: {line: count}} of what llvm-cov exports in the form of lcov"""
    files = {}
    for line in report.splitlines():
        kind, _, values = line.partition(":")
        if kind == "SF":
            lines = files.setdefault(source_named(values), {})
        elif kind == "DA":
            number, count = map(int, values.split(",")[:2])
            lines[number] = max(count, lines.get(number, 0))
    return files


def counted_branches(report):
    """{source: {(line, column, last line, last column, outcome): count}} of what llvm-cov exports in its own form; a
    branch that an instance of a template takes is taken."""
    files = {}
    for file in json.loads(report)["data"][0]["files"]:
        branches = files.setdefault(source_named(file["filename"]), {})
        for *place, true, false in (branch[:6] for branch in file["branches"]):
            for outcome, count in ((True, true), (False, false)):
                branches[*place, outcome] = branches.get((*place, outcome), 0) + count
    return files


def of_interest(source):
    return source.startswith("src/") and not source.startswith("src/platform/windows/")


def reached(counts):
    return sum(count > 0 for count in counts.values())


def ranges(numbers):
    """`3, 7-9`"""
    found = []
    for number in sorted(numbers):
        if found and found[-1][1] == number - 1:
            found[-1][1] = number
        else:
            found.append([number, number])
    return ", ".join(str(first) if first == last else "%d-%d" % (first, last) for first, last in found)


def listed(page):
    """{source: (number of lines, of branches)} of the page's list, and its lines that can't be read."""
    entries = [line for line in page.split("\n") if line.startswith("- ")]
    read = [(line, ENTRY.match(line)) for line in entries]
    told = {found[1]: (int(found[2] or 0), int(found[3] or 0)) for _, found in read if found}
    return told, [line for line, found in read if not found]


def differences(missed, page):
    told, broken = listed(page)
    yield from ("can't be read: %s" % line for line in broken)
    for name in sorted(missed.keys() | told.keys()):
        found, listed_as = missed.get(name, (0, 0)), told.get(name, (0, 0))
        for what, count, told_count in zip(("lines", "branches"), found, listed_as):
            if count != told_count:
                yield "%s: %d %s are not reached, %d are told" % (name, count, what, told_count)


def share(part, whole):
    return part / whole if whole else 1.0


def main(line_report, branch_report, page):
    totals, all_missed = [0, 0, 0, 0], {}
    all_branches = counted_branches(pathlib.Path(branch_report).read_text())
    for source, lines in sorted(counted_lines(pathlib.Path(line_report).read_text()).items()):
        if not of_interest(source):
            continue
        branches = all_branches[source]
        of_file = reached(lines), len(lines), reached(branches), len(branches)
        totals = [total + count for total, count in zip(totals, of_file)]
        missed = [number for number, count in lines.items() if count == 0]
        all_missed[source] = of_file[1] - of_file[0], of_file[3] - of_file[2]
        not_taken = sorted({branch[0] for branch, count in branches.items() if count == 0})
        if missed or not_taken:
            print("%-55s lines %4d/%4d  branches %4d/%4d  %s; %s" % (source, *of_file, ranges(missed) or "-",
                  ranges(not_taken) or "-"))
    lines, branches = share(totals[0], totals[1]), share(totals[2], totals[3])
    print("lines %d of %d (%.1f %%), branches %d of %d (%.1f %%)" % (totals[0], totals[1], 100 * lines, totals[2],
          totals[3], 100 * branches))
    faults = ["%s: %s" % (page, fault) for fault in differences(all_missed, pathlib.Path(page).read_text())]
    if lines < LEAST_LINES or branches < LEAST_BRANCHES:
        faults.append("wanted are %.0f %% of the lines and %.0f %% of the branches" % (100 * LEAST_LINES,
                      100 * LEAST_BRANCHES))
    for fault in faults:
        print(fault)
    return 1 if faults or totals[1] == 0 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
