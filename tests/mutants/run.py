#!/usr/bin/env python3
"""run.py [--files PATTERN]... [--share N/M] [--resume] [--cost MS] [--jobs N]

Tries changes of the logic, one after the other, and asks the native tests of each one whether they notice. What
nobody notices is printed, unless docs/mutants.md explains it. Everything is kept in out/mutants/results.json.
"""

import argparse
import concurrent.futures
import fnmatch
import json
import os
import pathlib
import subprocess
import sys
import time
import zlib

PACKAGES = ["cmake", "ninja-build", "g++", "nlohmann-json3-dev", "libgtest-dev", "python3-polib", "gettext",
            "python3-clang-14"]

if __name__ == "__main__":
    # Ahead of the modules that stand on them.
    tools = pathlib.Path(__file__).resolve().parent.parent.parent / "tools"
    subprocess.run([tools / "install_packages.sh", *PACKAGES], check=True)

import explained
import tree
import trial

RESULTS = tree.FOLDER / "results.json"
KILLED, ALIVE, UNREACHED = "killed", "alive", "unreached"
GOAL = 0.95


def read_words(words):
    reader = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    reader.add_argument("--files", action="append", help="sources to try, as src/forms/*")
    reader.add_argument("--share", default="1/1", help="the first of ten parts: 1/10")
    reader.add_argument("--resume", action="store_true", help="keep what was killed before, try the rest")
    reader.add_argument("--cost", type=float, default=float("inf"), help="leave tests out that take more than that")
    reader.add_argument("--jobs", type=int, default=2)
    return reader.parse_args(words)


def is_chosen(point, words):
    part, parts = map(int, words.share.split("/"))
    if words.files and not any(fnmatch.fnmatch(point.file, pattern) for pattern in words.files):
        return False
    return zlib.crc32(point.key.encode()) % parts == part - 1


def lines_of(file, lines={}):
    if file not in lines:
        lines[file] = [line.strip() for line in (tree.ROOT / file).read_text(encoding="utf-8").split("\n")]
    return lines[file]


def line_of(point):
    return lines_of(point.file)[point.line - 1]


def place_of(point):
    """The number of its line among those of the same text."""
    return lines_of(point.file)[: point.line].count(line_of(point))


def known_results(numbered, resume):
    """What was killed before and stands on a line of the same text today."""
    if not resume or not RESULTS.is_file():
        return {}
    today = {point.key: line_of(point) for _, point in numbered}
    return {
        key: result
        for key, result in json.loads(RESULTS.read_text()).items()
        if result["state"] == KILLED and today.get(key) == result["text"]
    }


def judge(program, number, point, tests):
    reaching = [test for test in tests if number in test.reached]
    killer = program.what_kills(number, reaching) if reaching else None
    state = KILLED if killer else ALIVE if reaching else UNREACHED
    return {
        "state": state,
        "by": killer,
        "file": point.file,
        "line": point.line,
        "text": line_of(point),
        "place": place_of(point),
        "kind": point.kind,
        "said": point.said,
        "tests": len(reaching),
    }


def save(results):
    RESULTS.with_suffix(".new").write_text(json.dumps(results, indent=1, sort_keys=True))
    os.replace(RESULTS.with_suffix(".new"), RESULTS)


def try_all(program, chosen, results, words):
    tests = [test for test in program.record() if test.cost <= words.cost]
    begun = time.monotonic()
    asked = [(number, point) for number, point in chosen if point.key not in results]
    print("%d changes of %d to try with %d tests" % (len(asked), len(chosen), len(tests)), flush=True)
    with concurrent.futures.ThreadPoolExecutor(words.jobs) as workers:
        futures = {workers.submit(judge, program, *pair, tests): pair[1] for pair in asked}
        for done, future in enumerate(concurrent.futures.as_completed(futures), 1):
            results[futures[future].key] = future.result()
            if done % 100 == 0 or done == len(asked):
                save(results)
                print("%d tried, %.0f s" % (done, time.monotonic() - begun), flush=True)
    save(results)


def report(results, page):
    """Prints the survivors that nobody explains, and the counts of each source. True: the goal is reached, which
    counts what could be noticed."""
    survivors = [result for result in results if result["state"] != KILLED]
    unexplained = [result for result in survivors if not page.explains(result)]
    for result in sorted(unexplained, key=lambda result: (result["file"], result["line"])):
        print("%(file)s:%(line)d: %(state)s, %(kind)s, %(said)s" % result)
    print()
    for file in sorted({result["file"] for result in results}):
        of_file = [result for result in results if result["file"] == file]
        killed = sum(result["state"] == KILLED for result in of_file)
        left = sum(result["file"] == file for result in unexplained)
        print("%-45s %4d of %4d killed, %3d explained, %3d left" % (file, killed, len(of_file),
              len(of_file) - killed - left, left))
    killed = len(results) - len(survivors)
    print("%d of %d killed (%.1f %%), %d explained, %d left" % (killed, len(results), 100 * killed / len(results),
          len(survivors) - len(unexplained), len(unexplained)))
    return killed >= GOAL * (killed + len(unexplained))


def main(words):
    words = read_words(words)
    path, numbered = tree.build(words.jobs)
    chosen = [(number, point) for number, point in numbered if is_chosen(point, words)]
    if not chosen:
        print("run.py: nothing to try there", file=sys.stderr)
        return 2
    results = known_results(numbered, words.resume)
    try_all(trial.Program(path, tree.TREE), chosen, results, words)
    page = explained.Page((tree.ROOT / "docs" / "mutants.md").read_text(encoding="utf-8"))
    reached = report([results[point.key] for _, point in chosen], page)
    stale = page.unneeded(results.values()) if len(chosen) == len(numbered) else []
    for entry in stale:
        print("docs/mutants.md: needed no more: " + entry)
    return 0 if reached and not stale else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
