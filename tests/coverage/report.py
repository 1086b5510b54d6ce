"""report.py REPORT PAGE: reads what gcovr counted, prints totals and what is not reached, and compares that with
the page's list: a line `- \`src/a.cpp\` (3): why` for each source with lines that no test reaches, and how many."""

import json
import pathlib
import re
import sys

LEAST_LINES = 0.97
LEAST_BRANCHES = 0.92
ENTRY = re.compile(r"^- `(src/[^`]+)` \((\d+)\): \S.*$")


def counts(file):
    """(lines, reached lines, branches, taken branches) and the numbers of the lines that are not reached."""
    lines = [line for line in file["lines"] if not line.get("gcovr/noncode") and not line.get("gcovr/excluded")]
    branches = [branch for line in lines for branch in line["branches"]]
    missed = [line["line_number"] for line in lines if line["count"] == 0]
    taken = sum(branch["count"] > 0 for branch in branches)
    return (len(lines), len(lines) - len(missed), len(branches), taken), missed


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
    """{source: number of lines} of the page's list, and its lines that can't be read."""
    entries = [line for line in page.split("\n") if line.startswith("- ")]
    read = [(line, ENTRY.match(line)) for line in entries]
    return {found[1]: int(found[2]) for _, found in read if found}, [line for line, found in read if not found]


def differences(missed, page):
    told, broken = listed(page)
    yield from ("can't be read: %s" % line for line in broken)
    for name in sorted(missed.keys() | told.keys()):
        if len(missed.get(name, [])) != told.get(name, 0):
            yield "%s: %d lines are not reached, %d are told" % (name, len(missed.get(name, [])), told.get(name, 0))


def share(part, whole):
    return part / whole if whole else 1.0


def main(report, page):
    totals, all_missed = [0, 0, 0, 0], {}
    for file in sorted(json.loads(pathlib.Path(report).read_text())["files"], key=lambda file: file["file"]):
        of_file, missed = counts(file)
        totals = [total + count for total, count in zip(totals, of_file)]
        if missed:
            all_missed[file["file"]] = missed
        if missed or of_file[2] != of_file[3]:
            print("%-55s lines %4d/%4d  branches %4d/%4d  %s" % (file["file"], of_file[1], of_file[0], of_file[3],
                  of_file[2], ranges(missed)))
    lines, branches = share(totals[1], totals[0]), share(totals[3], totals[2])
    print("lines %d of %d (%.1f %%), branches %d of %d (%.1f %%)" % (totals[1], totals[0], 100 * lines, totals[3],
          totals[2], 100 * branches))
    faults = ["%s: %s" % (page, fault) for fault in differences(all_missed, pathlib.Path(page).read_text())]
    if lines < LEAST_LINES or branches < LEAST_BRANCHES:
        faults.append("wanted are %.0f %% of the lines and %.0f %% of the branches" % (100 * LEAST_LINES,
                      100 * LEAST_BRANCHES))
    for fault in faults:
        print(fault)
    return 1 if faults or totals[0] == 0 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
