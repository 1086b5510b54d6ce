"""The practice network behind the program's account services: one file, which the stand-in reads and writes."""

import json
import pathlib
import shutil

from desktop import OUT

STOCK = pathlib.Path(__file__).resolve().parent.parent.parent / "resources" / "practice" / "stock.json"
OLD = "Old-Password-1"
"""The user's password on every computer and in every domain of the stock world."""


class PracticeNetwork:
    """A copy of the stock world in the desktop's work folder."""

    def __init__(self, desktop, change=None):
        self.path = desktop.work / "world.json"
        shutil.copy(STOCK, self.path)
        if change:
            world = self.read()
            change(world)
            self.path.write_text(json.dumps(world), encoding="utf-8")
        self.variables = {"KESTRELMOOR_WORLD": desktop.windows_path(self.path)}

    def read(self):
        return json.loads(self.path.read_text(encoding="utf-8"))

    def places(self):
        """{name: the place's record} of computers and domains."""
        network = self.read()["network"]
        return {place["name"]: place for place in network["computers"] + network["domains"]}

    def passwords(self):
        """{name of computer or domain: the user's password}"""
        return {name: place["accounts"][0]["password"] for name, place in self.places().items()}


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
