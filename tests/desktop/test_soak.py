"""Each form opened and closed again and again in one process, after which it holds no more than before.

KESTRELMOOR_SOAK=long does so 500 times instead of 20, with 210 changes of language and 100 browse dialogs; it leaves
the readings in out/desktop/soak-*.csv, and what has grown in soak_record.json.
"""

import csv
import os
import unittest

import practice_directory
import soak_record
from desktop import OUT
from desktop_case import PICTURES, DesktopCase
from password_window import PROGRAM, SETTINGS, STAND_INS, targets
from soak import MEASURES, Meter, Soak
from soak_roads import RefusingDirectory, RefusingNetwork, Roads
from test_settings_language import CLASSIC

LONG = os.environ.get("KESTRELMOOR_SOAK") == "long"
OPENINGS, WATCHED, BROWSES = (500, 200, 100) if LONG else (20, 20, 20)
WARM_UP, READINGS = (10, 50) if LONG else (4, 10)

LANGUAGE_ROWS, LANGUAGE_ROUNDS = (range(1, 16), 14) if LONG else (range(5, 9), 5)
ENGLISH_ROW = 4
"""The first row is the automatic choice, which is English again."""

BARE_CONTROLS = OUT / "desktop" / "bare_controls.exe"
MOST_KEPT = 16
"""Bytes: beyond that something is wrong with the bare program."""

PAGES_OF_LABEL = 64
"""Bytes of pages that a form may cost for each of its labels: what the system keeps of it in the heap, with the holes
around that, and what Wine keeps outside of the program's heaps."""

LABELS = {"settings": 3, "about": 9, "password": 5, "browse": 2}
"""How many windows of a label's class each form has: pictures and user controls are such, too."""

_kept = {}


def kept_by_system(desktop, kind):
    """Bytes of the heap that it keeps of a "label", or of a "list" with a tab stop, that is gone."""
    if kind not in _kept:
        bytes_kept = desktop.start(BARE_CONTROLS, [desktop.windows_path(PROGRAM), kind]).wait_exit()
        assert bytes_kept <= MOST_KEPT, "%d bytes kept of a %s" % (bytes_kept, kind)
        _kept[kind] = bytes_kept
    return _kept[kind]


class SoakCase(DesktopCase):
    options = {"dlls": STAND_INS, "registry": targets(["\\\\ARCHIVE", "PRACTICE"])}

    def setUp(self):
        self.desktop.guard_session()
        self.addCleanup(self.forget_language)

    def forget_language(self):
        if "LangID" in self.desktop.list_registry(SETTINGS)[1]:
            self.desktop.delete_registry(SETTINGS, "LangID")

    def start(self, network, *arguments):
        # From its folder, in which it then finds the languages.
        return self.desktop.start(PROGRAM, arguments, cwd=PROGRAM.parent, variables=network.variables)

    def soak(self, process, turn, turns, warm_up=WARM_UP, leak=None):
        def turn_and_leak():
            window = turn()
            if leak:
                leak(window)
            return window

        soak = Soak(Meter(self.desktop, process), turn_and_leak)
        soak.warm_up(warm_up)
        soak.run(turns, max(turns // READINGS, 1))
        self.keep(soak)
        return soak

    def keep(self, soak):
        path = PICTURES / ("soak-%s.csv" % self.id().partition(".")[2])
        with open(path, "w", encoding="utf-8", newline="") as file:
            rows = csv.DictWriter(file, MEASURES)
            rows.writeheader()
            rows.writerows(soak.readings)

    def kept(self, labels, lists=0, loads=0):
        """What the system keeps in a turn in which so many controls are made. `loads`: how often the settings window
        is opened in English: it looks into the very library that the texts come from, which then refuses to leave, so
        that the system counts it once more."""
        common = labels * kept_by_system(self.desktop, "label") + lists * kept_by_system(self.desktop, "list")
        return {"common": common, "private": labels * PAGES_OF_LABEL, "loads": loads}

    def assert_flat(self, soak, times, **kept):
        faults = soak.faults(**self.kept(**kept))
        if LONG:
            soak_record.keep(self.id(), times, soak.growths(), faults)
        self.assertEqual({}, faults, soak.growths())


class OpenCase(SoakCase):
    def open(self):
        self.process = self.start(self.enterContext(RefusingNetwork()), "/f")
        return Roads(self.desktop, self.process)


class Forms(OpenCase):
    def test_settings(self):
        roads = self.open()
        soak = self.soak(self.process, roads.settings, OPENINGS)
        self.assert_flat(soak, OPENINGS, labels=LABELS["settings"], loads=1)

    def test_about(self):
        roads = self.open()
        settings = roads.open_settings()
        soak = self.soak(self.process, lambda: roads.about(settings), OPENINGS)
        self.assert_flat(soak, OPENINGS, labels=LABELS["about"])

    def test_password_by_back(self):
        roads = self.open()
        soak = self.soak(self.process, roads.password, OPENINGS)
        self.assert_flat(soak, OPENINGS, labels=LABELS["password"], lists=1)

    def test_changes_of_language(self):
        roads = self.open()
        soak = self.soak(self.process, lambda: roads.languages(LANGUAGE_ROWS), LANGUAGE_ROUNDS, warm_up=2)
        self.assert_flat(soak, LANGUAGE_ROUNDS * len(LANGUAGE_ROWS), labels=LABELS["settings"] * len(LANGUAGE_ROWS),
                         loads=LANGUAGE_ROWS.count(ENGLISH_ROW))

    def test_browse_dialog(self):
        roads = self.open()
        settings = roads.open_settings()
        soak = self.soak(self.process, lambda: roads.browse(settings), BROWSES)
        self.assert_flat(soak, BROWSES, labels=LABELS["browse"])


class FormsInClassicStyle(OpenCase):
    """The look without a theme takes other ways through colours and drawing."""

    options = {**SoakCase.options, "registry": {**SoakCase.options["registry"], **CLASSIC}}
    test_settings, test_about = Forms.test_settings, Forms.test_about


if not LONG:
    del FormsInClassicStyle


class ByTheWatch(SoakCase):
    """By the directory, which is registered here."""

    options = {"dlls": {**STAND_INS, **practice_directory.LIBRARY},
               "registry": {**SoakCase.options["registry"], **practice_directory.REGISTRATION}}

    def test_password_by_back(self):
        with RefusingDirectory() as network:
            process = self.start(network)
            self.desktop.box(pid=process.pid).press("Enter")
            roads = Roads(self.desktop, process)
            soak = self.soak(process, roads.password, WATCHED)
            self.assert_flat(soak, WATCHED, labels=LABELS["password"], lists=1)


class Leaks(OpenCase):
    """Made on purpose from outside, in a program that has none of its own."""

    TURNS = 9
    KIBIBYTE = 1024
    MADE = (("gdi32", "CreateSolidBrush", 1), ("user32", "CreateMenu"), ("kernel32", "CreateEventW", 0, 0, 0, 0),
            ("msvcrt", "malloc", KIBIBYTE), ("kernel32", "LocalAlloc", 0, KIBIBYTE))

    def test_one_of_each_kind_in_each_turn_and_a_library_once_are_seen(self):
        turns = iter(range(WARM_UP + self.TURNS))

        def leak(window):
            for library, function, *numbers in self.MADE:
                self.desktop.call_in(window, library + ".dll", function, *numbers)
            self.desktop.load_in(window, "netapi32.dll")
            if next(turns) == WARM_UP:
                self.desktop.load_in(window, "msacm32.dll")

        roads = self.open()
        soak = self.soak(self.process, roads.settings, self.TURNS, leak=leak)
        found = soak.faults(**self.kept(LABELS["settings"], loads=1))
        found.pop("private", None)  # so few pages prove nothing
        self.assertIn("C:\\windows\\system32\\msacm32.dll", found.pop("libraries"))
        self.assertEqual(["common", "gdi", "kernel", "loads", "own", "user"], sorted(found))


class Readings:
    """Made up: `number(turn)` of one measure, nothing of the others."""

    def __init__(self, measure, number):
        self._measure, self._number = measure, number
        self.turns = 0

    def turn(self):
        self.turns += 1

    def read(self, _window):
        return {**dict.fromkeys(MEASURES, 0), self._measure: self._number(self.turns)}

    def libraries(self):
        return []


class Restless(Meter):
    """Made up: a program that still has something under way."""

    def __init__(self, *readings):
        self._readings = iter(readings)

    def _read(self, _window):
        return next(self._readings)


class Judgement(unittest.TestCase):
    def test_what_a_program_holds_for_a_moment_counts_for_nothing(self):
        self.assertEqual(282, Restless(283, 287, 282, 282, 288).read(None))

    def faults(self, turns, measure, number, **kept):
        readings = Readings(measure, number)
        soak = Soak(readings, readings.turn)
        soak.warm_up(4)
        soak.run(turns, max(turns // READINGS, 1))
        return list(soak.faults(**kept))

    def test_in_the_short_run_one_in_each_turn_is_seen(self):
        for measure, size in (("windows", 1), ("user", 1), ("gdi", 1), ("kernel", 1), ("loads", 1), ("own", 10),
                              ("common", 20)):
            with self.subTest(measure):
                self.assertEqual([measure], self.faults(20, measure, lambda turn, size=size: turn * size))

    def test_in_the_long_run_one_in_a_hundred_turns_is_seen(self):
        for measure in ("windows", "user", "gdi", "kernel", "loads"):
            with self.subTest(measure):
                self.assertEqual([measure], self.faults(500, measure, lambda turn: turn // 100))

    def test_in_the_long_run_a_kibibyte_of_pages_in_each_turn_is_seen(self):
        self.assertEqual(["private"], self.faults(500, "private", lambda turn: turn * 1024 // 4096 * 4096))

    def test_what_is_made_once_is_none(self):
        for measure in ("gdi", "kernel"):
            self.assertEqual([], self.faults(20, measure, lambda turn: int(turn > 10)))
        self.assertEqual([], self.faults(500, "private", lambda turn: 60 * 1024 * (turn > 100)))

    def test_what_the_system_keeps_is_none_and_more_is_seen(self):
        self.assertEqual([], self.faults(20, "common", lambda turn: 36 * turn, common=36))
        self.assertEqual(["common"], self.faults(20, "common", lambda turn: 48 * turn, common=36))


if __name__ == "__main__":
    unittest.main()
