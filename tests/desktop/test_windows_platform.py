"""The platform's calls on a real Windows registry, token, file system and list: windows_tests.exe, test by test."""

import json
import unittest

from desktop import OUT, Desktop
from desktop_case import DesktopCase

PROGRAMS = OUT / "windows" / "tests"


def run_program(desktop, program):
    """Runs a GoogleTest program. Gives {test: list of failures, None for a test that was skipped or left out}."""
    report = desktop.work / "report.json"
    # Its words must not get among the driver's own.
    done = desktop.start("C:\\windows\\system32\\cmd.exe", '/c ""%s" --gtest_output=json:%s >NUL 2>&1"' % (
        desktop.windows_path(program), desktop.windows_path(report)))
    code = done.wait_exit(timeout=120)
    if not report.exists():
        raise RuntimeError("%s ended with %d and left no report" % (program.name, code))
    results = {}
    for suite in json.loads(report.read_text(encoding="utf-8"))["testsuites"]:
        for test in suite["testsuite"]:
            failures = [entry["failure"] for entry in test.get("failures", [])]
            name = "%s.%s" % (suite["name"], test["name"])
            results[name] = failures if test["result"] == "COMPLETED" else None
    return results


class Calls(DesktopCase):
    def test_every_call_answers_as_the_system_does(self):
        results = run_program(self.desktop, PROGRAMS / "windows_tests.exe")
        self.assertGreater(len(results), 60)
        for name, failures in results.items():
            with self.subTest(name):
                self.assertIsNotNone(failures, "skipped")
                self.assertEqual("", "\n".join(failures or []))


class Boxes(DesktopCase):
    def start(self, kind):
        program = self.desktop.start(PROGRAMS / "boxes.exe", kind)
        return program, self.desktop.box(pid=program.pid)

    def test_an_error_that_nobody_traps_is_shown_and_ends_the_process(self):
        program, box = self.start("error")
        self.picture("box_of_an_error")
        self.assertEqual(("Kestrelmoor", "Run-time error 53:\n\nFile not found", "error", ["OK"]),
                         (box.title, box.text, box.icon, box.buttons))
        box.answer("OK")
        self.assertEqual(1, program.wait_exit())

    def test_whatever_else_is_thrown_is_shown_too(self):
        program, box = self.start("fault")
        self.assertEqual(("Kestrelmoor", "An internal error: out of memory, or a fault in the program."),
                         (box.title, box.text))
        box.answer("OK")
        self.assertEqual(1, program.wait_exit())

    def test_a_box_returns_the_button_pressed(self):
        program, box = self.start("")
        self.assertEqual(("A question", "Carry on?", "information", ["Yes", "No"]),
                         (box.title, box.text, box.icon, box.buttons))
        self.assertIn("comctl32.dll", self.desktop.modules(program))
        box.answer("No")
        self.assertEqual(7, program.wait_exit())


if __name__ == "__main__":
    unittest.main()
