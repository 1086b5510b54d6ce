"""What every runner of unittest tests makes of them: counts, and which of them took longest."""

import sys
import time
import unittest

TOLD = 10
"""So many of the slowest are told."""
WORTH_TELLING = 1.0
"""Seconds."""


class TimedResult(unittest.TextTestResult):
    """A test that failed in several of its parts counts once, and so does a class that could not be made ready."""

    def __init__(self, *arguments, **options):
        super().__init__(*arguments, **options)
        self.passed = 0
        self._seconds = {}
        self._before = time.monotonic()

    def startTest(self, test):
        self._add("%s, made ready" % unittest.util.strclass(type(test)))
        super().startTest(test)

    def stopTest(self, test):
        super().stopTest(test)
        self._add(test.id())

    def addSuccess(self, test):
        super().addSuccess(test)
        self.passed += 1

    def failed(self):
        trouble = [test for test, _ in self.failures + self.errors] + self.unexpectedSuccesses
        return len({getattr(test, "test_case", test).id() for test in trouble})

    def tell_slowest(self):
        slowest = sorted(self._seconds.items(), key=lambda pair: -pair[1])[:TOLD]
        for name, seconds in slowest:
            if seconds >= WORTH_TELLING:
                print("%7.1f s  %s" % (seconds, name))

    def _add(self, name):
        """The time since something was added last was this one's."""
        now = time.monotonic()
        self._seconds[name] = self._seconds.get(name, 0.0) + now - self._before
        self._before = now


def run(suite, name, verbosity):
    """Prints the closing line with the name; the exit code."""
    total = suite.countTestCases()
    runner = unittest.TextTestRunner(stream=sys.stdout, verbosity=verbosity, resultclass=TimedResult)
    result = runner.run(suite)
    result.tell_slowest()
    failed = result.failed()
    # Tests of a class or module that could not be made ready were not run: they are skipped, and it has failed.
    skipped = max(total - result.passed - failed, 0)
    print("%s: %d passed, %d failed, %d skipped" % (name, result.passed, failed, skipped), flush=True)
    return 1 if failed else 0
