"""Files that someone has put beside the program or into the current directory, named like what it loads."""

import shutil
import unittest

from desktop import OUT
from desktop_case import DesktopCase
from held_network import HeldNetwork
from installed_program import PATIENCE, Installation
from password_window import OK, SETTINGS_BUTTON, STAND_INS, TITLE, PasswordWindow, targets
from practice_network import program_folder
from settings_window import ABOUT, LANGUAGES, SettingsWindow
from waiting import wait_until

BY_NAME = ("comctl32", "netapi32", "netmsg", "ole32", "oleacc", "oleaut32", "shell32", "uxtheme")
"""What the program loads while it runs."""
AT_START = ("advapi32", "gdi32", "imm32", "kernel32", "kernelbase", "msvcrt", "ntdll", "rpcrt4", "sechost", "ucrtbase",
            "user32", "version", "win32u")
"""What it imports, and what that needs, under Wine as under Windows. Wine gives the folder in which it finds such a name
as the path of its own library."""
SEEN_WHEN_TAKEN = ("imm32", "rpcrt4", "sechost", "ucrtbase", "user32", "version", "win32u")
"""Of these Wine takes a planted one if it is told to, and runs its code. With another in the place of the rest no such
code is run either, as the program doesn't come so far; NTDLL is the system's even then."""
OVERRIDES = "HKCU\\Software\\Wine\\AppDefaults\\%s\\DllOverrides"
OF_SET_UP = ("apphelp", "clbcatq", "crypt32", "cryptbase", "cscapi", "dwmapi", "linkinfo", "mpr", "msi", "msls31",
             "ntmarta", "ntshrui", "profapi", "propsys", "riched20", "secur32", "setupapi", "shfolder", "shlwapi",
             "srvcli", "sspicli", "urlmon", "userenv", "usp10", "windowscodecs", "wintrust", "ws2_32")
"""What set-up programs are known to be given in its place. SHCORE is left out: Wine's SHELL32 brings it from anywhere."""
REFUSED = 2245
WORDS, OTHER_WORDS = "The new password breaks", "These words are planted"
OWN = {"moorlink.exe", "default.loc"}
RAN_MARK = OUT / "desktop" / "ran_mark.dll"
"""Leaves a file beside itself where its code is run, even if it is let go at once."""


def planted_library():
    """A library that can be loaded and has no entries; its words for the network's errors are others."""
    library = STAND_INS["netmsg.dll"].read_bytes()
    before, after = (words.encode("utf-16-le") for words in (WORDS, OTHER_WORDS))
    assert before in library and len(before) == len(after)
    return library.replace(before, after)


class PlantedCase(DesktopCase):
    options = {"dlls": STAND_INS, "registry": targets(["\\\\ARCHIVE"])}

    def setUp(self):
        self.program = program_folder(self.desktop)
        self.elsewhere = self.desktop.work / "elsewhere"
        self.elsewhere.mkdir(exist_ok=True)

    def plant(self, name, content):
        """In both folders."""
        for folder in (self.program.parent, self.elsewhere):
            (folder / name).write_bytes(content)

    def plant_mark(self, path):
        """A library without entries; where its code is run, the file that is given here is made."""
        path.write_bytes(RAN_MARK.read_bytes())
        return path.with_name(path.name + ".ran")

    def loaded_from(self, folder, process):
        """Names of the libraries that a program has from a folder."""
        inside = self.desktop.windows_path(folder).lower() + "\\"
        return {name for name, path in self.desktop.modules(process).items() if path.lower().startswith(inside)}

    def assert_only_own(self, process):
        self.assertEqual((self.loaded_from(self.program.parent, process), self.loaded_from(self.elsewhere, process)),
                         (OWN, set()))


class Libraries(PlantedCase):
    def setUp(self):
        super().setUp()
        for name in BY_NAME:
            self.plant(name + ".dll", planted_library())

    def open(self, network):
        process = self.desktop.start(self.program, ["/f"], cwd=self.elsewhere, variables=network.variables)
        return PasswordWindow(self.desktop, process=process)

    def test_none_is_loaded_in_place_of_the_systems(self):
        with HeldNetwork() as network:
            window = self.open(network)
            window.click(SETTINGS_BUTTON)
            settings = self.desktop.wait_window(class_name="frmSettings", pid=window.process.pid)
            self.desktop.click(self.desktop.child(settings, ABOUT, class_name="Button"))
            self.desktop.wait_window(class_name="frmAbout", pid=window.process.pid)
            loaded = self.desktop.modules(window.process)
            self.assertLessEqual({name + ".dll" for name in ("comctl32", "ole32", "oleaut32", "uxtheme")}, set(loaded))
            self.assert_only_own(window.process)
            for name in ("frmAbout", "frmSettings"):
                self.desktop.press("Escape")
                self.desktop.wait_no_window(class_name=name, pid=window.process.pid)

    def test_the_words_for_the_networks_errors_are_the_systems(self):
        with HeldNetwork() as network:
            window = self.open(network)
            window.fill("Old-Password-1", "New-Password-2")
            window.click(OK)
            for _ in range(2):
                network.let_go(REFUSED)
            told = " ".join(window.wait_results())
            self.assertEqual((WORDS in told, OTHER_WORDS in told), (True, False), told)
            self.assertIn("netapi32.dll", self.desktop.modules(window.process))
            self.assert_only_own(window.process)


class AtStart(PlantedCase):
    def assert_seen_when_taken(self, program, arguments, name):
        """That no mark is left says something only where a library that is taken leaves one."""
        overrides = OVERRIDES % program.name
        planted = program.with_name(name + ".dll")
        self.desktop.write_registry(overrides, name, "native")
        mark = self.plant_mark(planted)
        process = self.desktop.start(program, arguments)
        try:
            wait_until(mark.exists, "the mark of the planted %s" % name)
        finally:
            process.end()
            self.desktop.delete_registry(overrides)
            planted.unlink()

    def test_the_code_of_a_library_that_the_loader_takes_is_seen(self):
        for name in SEEN_WHEN_TAKEN:
            with self.subTest(name):
                self.assert_seen_when_taken(self.program, ["/f"], name)

    def test_the_code_of_a_library_that_the_loader_takes_for_the_set_up_program_is_seen(self):
        self.assert_seen_when_taken(self.copy_of_set_up(), "/S", "version")

    def copy_of_set_up(self):
        setup = self.elsewhere / "setup.exe"
        shutil.copyfile(next((OUT / "installer").glob("*-setup.exe")), setup)
        return setup

    def test_no_code_is_run_in_place_of_an_imported_librarys(self):
        marks = [self.plant_mark(self.program.parent / (name + ".dll")) for name in AT_START]
        with HeldNetwork() as network:
            process = self.desktop.start(self.program, ["/f"], variables=network.variables)
            self.desktop.wait_window(class_name="frmPass", pid=process.pid)
            self.assertEqual([mark.name for mark in marks if mark.exists()], [])

    def test_no_code_beside_the_set_up_program_is_run(self):
        setup = self.copy_of_set_up()
        marks = [self.plant_mark(self.elsewhere / (name + ".dll")) for name in (*AT_START, *BY_NAME, *OF_SET_UP)]
        installation = Installation(self.desktop)
        self.assertEqual(self.desktop.start(setup, "/S").wait_exit(PATIENCE), 0)
        self.addCleanup(installation.remove_as_recorded)
        self.assertTrue(installation.recorded())
        self.assertEqual([mark.name for mark in marks if mark.exists()], [])


class Languages(PlantedCase):
    def test_one_in_the_current_directory_is_listed_and_not_loaded(self):
        mark = self.plant_mark(self.elsewhere / "1035.loc")
        settings = SettingsWindow(self.desktop, program=self.program, folder=self.elsewhere)
        process = settings.passwords.process
        self.assertIn("Finnish", [row.text.split(" ")[0] for row in self.desktop.rows(settings.control(LANGUAGES))])
        self.assert_only_own(process)
        settings.choose_language("Finnish")
        settings.save()
        self.assert_only_own(process)
        self.assertEqual(settings.passwords.title(), TITLE)
        self.assertFalse(mark.exists())

    def test_one_in_the_programs_folder_is_run(self):
        mark = self.plant_mark(self.program.parent / "default.loc")
        process = self.desktop.start(self.program, ["/f"])
        self.desktop.box(pid=process.pid).answer("OK")
        self.assertEqual(process.wait_exit(), 0)
        self.assertTrue(mark.exists())


if __name__ == "__main__":
    unittest.main()
