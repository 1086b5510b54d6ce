"""The practice network behind the program's account services: one file, which the stand-in reads and writes."""

import json
import pathlib
import shutil

from desktop import OUT

STOCK = pathlib.Path(__file__).resolve().parent.parent.parent / "resources" / "practice" / "stock.json"
OLD = "Old-Password-1"
"""The user's password on every computer and in every domain of the stock world."""


_FILE = "world.json"
_VARIABLE = "KESTRELMOOR_WORLD"


class PracticeNetwork:
    """A copy of the stock world in the desktop's work folder."""

    def __init__(self, desktop, change=None):
        self.path = desktop.work / _FILE
        shutil.copy(STOCK, self.path)
        if change:
            world = self.read()
            change(world)
            self.path.write_text(json.dumps(world), encoding="utf-8")
        self.variables = {_VARIABLE: desktop.windows_path(self.path)}

    def read(self):
        return json.loads(self.path.read_text(encoding="utf-8"))

    def places(self):
        """{name: the place's record} of computers and domains."""
        network = self.read()["network"]
        return {place["name"]: place for place in network["computers"] + network["domains"]}

    def passwords(self):
        """{name of computer or domain: the user's password}"""
        return {name: place["accounts"][0]["password"] for name, place in self.places().items()}


class Accounts:
    """What lets the user in on the practice network behind a program, by every name of a target."""

    def __init__(self, world):
        network = world["network"]
        self._places = {place["name"]: place for place in network["computers"]}
        self.local = self._places[network["local_computer"]]
        for domain in network["domains"]:
            names = [domain["name"], domain["dns_name"]]
            for controller in domain["controllers"]:
                names += [controller["name"], controller["dns_name"]]
            self._places.update(dict.fromkeys(names, domain))
        self._places = {name.lower(): place for name, place in self._places.items()}

    @classmethod
    def behind(cls, process):
        """None where the program has another network."""
        path = process.desktop.work / _FILE
        if process.variables.get(_VARIABLE) != process.desktop.windows_path(path):
            return None
        return cls(json.loads(path.read_text(encoding="utf-8")))

    def password(self, target):
        """`target` as the password window names it: the local computer begins with a blank."""
        return self._place(target)["accounts"][0]["password"]

    def knows(self, target):
        """Whether it leads anywhere."""
        return self._place(target) is not None

    def _place(self, target):
        return self.local if target.startswith(" ") else self._places.get(target.removeprefix("\\\\").lower())


def program_folder(desktop, **files):
    """A program folder of its own in the work folder: Moorlink.exe, and the files given by name and bytes
    ("." stands as "_"); None leaves one out."""
    folder = desktop.work / "program"
    shutil.rmtree(folder, ignore_errors=True)
    shutil.copytree(OUT / "program", folder)
    for name, content in files.items():
        path = folder / name.replace("_", ".")
        if content is None:
            path.unlink()
        else:
            path.write_bytes(content)
    return folder / "Moorlink.exe"
