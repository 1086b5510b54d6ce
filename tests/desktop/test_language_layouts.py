"""Every form in every language of the program: no text is cut and nothing overlaps. A picture of each is left in
out/desktop/languages."""

import json
import pathlib
import sys
import unicodedata
import unittest

import polib

from about_window import AboutWindow
from desktop_case import DesktopCase, run_at
from held_network import HeldNetwork
from password_window import OK, OLD, PROGRAM, SAME, STAND_INS, STATUS, TARGETS, WAIT, targets
from settings_window import ENTRY, SERVERS, SettingsWindow
from waiting import wait_until

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))

from built_languages import FOLDER, built_languages, po_file  # noqa: E402

NAMES = ["\\\\ARCHIVE", "PRACTICE"]
OLD_PASSWORD, NEW_PASSWORD = "old", "new"
SW_SHOWNA = 8


def number_of(language):
    return polib.pofile(str(po_file(language))).metadata["X-Language-Numbers"].split()[0]


def width(text):
    """In narrow letters."""
    return sum(2 if unicodedata.east_asian_width(letter) in "WF" else 1 for letter in text)


def longest(count):
    """The languages whose windows hold the most."""
    windows = json.loads((FOLDER / "messages.json").read_text(encoding="utf-8"))["windows"].values()
    shown = {str(number) for window in windows for number in window}

    def room(language):
        return sum(width(entry.msgstr) for entry in polib.pofile(str(po_file(language))) if entry.msgctxt in shown)

    return sorted(built_languages(), key=room)[-count:]


class Program:
    """One start of the program in a language, led through all its forms."""

    def __init__(self, desktop, network, language):
        self.desktop = desktop
        self.network = network
        # The languages to choose from are looked for in the current directory.
        self.settings = SettingsWindow(
            desktop, folder=PROGRAM.parent, arguments=["/l", number_of(language)], network=network)
        self.passwords = self.settings.passwords

    def show_settings(self):
        return self.settings.window

    def show_about(self):
        self.about = AboutWindow(self.settings)
        return self.about.window

    def show_entry(self):
        self.desktop.press("Escape")
        self.about.wait_closed()
        self.settings.open_entry()
        return self.settings.window

    def show_one_password(self):
        self.settings.leave_entry()
        self.desktop.press("Escape")
        self.settings.wait_closed()
        return self.passwords.window

    def show_list(self):
        self.passwords.click(SAME)
        wait_until(lambda: self.passwords.control(TARGETS).visible, "the list")
        self.passwords.click_row(0)
        self.passwords.wait_edit(0)
        return self.passwords.window

    def show_run(self):
        self.passwords.click(SAME)
        wait_until(lambda: not self.passwords.control(TARGETS).visible, "the one old password")
        self.passwords.fill(OLD_PASSWORD, NEW_PASSWORD)
        self.passwords.click(OK)
        self.network.wait_change(1)
        return self.passwords.window

    def show_results(self):
        for _ in range(1 + len(NAMES)):
            self.network.let_go()
        wait_until(lambda: self.passwords.control(STATUS).visible, "the results")
        return self.passwords.window

    def show_wait(self):
        """The results with the line of the run, which is hidden by then."""
        line = self.passwords.control(WAIT)
        self.desktop.call_in(line, "user32.dll", "ShowWindow", line.handle, SW_SHOWNA)
        return self.passwords.window


# Each row leads on from the one above: what the pictures are called, how the form is reached, and which controls
# overlap there on purpose, or None where the program is busy and can't be asked.
FORMS = [
    ("settings", Program.show_settings, ()),
    ("about", Program.show_about, ()),
    ("settings-entry", Program.show_entry, [(SERVERS, ENTRY)]),
    ("password-one", Program.show_one_password, ()),
    ("password-list", Program.show_list, [(OLD, TARGETS)]),
    ("password-run", Program.show_run, None),
    ("password-results", Program.show_results, ()),
    ("password-wait", Program.show_wait, ()),
]


class LayoutCase(DesktopCase):
    """All languages on one desktop."""

    dpi = 96
    languages = ()
    maxDiff = None
    """Every fault is told."""

    @classmethod
    def setUpClass(cls):
        cls.options = {"dlls": STAND_INS, "registry": targets(NAMES), "dpi": cls.dpi}
        super().setUpClass()

    def faults_in(self, language):
        with HeldNetwork() as network:
            program = Program(self.desktop, network, language)
            for form, show, allowed in FORMS:
                window = show(program)
                self.picture("languages/%s-%s-%d" % (form, language, self.dpi), window)
                if allowed is not None:
                    for kind, _, _, words in self.desktop.layout_faults(window, allowed):
                        yield "%s, %s: %s, %s" % (language, form, kind, words)
            self.desktop.end_programs()

    def check(self):
        self.desktop.guard_session()
        self.assertEqual([], [fault for language in self.languages for fault in self.faults_in(language)])


class LanguageLayouts(unittest.TestCase):
    maxDiff = None
    """Every fault is told."""

    def look_at(self, dpi, languages):
        run_at(self, type("LayoutsAt%d" % dpi, (LayoutCase,), {"dpi": dpi, "languages": languages})("check"))

    def test_every_language(self):
        self.look_at(96, built_languages())

    def test_the_longest_languages_at_one_and_a_half_times_the_resolution(self):
        self.look_at(144, longest(3))

    def test_the_longest_languages_at_twice_the_resolution(self):
        self.look_at(192, longest(3))


if __name__ == "__main__":
    unittest.main()
