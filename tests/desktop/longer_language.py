"""The language of tools/pseudo_language.py, half as long again as English, in a library of its own."""

import subprocess
import sys

import polib

from desktop import OUT

TOOLS = OUT.parent / "tools"
sys.path.insert(0, str(TOOLS))

from pseudo_language import NUMBER as GERMAN, longer  # noqa: E402, F401


def longer_library(desktop, texts=None):
    """The bytes of the language's library. `texts`: {number: text} for what English leaves empty."""
    source, library = desktop.work / "longer.po", desktop.work / "longer.loc"
    run("pseudo_language.py", "--out", source)
    fill_in(source, texts or {})
    run("po_to_loc.py", "--po", source, "--library", OUT / "program" / "default.loc", "--out", library)
    return library.read_bytes()


def fill_in(source, texts):
    po = polib.pofile(str(source))
    for entry in po:
        entry.msgstr = texts.get(int(entry.msgctxt), entry.msgstr)
    po.save()


def run(tool, *arguments):
    subprocess.run(["/usr/bin/python3", "-B", TOOLS / tool, *arguments], check=True)
