"""The report on what the tests reach, tried on a small count."""

import contextlib
import io
import json
import pathlib
import tempfile
import unittest

import report

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


class TheReport(unittest.TestCase):
    def run_on(self, lines, branches, page, source="src/a.cpp"):
        """(exit code, what is printed); `lines` are the counts of lines 1, 2 and so on, a branch is (line, how
        often true, how often false)."""
        source = "out/coverage/../../" + source
        with tempfile.TemporaryDirectory() as folder:
            files = [pathlib.Path(folder) / name for name in ("lines.info", "branches.json", "page.md")]
            of_lines = "".join("DA:%d,%d\n" % (number, count) for number, count in enumerate(lines, 1))
            files[0].write_text("SF:%s\n%send_of_record\n" % (source, of_lines))
            of_branches = [[number, 5, number, 9, true, false, 0, 0, 4] for number, true, false in branches]
            files[1].write_text(json.dumps({"data": [{"files": [{"filename": source, "branches": of_branches}]}]}))
            files[2].write_text(page)
            printed = io.StringIO()
            with contextlib.redirect_stdout(printed):
                code = report.main(*files)
            return code, printed.getvalue().replace(folder + "/", "")

    def test_everything_reached_is_well(self):
        code, printed = self.run_on([1] * 50, [(number, 1, 2) for number in range(50)], "# A page\n")
        self.assertEqual((0, "lines 50 of 50 (100.0 %), branches 100 of 100 (100.0 %)\n"), (code, printed))

    def test_what_is_not_reached_has_to_be_told(self):
        code, printed = self.run_on([1] * 96 + [0, 0, 1, 0], [], "")
        self.assertEqual(1, code)
        self.assertIn("97-98, 100", printed)
        self.assertIn("page.md: src/a.cpp: 3 lines are not reached, 0 are told", printed)

    def test_what_is_told_explains_it_while_the_share_is_high(self):
        lines = [1] * 99 + [0]
        self.assertEqual(0, self.run_on(lines, [], "- `src/a.cpp` (1 line): nobody comes there\n")[0])
        self.assertEqual(1, self.run_on(lines, [], "- `src/a.cpp` (2 lines): nobody comes there\n")[0])
        self.assertEqual(1, self.run_on(lines, [], "- `src/a.cpp` (1 line):\n")[0])

    def test_too_few_lines_or_branches_fail(self):
        self.assertEqual(1, self.run_on([1] * 96 + [0] * 4, [], "- `src/a.cpp` (4 lines): nobody comes there\n")[0])
        for whole, code in ((41, 1), (42, 0)):
            halves = [(number, 1, 0) for number in range(whole, 50)]
            page = "- `src/a.cpp` (%d branches): nobody comes there\n" % len(halves)
            self.assertEqual(code, self.run_on([1], [(number, 1, 1) for number in range(whole)] + halves, page)[0])

    def test_a_branch_counts_once_however_many_instances_a_template_has(self):
        code, printed = self.run_on([2], [(1, 0, 1), (1, 3, 0)], "")
        self.assertEqual((0, "lines 1 of 1 (100.0 %), branches 2 of 2 (100.0 %)\n"), (code, printed))

    def test_a_line_with_a_branch_that_nobody_takes_is_named(self):
        branches = [(number, 1, 1) for number in range(20)] + [(25, 0, 1)]
        code, printed = self.run_on([1] * 30, branches, "- `src/a.cpp` (1 branch): nobody comes there\n")
        self.assertEqual(0, code)
        self.assertIn("branches   41/  42  -; 25\n", printed)

    def test_a_branch_that_nobody_takes_has_to_be_told(self):
        branches = [(number, 1, 1) for number in range(20)] + [(25, 0, 1)]
        code, printed = self.run_on([1] * 30, branches, "- `src/a.cpp` (2 lines, 3 branches): nobody comes there\n")
        self.assertEqual(1, code)
        self.assertIn("page.md: src/a.cpp: 0 lines are not reached, 2 are told", printed)
        self.assertIn("page.md: src/a.cpp: 1 branches are not reached, 3 are told", printed)

    def test_only_the_portable_sources_count(self):
        for other in ("src/platform/windows/b.cpp", "tests/native/c.cpp"):
            code, printed = self.run_on([0], [], "", other)
            self.assertEqual((1, "lines 0 of 0 (100.0 %), branches 0 of 0 (100.0 %)\n"), (code, printed))

    def test_nothing_counted_fails(self):
        self.assertEqual(1, self.run_on([], [], "")[0])


class ThePage(unittest.TestCase):
    def test_every_entry_can_be_read_and_names_a_source(self):
        told, broken = report.listed((ROOT / "docs" / "coverage.md").read_text(encoding="utf-8"))
        self.assertEqual([], broken)
        self.assertEqual([], [name for name in told if not (ROOT / name).is_file()])


if __name__ == "__main__":
    unittest.main()
