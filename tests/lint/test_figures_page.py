"""The page of figures: what is called met and what missed, and how it reads."""

import contextlib
import io
import os
import pathlib
import signal
import subprocess
import sys
import unittest

BENCH = pathlib.Path(__file__).resolve().parent.parent / "bench"
sys.path[:0] = [str(BENCH), str(BENCH.parent / "fuzz")]

import bench  # noqa: E402
import logic  # noqa: E402
import others  # noqa: E402
import run  # noqa: E402
import tried  # noqa: E402
from figures import Measure, counted, ratio_within, within  # noqa: E402
from page import render  # noqa: E402

MACHINE = [("processors", "2, of some kind")]


class Verdicts(unittest.TestCase):
    def test_the_median_is_held_against_the_limit(self):
        self.assertEqual(["a run", "0.10 (0.10 to 0.20) ms", "", "", "at most 0.10 ms", "met"],
                         within("a run", [0.1, 0.1, 0.3], 0.1, "%.2f", "ms").cells())
        self.assertEqual(["a run", "0.30 (0.20 to 0.30) ms", "", "", "at most 0.10 ms", "MISSED"],
                         within("a run", [0.1, 0.3, 0.3], 0.1, "%.2f", "ms").cells())

    def test_a_ratio_is_taken_pair_by_pair(self):
        pairs = [(10, 10), (30, 20), (40, 10)]
        cells = ["a start", "30 (20 to 35) ms", "10 (10 to 15) ms bare", "1.50 (1.25 to 2.75)", "ratio at most 1.5"]
        self.assertEqual([*cells, "met"], ratio_within("a start", pairs, 1.5, "%.0f", "ms", "bare").cells())
        self.assertIs(False, ratio_within("a start", pairs, 1.49, "%.0f", "ms").met)
        unjudged = ratio_within("a start", pairs, None, "%.0f", "ms")
        self.assertEqual(("", None, ""), (unjudged.goal, unjudged.met, unjudged.verdict()))

    def test_a_number_may_be_as_great_as_its_limit_and_no_greater(self):
        self.assertEqual(["the program", "512,000 bytes", "", "", "at most 512,000", "met"],
                         counted("the program", 512000, 512000, "bytes").cells())
        self.assertEqual("MISSED", counted("the program", 512001, 512000, "bytes").verdict())


class Sources(unittest.TestCase):
    def test_every_cell_of_the_fault_matrix_has_to_hold_and_the_tests_with_it(self):
        found = tried.fault_matrix("[ OK ]\nfaults: 2926 cells tried, 2926 held\n", 0)
        self.assertEqual(("2,926 cells tried, 2,926 held", True), (found.figure, found.met))
        self.assertIs(False, tried.fault_matrix("faults: 2926 cells tried, 2925 held\n", 0).met)
        self.assertIs(False, tried.fault_matrix("faults: 2926 cells tried, 2926 held\n", 1).met)
        self.assertIs(False, tried.fault_matrix("faults: 0 cells tried, 0 held\n", 0).met)
        with self.assertRaises(RuntimeError):
            tried.fault_matrix("nothing was run\n", 0)

    def test_the_explorer_has_to_go_deep_enough_from_every_start(self):
        line = "explored: %s, depth %d: 77 states, 1000 inputs, 9 steps in 2 starts, %d unreached\n"
        found = tried.explorer(line % ("settings", 6, 0) + line % ("about", 6, 0), 0)
        self.assertEqual(("154 states and 2,000 inputs from 2 starts", True), (found.figure, found.met))
        self.assertIs(False, tried.explorer(line % ("settings", 6, 0) + line % ("about", 5, 0), 0).met)
        self.assertIs(False, tried.explorer(line % ("settings", 6, 1), 0).met)
        self.assertIs(False, tried.explorer(line % ("settings", 6, 0), 1).met)
        self.assertIs(False, tried.explorer("", 0).met)

    def test_a_soak_has_to_be_flat_and_long_enough(self):
        record = {"settings": {"times": 500, "growths": {"gdi": 0, "common": 12, "private": -4096}, "faults": []}}
        found = next(soak for soak in tried.soaks(record) if soak.what == "soak, settings")
        self.assertEqual(("soak, settings", "500 times; common +12, private -4096", "flat, at least 500 times", True),
                         (found.what, found.figure, found.goal, found.met))
        for worse in ({"times": 499}, {"faults": ["common"]}):
            soaks = tried.soaks({"settings": {**record["settings"], **worse}})
            self.assertEqual([False] * 8, [soak.met for soak in soaks])
        self.assertEqual(["no record"], [measure.figure for measure in tried.soaks(None)])

    def test_the_soaks_that_are_kept_are_whole_and_flat(self):
        self.assertEqual([True] * 8, [soak.met for soak in tried.soaks(tried.read(tried.SOAKED))])

    def test_fuzzers_are_told_with_runs_and_hours_with_and_without_sanitizers(self):
        record = {}
        for piece in [("registry", False, 9999999, 1800, 0), ("command_line", False, 9000000, 720, 0),
                      ("command_line", True, 1000000, 360, 0), ("sessions", False, 5, 28800, 0)]:
            run.grow(record, *piece)
        self.assertEqual([
            ["fuzzer command_line", "10,000,000 runs in 0.3 hours, 9,000,000 of them with sanitizers, findings: 0",
             "at least 10,000,000 quiet runs", "met"],
            ["fuzzer registry", "9,999,999 runs in 0.5 hours, findings: 0", "at least 10,000,000 quiet runs", "MISSED"],
            ["fuzzer sessions", "5 runs in 8.0 hours, findings: 0", "at least 8 quiet hours", "met"],
        ], [[*row.cells()[:2], *row.cells()[4:]] for row in tried.fuzzers(record)])
        record["sessions"]["since_finding"]["seconds"] -= 1
        self.assertIs(False, tried.fuzzers(record)[-1].met)

    def test_what_a_fuzzer_did_up_to_a_finding_does_not_count(self):
        record = {}
        for piece in [("message", True, 10000000, 720, 0), ("message", False, 9000000, 720, 1),
                      ("message", False, 9999999, 360, 0)]:
            run.grow(record, *piece)
        found, = tried.fuzzers(record)
        self.assertIs(False, found.met)
        self.assertEqual("28,999,999 runs in 0.5 hours, 18,999,999 of them with sanitizers, findings: 1; since the last "
                         "one 9,999,999 runs in 0.1 hours", found.figure)
        run.grow(record, "message", True, 1, 0, 0)
        self.assertIs(True, tried.fuzzers(record)[0].met)

    def test_a_finding_that_was_an_alarm_gives_back_what_it_put_in_doubt(self):
        record = {}
        for piece in [("sessions", False, 5, 20000, 0), ("sessions", False, 3, 100, 1), ("sessions", False, 2, 8800, 0)]:
            run.grow(record, *piece)
        self.assertIs(False, tried.fuzzers(record)[0].met)
        run.take_for_an_alarm(record["sessions"])
        found, = tried.fuzzers(record)
        self.assertIs(True, found.met)
        self.assertEqual("10 runs in 8.0 hours, findings: 1 (1 of them alarms of a rule that asked too much); since the "
                         "last one 2 runs in 2.4 hours, since the last one that was no alarm 7 runs in 8.0 hours",
                         found.figure)
        run.grow(record, "sessions", False, 1, 1, 1)
        self.assertEqual({"runs": 0, "seconds": 0}, run.quiet(record["sessions"]))

    def test_an_alarm_has_to_have_been_a_finding(self):
        record = {}
        run.grow(record, "message", False, 5, 20, 0)
        with self.assertRaises(ValueError):
            run.take_for_an_alarm(record["message"])

    def test_without_a_record_there_are_no_figures_of_fuzzers(self):
        self.assertEqual(["no record"], [measure.figure for measure in tried.fuzzers(None)])

    def test_benchmarks_are_judged_by_their_names(self):
        times = {name + "/" + count: [float(time), float(time)] for _, name in logic.GROWING
                 for count, time in (("1000", 1e6), ("10000", 13e6))}
        times |= {"UpdateOkButton/10000": [2e6, 2e6], "FetchEveryTextOfALibrary": [5e4, 5e4],
                  "RunOverServers/1000": [150e6, 150e6], "BareCallsToServers/1000": [100e6, 100e6]}
        counters = {"RunOverServers/1000": {"targets": 1000, "calls": 8010}, "BareCallsToServers/1000": {"calls": 8000},
                    "FetchEveryTextOfALibrary": {"texts": 67}}
        met = {measure.what: measure.met for measure in logic.judged(times, counters)}
        self.assertEqual({
            "`LoadTargets`, 10,000 servers": False, "the settings' list, 10,000 servers": False,
            "loading the settings, 10,000 servers": False, "saving the settings, 10,000 servers": False,
            "`UpdateOkButton` with 10,000 stored passwords": False,
            "a run over 1,000 targets beside its calls, per target": True,
            "a language library loaded and its 67 texts fetched": True,
        }, met)
        counters["BareCallsToServers/1000"]["calls"] = 7000
        self.assertIs(False, logic.run_beside_its_calls(times, counters).met)


class Page(unittest.TestCase):
    def render(self, others=0.9):
        measures = [counted("the program", 2, 1, "bytes"), within("a run", [1, 1], 2, "%d", "ms"),
                    Measure("told | alone", "x")]
        return render(MACHINE, others, [("Sizes", "`./bench.sh sizes`: of files.", measures)])

    def test_it_says_how_many_goals_are_met_and_names_the_others(self):
        self.assertIn("\nOf 2 goals 1 are met; missed: the program.\n", self.render())

    def test_each_section_names_its_command_ahead_of_its_table(self):
        self.assertIn(
            "\n## Sizes\n\n`./bench.sh sizes`: of files.\n\n"
            "| What | Figure | Beside it | Ratio | Goal |  |\n|---|---|---|---|---|---|\n"
            "| the program | 2 bytes |  |  | at most 1 | MISSED |\n"
            "| a run | 1 (1 to 1) ms |  |  | at most 2 ms | met |\n"
            "| told \\| alone | x |  |  |  |  |\n", self.render())

    def test_a_busy_computer_is_warned_of(self):
        self.assertIn("| other programs in the worst minute | 0.9 s of a processor |", self.render())
        self.assertNotIn("not quiet", self.render(others=6.0))
        self.assertIn("**The computer was not quiet**: other programs took 6.1 seconds", self.render(others=6.1))

    def test_its_lines_end_as_texts_here_do(self):
        text = self.render(others=9)
        self.assertTrue(text.endswith("|\n"))
        self.assertEqual([], [line for line in text.split("\n") if line != line.rstrip()])


class OtherPrograms(unittest.TestCase):
    BUSY = "import sys, time\nwhile time.process_time() < 0.5: pass\nprint(flush=True)\nsys.stdin.read()"

    def test_are_all_that_the_run_has_not_started(self):
        found = {number: others.Process(parent, seconds)
                 for number, parent, seconds in [(1, 0, 5.0), (10, 1, 3.0), (11, 10, 2.0), (12, 11, 8.0), (13, 1, 7.0)]}
        self.assertEqual(12.0, others.seconds_of_others(10, found))
        self.assertEqual(25.0, others.seconds_of_others(13, found) + found[13].seconds)

    def test_are_told_with_their_parents_and_times(self):
        with subprocess.Popen([sys.executable, "-c", self.BUSY], stdin=subprocess.PIPE, stdout=subprocess.PIPE) as busy:
            busy.stdout.readline()
            found = others.processes()
            busy.stdin.close()
        self.assertEqual(os.getpid(), found[busy.pid].parent)
        self.assertGreaterEqual(found[busy.pid].seconds, 0.4)
        self.assertGreaterEqual(others.processes()[os.getpid()].seconds, found[busy.pid].seconds)

    def test_are_not_the_servers_that_the_run_leaves_behind(self):
        others.keep_own()
        server = int(subprocess.check_output(["sh", "-c", "sleep 60 >/dev/null & echo $!"]))
        parent = others.processes()[server].parent
        os.kill(server, signal.SIGKILL)
        self.assertEqual(os.getpid(), parent)
        os.waitpid(server, 0)

    def test_count_in_their_worst_minute(self):
        samples = [(0, 10.0), (10, 10.5), (20, 14.0), (90, 15.0), (150, 15.0)]
        self.assertEqual(4.0, others.most_within(samples, 60))
        self.assertEqual(1.0, others.most_within(samples[2:], 70))
        self.assertEqual(0.0, others.most_within(samples[:1], 60))


class WholeRun(unittest.TestCase):
    def page_of(self, *given):
        return bench.page_of(bench.arguments(given))

    def test_only_a_whole_run_with_all_its_pairs_writes_the_page(self):
        self.assertEqual(bench.PAGE, self.page_of(*bench.PARTS))
        self.assertIsNone(self.page_of("logic", "process"))
        self.assertIsNone(self.page_of("--pairs", "2", *bench.PARTS))
        self.assertEqual(pathlib.Path("x.md"), self.page_of("--pairs", "2", "--page", "x.md", "logic"))

    def test_a_single_pair_is_refused(self):
        with contextlib.redirect_stderr(io.StringIO()), self.assertRaises(SystemExit):
            self.page_of("--pairs", "1", "logic")


if __name__ == "__main__":
    unittest.main()
