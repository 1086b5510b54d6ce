"""Runs the tests of this folder and prints the closing line. Arguments pick tests by a part of their name."""

import sys
import unittest
from pathlib import Path

from enclosure import obstacle


class Tally(unittest.TextTestResult):
    """Knows each test's end, so that parts of a test and what a whole module could not do count rightly."""

    def __init__(self, *arguments, **options):
        super().__init__(*arguments, **options)
        self.passed = 0

    def addSuccess(self, test):
        super().addSuccess(test)
        self.passed += 1


def failures(result):
    """What failed, each test once however many of its parts did."""
    trouble = [test for test, _ in result.failures + result.errors] + result.unexpectedSuccesses
    return {getattr(test, "test_case", test).id() for test in trouble}


def main():
    loader = unittest.TestLoader()
    loader.testNamePatterns = [f"*{word}*" for word in sys.argv[1:]] or None
    suite = loader.discover(str(Path(__file__).parent))
    total = suite.countTestCases()
    trouble = obstacle()
    if trouble:
        print(f"The tests against real servers are skipped: {trouble}")
        print(f"interop: 0 passed, 0 failed, {total} skipped")
        return 0
    runner = unittest.TextTestRunner(stream=sys.stdout, verbosity=2, resultclass=Tally)
    result = runner.run(suite)
    failed = len(failures(result))
    # Tests of a module that could not be made ready were not run: they are skipped, the module has failed.
    skipped = max(total - result.passed - failed, 0)
    print(f"interop: {result.passed} passed, {failed} failed, {skipped} skipped")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
