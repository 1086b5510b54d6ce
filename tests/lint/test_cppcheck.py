"""cppcheck over all sources of the program; `cppcheck_suppressions.txt` says what is left and why."""

import pathlib
import subprocess
import tempfile
import unittest

from sources import ROOT

SUPPRESSIONS = pathlib.Path(__file__).resolve().parent / "cppcheck_suppressions.txt"
COMMAND = [
    "cppcheck",
    "--std=c++20",
    "--language=c++",
    "--platform=unix64",
    "-DSTDMETHODIMP_(type)=type",
    "--enable=warning,performance,portability,style,information",
    "-Isrc",
    "-I.",
    "--suppressions-list=%s" % SUPPRESSIONS,
    "--quiet",
    "--template={file}:{line}: {severity}: {id}: {message}",
]
FAULTY = """int Sum(const int* values) {
    int buffer[2] = {values[0], values[1]};
    return buffer[0] + buffer[2];
}
"""


def check(folder, *sources):
    """What cppcheck finds, line by line."""
    return subprocess.run([*COMMAND, *sources], cwd=folder, stderr=subprocess.PIPE, text=True, check=True).stderr


class Cppcheck(unittest.TestCase):
    maxDiff = None

    def test_nothing_is_found_but_what_is_left_for_a_reason(self):
        self.assertEqual("", check(ROOT, "src"))

    def test_a_fault_is_found(self):
        with tempfile.TemporaryDirectory() as folder:
            (pathlib.Path(folder) / "faulty.cpp").write_text(FAULTY, encoding="ascii")
            self.assertIn("faulty.cpp:3: error: arrayIndexOutOfBounds", check(folder, "faulty.cpp"))


if __name__ == "__main__":
    unittest.main()
