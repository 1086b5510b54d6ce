"""The frame of a test on the settings window: known settings in the registry, and the window opened upon them."""

from desktop_case import DesktopCase
from password_window import SETTINGS, STAND_INS, targets
from settings_window import SettingsWindow

ARCHIVE, SERVER = "\\\\ARCHIVE", "\\\\SERVER"
RUN_KEY, RUN_VALUE = "HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Run", "Kestrelmoor"


class SettingsCase(DesktopCase):
    options = {"dlls": STAND_INS}

    names = [ARCHIVE, SERVER, "PRACTICE"]
    """The servers at the start of a test, all of them active."""

    def setUp(self):
        self.desktop.guard_session()
        self.store(targets(self.names)[SETTINGS] if self.names else {})
        self.settings = self.open()

    def open(self):
        return SettingsWindow(self.desktop)

    def store(self, values):
        """Puts these values in the place of all that the program has stored."""
        if any(self.desktop.list_registry(SETTINGS)):
            self.desktop.delete_registry(SETTINGS)
        if RUN_VALUE in self.desktop.list_registry(RUN_KEY)[1]:
            self.desktop.delete_registry(RUN_KEY, RUN_VALUE)
        for name, value in values.items():
            self.desktop.write_registry(SETTINGS, name, value)

    def all_stored(self):
        """{name: (type, bytes)} of the program's key and the value under the Run key."""
        found = {name: self.desktop.read_registry(SETTINGS, name) for name in self.desktop.list_registry(SETTINGS)[1]}
        run = self.desktop.read_registry(RUN_KEY, RUN_VALUE)
        return {**found, RUN_VALUE: run} if run else found

    def save(self):
        self.settings.save()

    def assert_stored(self, *names):
        self.assertEqual(targets(names)[SETTINGS]["Servers"], self.desktop.read_registry(SETTINGS, "Servers"))
