#!/usr/bin/python3
"""Makes a language for tests: the English texts half as long again, with accents, between two brackets.

    pseudo_language.py --out longer.po

A text that is cut lacks its last bracket, a text that is not taken from the library its first one, and a font
without the letters shows at once. Placeholders, accelerators and line breaks stay as they are. The language
bears the number of German, for which every Windows has a name.
"""

import argparse
import pathlib
import re

import polib

ENGLISH = pathlib.Path(__file__).resolve().parent.parent / "languages" / "en.po"
NUMBER = 1031
EMPTY = "(none)"
BEGIN, END = "[", "]"
FILLER = "~~~~~ "
ACCENTED = str.maketrans("aceinouyACEINOUY", "áçéîñöûýÁÇÉÎÑÖÛÝ")
KEPT = re.compile(r"(&.|%.|/\w|Moorlink\.exe)")
"""What the accents leave alone: accelerators, placeholders, switches, the program's file."""


def longer(text):
    """A text half as long again."""
    parts = KEPT.split(text)
    accented = "".join(part if at % 2 else part.translate(ACCENTED) for at, part in enumerate(parts))
    surplus = max((len(text) + 1) // 2 - len(BEGIN + END), 0)
    return BEGIN + accented + (FILLER * surplus)[:surplus] + END


def translate(po):
    """Turns the English texts of a file that polib has read into the language."""
    po.metadata.update({
        "Language": "de", "X-Language-Numbers": str(NUMBER), "X-Serves-Relatives": "no",
        "X-Help-File": f"Help-{NUMBER}.html",
    })
    for entry in po:
        if entry.msgid_plural:
            entry.msgstr_plural = {0: longer(entry.msgid), 1: longer(entry.msgid_plural)}
        else:
            entry.msgstr = EMPTY if entry.msgid == EMPTY else longer(entry.msgid)


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("--out", type=pathlib.Path, required=True, help="the translation to write")
    options = parser.parse_args()
    po = polib.pofile(str(ENGLISH))
    translate(po)
    po.save(str(options.out))


if __name__ == "__main__":
    main()
