"""What the runners count, tried on tests that are made up."""

import contextlib
import io
import pathlib
import sys
import time
import unittest

sys.path.append(str(pathlib.Path(__file__).resolve().parent.parent))

import timed_result  # noqa: E402


class Several(unittest.TestCase):
    def pass_slowly(self):
        time.sleep(1.2)

    def pass_quickly(self):
        pass

    def fail_in_two_parts(self):
        for part in (1, 2):
            with self.subTest(part):
                self.fail()

    def skip(self):
        self.skipTest("for a reason")


class NeverReady(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        time.sleep(1.1)
        raise RuntimeError

    one = two = lambda self: None


def run(*tests):
    """The exit code, and what is printed behind unittest's own words."""
    printed = io.StringIO()
    with contextlib.redirect_stdout(printed):
        code = timed_result.run(unittest.TestSuite(tests), "made_up", verbosity=0)
    told = printed.getvalue()
    return code, told[max(told.rfind("\nOK"), told.rfind("\nFAILED")) + 1:].split("\n")[1:-1]


class Counts(unittest.TestCase):
    def test_a_test_counts_once_however_many_of_its_parts_failed(self):
        tests = map(Several, ("pass_quickly", "fail_in_two_parts", "skip"))
        self.assertEqual((1, ["made_up: 1 passed, 1 failed, 1 skipped"]), run(*tests))

    def test_a_class_that_could_not_be_made_ready_has_failed_once(self):
        code, told = run(NeverReady("one"), NeverReady("two"), Several("pass_quickly"))
        self.assertEqual((1, "made_up: 1 passed, 1 failed, 1 skipped"), (code, told[-1]))

    def test_what_took_long_is_told_with_its_seconds(self):
        code, told = run(*map(Several, ("pass_quickly", "pass_slowly", "pass_quickly")))
        self.assertEqual((0, 2), (code, len(told)))
        self.assertRegex(told[0], r"^ +[1-9][0-9]*\.\d s  test_timed_result\.Several\.pass_slowly$")


if __name__ == "__main__":
    unittest.main()
