"""run_tests.py [PATTERN]: runs the desktop tests (test_*.py, or those whose name holds PATTERN) and prints
one closing line. Exit code 1 when a test failed; where no Wine can be had, all of them count as skipped.

Modules run side by side, as each of their desktops has a screen and a Windows of its own and mostly waits; what one
says is printed when it has ended. `--module NAME [PATTERN]` runs one in this process."""

import concurrent.futures
import pathlib
import subprocess
import sys
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path.append(str(HERE.parent))

import timed_result  # noqa: E402
from run_rings import CLOSING_LINE  # noqa: E402
from wine_desktop import NoWine, wine_kind  # noqa: E402

AT_A_TIME = 2


def suite_of(module, patterns):
    loader = unittest.TestLoader()
    loader.testNamePatterns = ["*%s*" % pattern for pattern in patterns] or None
    return loader.discover(str(HERE), module + ".py")


def run_apart(module, patterns):
    """(passed, failed, skipped, what it said) of a module that runs in a process of its own."""
    command = [sys.executable, "-B", "-u", str(HERE / "run_tests.py"), "--module", module, *patterns]
    ended = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8",
                           errors="replace")
    counts = CLOSING_LINE.findall(ended.stdout)
    if not counts:
        return 0, 1, 0, ended.stdout + "%s ended with code %d and no closing line\n" % (module, ended.returncode)
    return *map(int, counts[-1]), ended.stdout


def main(arguments):
    if arguments[:1] == ["--module"]:
        module, *patterns = arguments[1:]
        return timed_result.run(suite_of(module, patterns), module, verbosity=2)
    sizes = {path.stem: suite_of(path.stem, arguments).countTestCases() for path in HERE.glob("test_*.py")}
    try:
        wine_kind()
    except NoWine as reason:
        print(reason)
        print("desktop: 0 passed, 0 failed, %d skipped" % sum(sizes.values()))
        return 0
    # The largest first, lest one of them runs alone at the end.
    modules = sorted((name for name in sizes if sizes[name]), key=lambda name: (-sizes[name], name))
    totals = [0, 0, 0]
    with concurrent.futures.ThreadPoolExecutor(AT_A_TIME) as workers:
        for ended in concurrent.futures.as_completed([workers.submit(run_apart, name, arguments) for name in modules]):
            *counts, said = ended.result()
            print(said, end="", flush=True)
            totals = [total + count for total, count in zip(totals, counts)]
    print("desktop: %d passed, %d failed, %d skipped" % tuple(totals))
    return 1 if totals[1] else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
