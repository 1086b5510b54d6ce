"""What the set-up program and the package for fleets say of the product: names, codes, folders, files."""

import hashlib
import pathlib
import re
import uuid
from dataclasses import dataclass

ROOT = pathlib.Path(__file__).resolve().parent.parent

NAME = "Kestrelmoor"
PUBLISHER = "Orvane"
WEB_ADDRESS = "https://kestrelmoor.example/"
"""Shown by the list of installed programs and by the about window."""
EXECUTABLE = "Moorlink.exe"
WINDOW_SWITCH = "/f"
"""Without it the program looks once at every target and, when all is well, ends without a window."""

SETTINGS_KEY = "Software\\Orvane\\Kestrelmoor"
LANGUAGES_KEY = SETTINGS_KEY + "\\LocFiles"
RECORD_KEY = ("Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\"
              "{5C1E7A90-3B2D-4E68-9F14-A07D2C86B3E1}_is1")
"""One record for both ways of installing, so that the list of installed programs has one entry."""

CODES = uuid.UUID("5c1e7a90-3b2d-4e68-9f14-a07d2c86b3e1")
"""The name space in which all codes of the package are made, each from a name."""


def code(name):
    """The same name gives the same code at all times and on all computers, in the form {XXXXXXXX-...}."""
    return "{%s}" % str(uuid.uuid5(CODES, name)).upper()


UPGRADE_CODE = code("upgrade")
"""The same in all versions: it is how one package finds another, and how the set-up program finds it."""

FIRST_LANGUAGE = "0"
"""The entry of the list of language libraries that stands ahead of all others."""


@dataclass(frozen=True)
class Version:
    major: int
    minor: int
    revision: int

    @property
    def text(self):
        """As people see it: "1.02.0084"."""
        return "%d.%02d.%04d" % (self.major, self.minor, self.revision)

    def record(self):
        """Four numbers, as a version record has them."""
        return "%d.%d.0.%d" % (self.major, self.minor, self.revision)

    def package(self):
        """Three numbers, which is all that Windows Installer compares."""
        return "%d.%d.%d" % (self.major, self.minor, self.revision)


def read_version(path=ROOT / "cmake" / "version.cmake"):
    found = dict(re.findall(r"^set\(KESTRELMOOR_VERSION_(\w+) (\d+)\)", path.read_text(), re.MULTILINE))
    return Version(*(int(found[part]) for part in ("MAJOR", "MINOR", "REVISION")))


class Program:
    """The folder of the program as built, whatever it holds."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder).resolve()
        self.files = sorted(path.name for path in self.folder.iterdir())
        if EXECUTABLE not in self.files:
            raise ValueError("%s holds no %s" % (folder, EXECUTABLE))

    def languages(self):
        """The language numbers, as text, that have a library of their own."""
        names = (name for name in self.files if re.fullmatch(r"\d+\.loc", name))
        return sorted((name.removesuffix(".loc") for name in names), key=int)

    def language_values(self):
        """{name: data} of the machine-wide list of language libraries; empty without a library beside
        default.loc, for the program can't bear a list of one. The list names "0" first, the automatic choice,
        which nobody looks up: a listing that skips its first value skips no language."""
        languages = self.languages()
        if not languages:
            return {}
        return {FIRST_LANGUAGE: "default.loc", **{number: number + ".loc" for number in languages}}

    def kilobytes(self):
        return (sum((self.folder / name).stat().st_size for name in self.files) + 1023) // 1024

    def digest(self):
        """Of all names and contents."""
        whole = hashlib.sha256()
        for name in self.files:
            content = (self.folder / name).read_bytes()
            whole.update(b"%s %d\n" % (name.encode(), len(content)))
            whole.update(content)
        return whole.hexdigest()
