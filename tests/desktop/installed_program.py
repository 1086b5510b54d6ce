"""Kestrelmoor installed on the desktop by its set-up program or its package, and what that leaves behind."""

import pathlib
import shutil
import subprocess

from desktop import OUT
from waiting import wait_until
from wine_desktop import CACHE

BUILD = pathlib.Path(__file__).resolve().parent.parent.parent / "installer" / "build.py"
MADE = OUT / "desktop" / "installers"
FOLDER = "C:\\Program Files\\Kestrelmoor"
RECORD = ("HKLM\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\"
          "{5C1E7A90-3B2D-4E68-9F14-A07D2C86B3E1}_is1")
LANGUAGES = "HKLM\\Software\\Orvane\\Kestrelmoor\\LocFiles"
MSIEXEC = "C:\\windows\\system32\\msiexec.exe"
PATIENCE = 60.0

NOT_OURS = ("HKEY_LOCAL_MACHINE\\Hardware", "HKEY_LOCAL_MACHINE\\System",
            "HKEY_LOCAL_MACHINE\\Software\\Classes\\Installer",
            "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Installer")
"""What the system keeps there changes by itself; that a package is known there has a test of its own."""


def make_installers(version, more):
    """Builds set-up program and package of a version. `more` names files beside those of the built program, as
    copies of its language library. Returns their folder."""
    program, out = MADE / version / "program", MADE / version / "installer"
    shutil.rmtree(MADE / version, ignore_errors=True)
    shutil.copytree(OUT / "program", program)
    for name in more:
        shutil.copyfile(OUT / "program" / "default.loc", program / name)
    subprocess.run(["/usr/bin/python3", "-B", BUILD, "--program", program, "--out", out, "--version", version],
                   check=True, stdout=subprocess.DEVNULL)
    return out


def setup_of(folder):
    return next(folder.glob("*-setup.exe"))


def package_of(folder):
    return next(folder.glob("*.msi"))


class Installation:
    def __init__(self, desktop):
        self.desktop = desktop

    def set_up(self, folder, more="", as_user=False):
        """Runs the set-up program without windows; returns its exit code."""
        return self.desktop.start(setup_of(folder), "/S " + more, as_user=as_user).wait_exit(PATIENCE)

    def install_package(self, folder, *more):
        return self._package("/i", folder, *more)

    def remove_package(self, folder):
        return self._package("/x", folder)

    def _package(self, what, folder, *more):
        path = self.desktop.windows_path(package_of(folder))
        return self.desktop.start(MSIEXEC, [what, path, "/qn", *more]).wait_exit(PATIENCE)

    def remove_as_recorded(self):
        """By the command that the list of installed programs has for removals without windows."""
        command = self.record("QuietUninstallString").replace('"', "")
        program, _, tail = command.partition(".exe ")
        self.desktop.start(program + ".exe", tail).wait_exit(PATIENCE)
        # The uninstaller goes on in a copy of itself; the record is the last that goes.
        wait_until(lambda: not self.recorded(), "the record gone", PATIENCE)

    def command(self, line):
        """A command of the system's; what lies in the prefix is changed from inside alone."""
        self.desktop.start("C:\\windows\\system32\\cmd.exe", "/c " + line).wait_exit(PATIENCE)

    def recorded(self):
        parent, _, key = RECORD.rpartition("\\")
        return key in self.desktop.list_registry(parent)[0]

    def record(self, name):
        return self.desktop.registry_value(RECORD, name)

    def path(self, folder=FOLDER):
        return self.desktop.prefix_file(folder.removeprefix("C:\\").replace("\\", "/"))

    def files(self, folder=FOLDER):
        return sorted(path.name for path in self.path(folder).iterdir())

    def menu(self):
        """{name: bytes} of the links in the start menu, whoever's it is: Wine gives packages the user's own."""
        return {path.name: path.read_bytes()
                for path in self.desktop.prefix_file("").glob("**/Start Menu/Programs/Kestrelmoor/*")}

    def listed(self):
        """The entries that the list of installed programs shows for the product."""
        parent = RECORD.rpartition("\\")[0]
        keys = [parent + "\\" + name for name in self.desktop.list_registry(parent)[0]]
        return [key for key in keys if self.desktop.registry_value(key, "DisplayName") == "Kestrelmoor"
                and self.desktop.registry_value(key, "SystemComponent") != 1]

    # The whole computer -----------------------------------------------------------------------------------

    def all_registry(self):
        """Every key, and every value with its data, as the registry editor exports them."""
        file = self.desktop.work / "whole.reg"
        self.desktop.start("C:\\windows\\regedit.exe", ["/E", self.desktop.windows_path(file)]).wait_exit(PATIENCE)
        found, key = set(), ""
        for line in file.read_text("utf-16").replace("\\\n", "").splitlines():
            if line.startswith("["):
                key = line[1:-1]
            if line and not key.startswith(NOT_OURS) and "\\Software\\Wine" not in key:
                found.add((key, line))
        return found

    def all_files(self):
        """Every file and folder that a fresh Windows has not, but for the folders of temporary files."""
        base, fresh = self.desktop.prefix_file(""), CACHE / "wine-prefix" / "drive_c"
        names = {str(path.relative_to(base)) for path in base.rglob("*")}
        return {name for name in names if not (fresh / name).exists() and "/Temp/" not in name
                and name != "windows/Installer"}
