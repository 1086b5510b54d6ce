"""build.py --program FOLDER --out FOLDER [--version TEXT]: makes the set-up program and the package for fleets
of all that the program's folder holds. --version TEXT ("1.02.0083") stands in place of the project's own."""

import argparse
import pathlib
import shutil

from build_package import build_package
from build_setup import build_setup
from product import Program, Version, read_version


def version_of(text):
    return Version(*map(int, text.split(".")))


def main():
    parser = argparse.ArgumentParser(description=__doc__.partition(": ")[2])
    parser.add_argument("--program", required=True, metavar="FOLDER")
    parser.add_argument("--out", required=True, metavar="FOLDER")
    parser.add_argument("--version", type=version_of, metavar="TEXT")
    given = parser.parse_args()
    shutil.rmtree(given.out, ignore_errors=True)
    pathlib.Path(given.out).mkdir(parents=True)
    for build in (build_setup, build_package):
        print(build(Program(given.program), given.version or read_version(), given.out))


if __name__ == "__main__":
    main()
