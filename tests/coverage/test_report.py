"""The report on what the tests reach, tried on a small count."""

import contextlib
import io
import pathlib
import tempfile
import unittest

import report

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


def line(number, count, *branches):
    taken = "".join("BRDA:%d,0,%d,%s\n" % (number, place, taken) for place, taken in enumerate(branches))
    return taken + "DA:%d,%d\n" % (number, count)


class TheReport(unittest.TestCase):
    def run_on(self, lines, page):
        """(exit code, what is printed)"""
        with tempfile.TemporaryDirectory() as folder:
            counted = pathlib.Path(folder) / "report.info"
            counted.write_text("SF:src/a.cpp\n%send_of_record\n" % "".join(lines))
            told = pathlib.Path(folder) / "page.md"
            told.write_text(page)
            printed = io.StringIO()
            with contextlib.redirect_stdout(printed):
                code = report.main(counted, told)
            return code, printed.getvalue().replace(folder + "/", "")

    def test_everything_reached_is_well(self):
        code, printed = self.run_on([line(number, 1, 1, 2) for number in range(50)], "# A page\n")
        self.assertEqual((0, "lines 50 of 50 (100.0 %), branches 100 of 100 (100.0 %)\n"), (code, printed))

    def test_what_is_not_reached_has_to_be_told(self):
        lines = [line(number, 1) for number in range(1, 97)] + [line(97, 0), line(98, 0), line(100, 0)]
        code, printed = self.run_on(lines, "")
        self.assertEqual(1, code)
        self.assertIn("97-98, 100", printed)
        self.assertIn("page.md: src/a.cpp: 3 lines are not reached, 0 are told", printed)

    def test_what_is_told_explains_it_while_the_share_is_high(self):
        lines = [line(number, 1) for number in range(99)] + [line(99, 0)]
        self.assertEqual(0, self.run_on(lines, "- `src/a.cpp` (1): nobody comes there\n")[0])
        self.assertEqual(1, self.run_on(lines, "- `src/a.cpp` (2): nobody comes there\n")[0])
        self.assertEqual(1, self.run_on(lines, "- `src/a.cpp` (1):\n")[0])

    def test_too_few_lines_or_branches_fail(self):
        few_lines = [line(number, 1) for number in range(96)] + [line(number, 0) for number in range(96, 100)]
        self.assertEqual(1, self.run_on(few_lines, "- `src/a.cpp` (4): nobody comes there\n")[0])
        self.assertEqual(1, self.run_on([line(1, 1, *[1] * 91, *[0] * 9)], "")[0])
        self.assertEqual(0, self.run_on([line(1, 1, *[1] * 92, *[0] * 8)], "")[0])

    def test_a_branch_counts_once_however_many_instances_a_template_has(self):
        code, printed = self.run_on([line(1, 0, "-", 1), line(1, 2, 3, 0)], "")
        self.assertEqual((0, "lines 1 of 1 (100.0 %), branches 2 of 2 (100.0 %)\n"), (code, printed))

    def test_only_the_portable_sources_count(self):
        windows = "end_of_record\nSF:src/platform/windows/b.cpp\n" + line(1, 0)
        tests = "end_of_record\nSF:tests/native/c.cpp\n" + line(1, 0)
        code, printed = self.run_on([line(1, 1), windows, tests], "")
        self.assertEqual((0, "lines 1 of 1 (100.0 %), branches 0 of 0 (100.0 %)\n"), (code, printed))

    def test_nothing_counted_fails(self):
        self.assertEqual(1, self.run_on([], "")[0])


class ThePage(unittest.TestCase):
    def test_every_entry_can_be_read_and_names_a_source(self):
        told, broken = report.listed((ROOT / "docs" / "coverage.md").read_text(encoding="utf-8"))
        self.assertEqual([], broken)
        self.assertEqual([], [name for name in told if not (ROOT / name).is_file()])


if __name__ == "__main__":
    unittest.main()
