"""A language for tests: the English texts, each word half as long again."""

import re
import subprocess

import polib

from desktop import OUT

ROOT = OUT.parent
ENGLISH = ROOT / "languages" / "en.po"
TOOL = ROOT / "tools" / "po_to_loc.py"
GERMAN = 1031
"""Windows has a name for this number; the words are nobody's."""


def longer(text):
    """Placeholders and the marks of letters stay as they are."""
    return re.sub(r"[A-Za-z]{2,}", lambda word: word[0] + word[0][:(len(word[0]) + 1) // 2].lower(), text)


def longer_library(desktop):
    """The bytes of the language's library."""
    po = polib.pofile(str(ENGLISH))
    po.metadata.update({"X-Language-Numbers": str(GERMAN), "Language": "de", "X-Serves-Relatives": "no"})
    for entry in po:
        if entry.msgid == "(none)":
            continue
        if entry.msgid_plural:
            entry.msgstr_plural = {0: longer(entry.msgid), 1: longer(entry.msgid_plural)}
        else:
            entry.msgstr = longer(entry.msgid)
    source, library = desktop.work / "longer.po", desktop.work / "longer.loc"
    po.save(str(source))
    subprocess.run(["/usr/bin/python3", str(TOOL), "--po", str(source), "--library",
                    str(OUT / "program" / "default.loc"), "--out", str(library)], check=True)
    return library.read_bytes()
