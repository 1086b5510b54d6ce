"""The windows that the help pages show, open in any language of the program."""

import copy
import locale
import pathlib
import sys

from desktop import Desktop
from password_window import OK, SAME, SETTINGS, SETTINGS_BUTTON, STAND_INS, PasswordWindow, targets
from practice_network import OLD as OLD_PASSWORD
from practice_network import program_folder
from settings_case import RUN_KEY, RUN_VALUE
from waiting import wait_until
from watched_network import DOMAIN, LOCAL, SERVER, UTC, WatchedNetwork, expires_in, places

ROOT = pathlib.Path(__file__).resolve().parents[2]
PICTURES = ROOT / "help" / "pictures"

sys.path[:0] = [str(ROOT / "tests"), str(ROOT / "tools")]

from built_languages import po_file  # noqa: E402
import po_to_loc  # noqa: E402
import text_area  # noqa: E402
import translation  # noqa: E402

RESULTS_TITLE = 324
DRAW_NOW, AND_CHILDREN = 0x100, 0x80
OTHER_SERVER = "MAIL"
SERVERS = ["\\\\" + SERVER, "\\\\" + OTHER_SERVER]
NEW_PASSWORD = "New-Password-2"
OTHER_PASSWORD = "Another-Password-3"


def two_servers(world):
    other = copy.deepcopy(places(world)[SERVER])
    other["name"] = OTHER_SERVER
    world["network"]["computers"].append(other)


def other_password(world):
    places(world)[OTHER_SERVER]["accounts"][0]["password"] = OTHER_PASSWORD


def two_expire(world):
    expires_in(world, LOCAL, days=3, hours=7, minutes=30)
    expires_in(world, DOMAIN, days=9, hours=2, minutes=30)


class HelpWindows:
    """A context manager; each method opens one window and returns it, after the former was closed."""

    def __init__(self, language):
        catalogue = translation.read_catalogue(po_to_loc.CATALOGUE)
        words = translation.read(po_file(language), catalogue)
        self._results_title = words.texts[RESULTS_TITLE, text_area.MESSAGE_FORM]
        self._help_file = words.help_file
        self.desktop = Desktop(
            dlls=STAND_INS, variables=UTC, locale=locale.windows_locale[words.languages[0]],
            registry={RUN_KEY: {RUN_VALUE: "Moorlink.exe"}, **targets([*SERVERS, DOMAIN])})

    def __enter__(self):
        self.desktop.__enter__()
        self.desktop.guard_session()
        # A page need not be built for its pictures to be taken: that there is a file is enough to offer help.
        self._program = program_folder(self.desktop, **{self._help_file.replace(".", "_"): b""})
        return self

    def __exit__(self, *_):
        self.desktop.close()

    def all(self):
        """(name of the picture, window), one after the other."""
        for open_window in (self.password, self.settings, self.reminder, self.results):
            window = open_window()
            self._draw(window)
            yield open_window.__name__, window
            self.desktop.end_programs()

    def password(self):
        window = self._passwords()
        window.fill(OLD_PASSWORD, NEW_PASSWORD)
        return window.window

    def settings(self):
        window = self._passwords()
        window.click(SETTINGS_BUTTON)
        return self.desktop.wait_window(class_name="frmSettings", pid=window.process.pid)

    def reminder(self):
        network = WatchedNetwork(self.desktop, two_expire)
        process = self.desktop.start(self._program, [], variables=network.variables)
        return self.desktop.box(pid=process.pid).window

    def results(self):
        """Of a run on two servers, one of which has another old password than was typed."""
        for name, value in {**targets(SERVERS)[SETTINGS], "Options": 0}.items():
            self.desktop.write_registry(SETTINGS, name, value)
        window = self._passwords(two_servers, other_password)
        window.click(SAME)
        window.click_row(0)
        for row in range(2):
            window.wait_edit(row)
            window.type_old(OLD_PASSWORD)
            self.desktop.press("Down")
        window.type_new(NEW_PASSWORD)
        window.click(OK)
        wait_until(lambda: window.title() == self._results_title, "the results")
        return window.window

    def _draw(self, window):
        """What is due to be drawn is drawn now: a slow computer shows empty controls for a while."""
        how = DRAW_NOW | AND_CHILDREN
        self.desktop.call_in(window, "user32.dll", "RedrawWindow", window.handle, 0, 0, how)

    def _passwords(self, *changes):
        network = WatchedNetwork(self.desktop, *changes)
        window = PasswordWindow(self.desktop, program=self._program, variables=network.variables)
        wait_until(lambda: self.desktop.focus(window.window), "the focus in the window")
        return window
