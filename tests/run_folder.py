"""Runs the unittest modules of a folder and closes with a line of counts: `name: N passed, N failed, N skipped`."""

import pathlib
import sys
import unittest


def main(folder):
    sys.path.insert(0, str(folder))
    suite = unittest.defaultTestLoader.discover(str(folder))
    result = unittest.TextTestRunner(stream=sys.stdout, verbosity=1).run(suite)
    failed = len(result.failures) + len(result.errors) + len(result.unexpectedSuccesses)
    skipped = len(result.skipped)
    print("%s: %d passed, %d failed, %d skipped" % (folder.name, result.testsRun - failed - skipped, failed, skipped))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve()))
