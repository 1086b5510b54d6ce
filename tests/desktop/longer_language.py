"""The language of tools/pseudo_language.py, half as long again as English, in a library of its own."""

import subprocess
import sys

from desktop import OUT

TOOLS = OUT.parent / "tools"
sys.path.insert(0, str(TOOLS))

from pseudo_language import NUMBER as GERMAN, longer  # noqa: E402, F401


def longer_library(desktop):
    """The bytes of the language's library."""
    source, library = desktop.work / "longer.po", desktop.work / "longer.loc"
    run("pseudo_language.py", "--out", source)
    run("po_to_loc.py", "--po", source, "--library", OUT / "program" / "default.loc", "--out", library)
    return library.read_bytes()


def run(tool, *arguments):
    subprocess.run(["/usr/bin/python3", "-B", TOOLS / tool, *arguments], check=True)
