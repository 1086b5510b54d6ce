"""The page about security: every test that it names stands in the file that it names, and each point names one."""

import ast
import re
import unittest

from sources import ROOT, relative

PAGE = ROOT / "docs" / "security.md"
TESTS = ROOT / "tests"
FILE = re.compile(r"\w+/[\w/]+\.(?:cpp|py)\b")
NAMED = re.compile(r"`([\w/]+\.(?:cpp|py)): (\w+\.\w+)`")
GOOGLE_TEST = re.compile(r"^TEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\)", re.MULTILINE)
NO_TEST = "no test yet"


def tests_in(path):
    """{"Suite.Test"} of a file for GoogleTest or unittest."""
    text = path.read_text(encoding="utf-8")
    if path.suffix == ".cpp":
        return {"%s.%s" % pair for pair in GOOGLE_TEST.findall(text)}
    return {"%s.%s" % (suite.name, test.name) for suite in ast.parse(text).body if isinstance(suite, ast.ClassDef)
            for test in suite.body if isinstance(test, ast.FunctionDef) and test.name.startswith("test_")}


def faults_of_line(line):
    named = NAMED.findall(line)
    for file, test in named:
        path = TESTS / file
        if not path.is_file():
            yield "there is no tests/%s" % file
        elif test not in tests_in(path):
            yield "tests/%s has no test %s" % (file, test)
    for file in FILE.findall(line):
        if file not in [name for name, _ in named]:
            yield "%s is named without a test, or the name is broken" % file


def points(lines):
    """(number of the first line, text) of each entry of a list."""
    found = []
    for number, line in enumerate(lines, 1):
        if line.startswith("- "):
            found.append((number, line))
        elif line.startswith("  ") and found:
            found[-1] = (found[-1][0], found[-1][1] + " " + line.strip())
    return found


def faults(text):
    lines = text.splitlines()
    for number, line in enumerate(lines, 1):
        yield from ("line %d: %s" % (number, fault) for fault in faults_of_line(line))
    for number, point in points(lines):
        if not NAMED.search(point) and NO_TEST not in point.lower():
            yield "line %d: neither a test nor the words that there is none" % number


class SecurityPage(unittest.TestCase):
    def test_every_test_that_it_names_exists_and_each_point_names_one(self):
        text = PAGE.read_text(encoding="utf-8")
        self.assertGreater(len(NAMED.findall(text)), 20)
        self.assertEqual([], ["%s, %s" % (relative(PAGE), fault) for fault in faults(text)])


class TheSearch(unittest.TestCase):
    """What would be told of a page with faults."""

    def check(self, line, *told):
        self.assertEqual(list(told), list(faults("# A page\n\n%s\n" % line)))

    def test_what_is_there_is_found(self):
        self.check("- So. `lint/test_security_page.py: TheSearch.test_what_is_there_is_found`")
        self.check("- So. `native/secrets_test.cpp: Secrets.LeaveNoTraceAtTheLogOff`")
        self.check("- So it is\n  today. No test yet.")

    def test_a_missing_file_is_told_with_its_line(self):
        self.check("- So. `native/missing_test.cpp: A.B`", "line 3: there is no tests/native/missing_test.cpp")

    def test_a_missing_test_is_told(self):
        self.check("- So. `native/secrets_test.cpp: Secrets.AreKept`",
                   "line 3: tests/native/secrets_test.cpp has no test Secrets.AreKept")
        self.check("- So. `lint/test_form.py: Form.setUp`", "line 3: tests/lint/test_form.py has no test Form.setUp")

    def test_a_test_of_another_suite_is_told(self):
        self.check("- So. `native/secrets_test.cpp: Secret.LeaveNoTraceAtTheLogOff`",
                   "line 3: tests/native/secrets_test.cpp has no test Secret.LeaveNoTraceAtTheLogOff")

    def test_a_name_that_is_broken_is_told(self):
        self.check("- So, no test yet. `native/secrets_test.cpp:",
                   "line 3: native/secrets_test.cpp is named without a test, or the name is broken")

    def test_a_point_without_a_test_is_told(self):
        self.check("- So it is.", "line 3: neither a test nor the words that there is none")


if __name__ == "__main__":
    unittest.main()
