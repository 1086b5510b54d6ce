"""Runs the unittest modules of a folder and closes with a line of counts: `name: N passed, N failed, N skipped`."""

import pathlib
import sys
import unittest

import timed_result


def main(folder):
    sys.path.insert(0, str(folder))
    suite = unittest.defaultTestLoader.discover(str(folder))
    return timed_result.run(suite, folder.name, verbosity=1)


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve()))
