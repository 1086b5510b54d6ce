"""The tool itself, tried on a tiny source: what it finds, what it leaves alone, and whom it says to be killed."""

import functools
import pathlib
import re
import subprocess
import tempfile
import unittest

import explained
import points
import run
import trial

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
TINY = HERE / "tiny" / "tiny.cpp"
ARGUMENTS = ["-std=c++20", "-I%s" % ROOT]


@functools.cache
def found():
    return points.find(TINY, "tiny.cpp", ARGUMENTS)


def on_line(text):
    """{(kind, what is said)} of the points of the lines that hold a text."""
    lines = TINY.read_text().split("\n")
    return sorted((point.kind, point.said) for point in found() if text in lines[point.line - 1])


class ThePoints(unittest.TestCase):
    def check(self, text, *expected):
        self.assertIn(text, TINY.read_text())
        self.assertEqual(sorted(expected), on_line(text))

    def test_statements_are_left_out(self):
        self.check("mTotal += amount;", ("statement", "without: mTotal += amount"))
        self.check("mCalls++;", ("statement", "without: mCalls++"))

    def test_comparisons_and_what_joins_them(self):
        said = "amount < 0 || mClosed"
        self.check(
            "if (amount < 0 || mClosed)",
            ("comparison", ">= for < in: amount < 0"),
            ("boundary", "<= for < in: amount < 0"),
            ("number", "0 + 1"),
            ("logic", "&& for || in: " + said),
            ("condition", "turned: mClosed"),
        )

    def test_truth_and_named_numbers(self):
        self.check("mClosed = true;", ("statement", "without: mClosed = true"), ("boolean", "turned: true"))
        self.check(
            "? Mood::Angry : Mood::Calm;",
            ("comparison", "<= for > in: number > kLimit"),
            ("boundary", ">= for > in: number > kLimit"),
            ("constant", "kLimit + 1"),
            ("constant", "Mood::Angry + 1"),
            ("constant", "Mood::Calm + 1"),
        )

    def test_a_condition_with_a_name(self):
        self.check("if (const auto half", ("condition", "turned: const auto half = Half(number)"))

    def test_constants_labels_and_macros_are_left_alone(self):
        self.check("constexpr int kLimit = 10;")
        self.check("static_assert")
        self.check("return number % 10 == 0;")
        self.check("case 3:")
        self.check("std::array<int, 3>")
        self.check("TWICE(4)")

    def test_the_first_value_of_what_a_call_fills_in_is_left_alone(self):
        self.check("int asked = 0;")
        self.check("int copied = 0;")
        self.check("int discarded = 0;")
        self.check("buffer(3, u", ("number", "3 + 1"))

    def test_a_first_value_that_may_be_read_is_changed(self):
        self.check("int unasked = 0;", ("number", "0 + 1"))
        self.check("int skipped = 0;", ("number", "0 + 1"))
        self.check("int kept = 0;", ("number", "0 + 1"))
        self.check("int gone_on = 0;", ("number", "0 + 1"))
        self.check("int passed = 0;", ("number", "0 + 1"))
        self.check("text(3, u", ("number", "3 + 1"), ("number", "u'x' + 1"))

    def test_no_two_have_the_same_key(self):
        keys = [point.key for point in found()]
        self.assertGreater(len(keys), 30)
        self.assertEqual(len(keys), len(set(keys)))


class TheProgram(unittest.TestCase):
    """The tiny source with its switches, and its tests."""

    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.temporary.cleanup)
        cls.folder = pathlib.Path(cls.temporary.name)
        cls.numbered = [(number, point) for number, point in enumerate(found(), 1)]
        source = points.rewritten(TINY.read_bytes(), [(point, number) for number, point in cls.numbered])
        (cls.folder / "changed.cpp").write_text('#include "tests/mutants/mutant.h"\n' + source)
        sources = [TINY, cls.folder / "changed.cpp", HERE / "tiny" / "tiny_trial.cpp", HERE / "record.cpp"]
        compiled = [cls.compiler("-c", "-w", source, "-o", cls.folder / (source.stem + ".o")) for source in sources]
        if [compiler.wait() for compiler in compiled] != [0] * len(sources):
            raise AssertionError("a source can't be compiled")
        for program, source in (("plain", "tiny.o"), ("changed_trial", "changed.o")):
            words = [source, "tiny_trial.o", "record.o", "-lgtest_main", "-lgtest", "-o", program]
            if cls.compiler(*words).wait() != 0:
                raise AssertionError("%s can't be linked" % program)
        cls.program = trial.Program(cls.folder / "changed_trial", cls.folder)
        cls.tests = cls.program.record()

    @classmethod
    def compiler(cls, *words):
        return subprocess.Popen(["g++", "-std=c++20", "-I%s" % ROOT, *words], cwd=cls.folder)

    def killer(self, said):
        """Who kills the one change of which that is said; an empty text for nobody."""
        number, point = next(pair for pair in self.numbered if pair[1].said == said)
        reaching = [test for test in self.tests if number in test.reached]
        return (self.program.what_kills(number, reaching) or "") if reaching else "unreached"

    def test_the_copy_without_a_change_does_what_the_source_does(self):
        outcomes = []
        for program in ("plain", "changed_trial"):
            ended = trial.Program(self.folder / program, self.folder).run({}, ["--gtest_print_time=0"])
            self.assertEqual(0, ended.returncode, ended.stdout)
            outcomes.append(re.sub(r"\(\d+ ms[^)]*\)|Running main.*", "", ended.stdout))
        self.assertIn("[  PASSED  ] 4 tests.", outcomes[0])
        self.assertEqual(*outcomes)

    def test_it_is_known_which_test_reaches_what(self):
        self.assertEqual(
            {"Counter.Adds", "Moods.AreAngryAtThree", "Steps.AreCounted", "Halves.AreOfEvenNumbers"},
            {test.name for test in self.tests},
        )
        [number] = [number for number, point in self.numbered if point.said == "without: mCalls++"]
        self.assertEqual(["Counter.Adds"], [test.name for test in self.tests if number in test.reached])

    def test_what_a_test_notices_is_killed(self):
        self.assertEqual("Counter.Adds", self.killer("without: mTotal += amount"))
        self.assertEqual("Counter.Adds", self.killer(">= for < in: amount < 0"))
        self.assertEqual("Counter.Adds", self.killer("<= for < in: amount < 0"))
        self.assertEqual("Moods.AreAngryAtThree", self.killer("Mood::Calm + 1"))
        self.assertEqual("Halves.AreOfEvenNumbers", self.killer("turned: const auto half = Half(number)"))

    def test_what_no_test_notices_survives(self):
        self.assertEqual("", self.killer("without: mCalls++"))
        self.assertEqual("", self.killer("kLimit + 1"))
        self.assertEqual("unreached", self.killer("without: mClosed = true"))

    def test_a_loop_without_an_end_is_stopped(self):
        self.assertEqual("Steps.AreCounted time limit", self.killer("without: number -= 1"))


class TheRuns(unittest.TestCase):
    def test_the_quick_tests_come_first_and_alone(self):
        costs = [1.0, 2.0, 150.0, 300.0, 400.0, 9000.0]
        tests = [trial.Test("T.%d" % place, cost, frozenset()) for place, cost in enumerate(costs)]
        batches = [[test.cost for test in batch] for batch in trial.batches(tests)]
        self.assertEqual([[1.0, 2.0, 150.0], [300.0, 400.0], [9000.0]], batches)

    def test_shares_hold_every_point_once(self):
        shares = [{point.key for point in found() if run.is_chosen(point, run.read_words(["--share", "%d/3" % part]))}
                  for part in (1, 2, 3)]
        self.assertEqual({point.key for point in found()}, set.union(*shares))
        self.assertEqual(len(found()), sum(map(len, shares)))


class ThePage(unittest.TestCase):
    result = {"file": "src/a.cpp", "text": "if (a < b)", "kind": "boundary", "place": 1, "state": "alive"}

    def test_an_entry_explains_its_line_and_kinds(self):
        self.assertTrue(explained.Page("- `src/a.cpp`: `if (a < b)`: for a reason").explains(self.result))
        self.assertTrue(explained.Page("- `src/a.cpp`: `if (a < b)` (number, boundary)").explains(self.result))
        self.assertFalse(explained.Page("- `src/a.cpp`: `if (a < b)` (number)").explains(self.result))
        self.assertFalse(explained.Page("- `src/b.cpp`: `if (a < b)`").explains(self.result))

    def test_of_equal_lines_an_entry_explains_those_that_it_names(self):
        page = explained.Page("- `src/a.cpp`: `if (a < b)` 1, 3 of 4 (boundary): for a reason")
        explained_places = [place for place in range(1, 5) if page.explains({**self.result, "place": place})]
        self.assertEqual([1, 3], explained_places)
        self.assertEqual(["src/a.cpp: if (a < b)"], page.unneeded([self.result]))
        self.assertEqual([], page.unneeded([self.result, {**self.result, "place": 3}]))

    def test_an_entry_without_a_survivor_is_told(self):
        page = explained.Page("- `src/a.cpp`: `if (a < b)`\n- `src/a.cpp`: `Go();`")
        self.assertEqual(["src/a.cpp: Go();"], page.unneeded([self.result]))

    def test_a_broken_entry_is_told(self):
        self.assertEqual([1], explained.Page("- src/a.cpp: a < b").broken)

    def test_every_entry_of_the_projects_page_names_a_line_that_is_there(self):
        page = explained.Page((ROOT / "docs" / "mutants.md").read_text(encoding="utf-8"))
        self.assertEqual([], page.broken)
        for entry in page.entries:
            self.assertEqual(entry.lines, run.lines_of(entry.file).count(entry.text), entry)
            self.assertLessEqual(entry.places, set(range(1, entry.lines + 1)), entry)
            self.assertLessEqual(set(entry.kinds), set(points.ORDER))


if __name__ == "__main__":
    unittest.main()
