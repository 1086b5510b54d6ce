"""run_tests.py [PATTERN]: runs the desktop tests (test_*.py, or those whose name holds PATTERN) and prints
one closing line. Exit code 1 when a test failed; where no Wine can be had, all of them count as skipped."""

import pathlib
import sys
import unittest

from wine_desktop import NoWine, wine_kind


class CountingResult(unittest.TextTestResult):
    """Also counts the passed ones; a class that could not be set up counts as one failure."""

    passed = 0

    def addSuccess(self, test):
        super().addSuccess(test)
        self.passed += 1

    def failed(self):
        return len(self.failures) + len(self.errors) + len(self.unexpectedSuccesses)


def main(patterns):
    loader = unittest.TestLoader()
    loader.testNamePatterns = ["*%s*" % pattern for pattern in patterns] or None
    suite = loader.discover(str(pathlib.Path(__file__).parent))
    try:
        wine_kind()
    except NoWine as reason:
        print(reason)
        print("desktop: 0 passed, 0 failed, %d skipped" % suite.countTestCases())
        return 0
    result = unittest.TextTestRunner(stream=sys.stdout, verbosity=2, resultclass=CountingResult).run(suite)
    print("desktop: %d passed, %d failed, %d skipped" % (result.passed, result.failed(), len(result.skipped)))
    return 1 if result.failed() else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
