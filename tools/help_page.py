#!/usr/bin/python3
"""Makes a help page of Kestrelmoor from its source.

    help_page.py --page help/de.html --po languages/de.po --out Help-1031.html
    help_page.py --page help/de.html --po languages/de.po      only looks the page through

{text:NNN} in the source becomes the words of that text in the translation, as the windows show them, with an
ellipsis for each argument; {picture:NAME} the picture of that name for the page's language, {style} the style
sheet. The page has the same elements as the English one beside it, and needs nothing but itself.
"""

import argparse
import base64
import pathlib
import re
import sys
from xml.sax.saxutils import escape

import help_structure
import po_to_loc
import text_area
import translation

ENGLISH = "en"


def shown(text):
    """A text of a window without the marks of letters to press and without places for arguments."""
    text = re.sub(r"\s*\(&\w\)", "", text)  # the letter that languages with other scripts add
    text = re.sub(r"&(&?)", r"\1", text)
    text = re.sub(r"%[1-9](\s*%[1-9])*\.?", "…", text).replace("%%", "%")
    return re.sub("[ \t\r\n]+", " ", text).strip(" ")  # blanks that don't break stay


def inlined(path):
    return "data:image/png;base64," + base64.b64encode(path.read_bytes()).decode("ascii")


class Filler:
    """What stands for each placeholder."""

    def __init__(self, texts, pictures, style):
        self._texts = texts
        self._pictures = pictures
        self._style = style

    def value(self, placeholder):
        """Raises LookupError with the reason for a placeholder that stands for nothing."""
        kind, _, name = placeholder.partition(":")
        if placeholder == "style":
            return "\n" + self._style
        if kind == "text":
            return self._text(name)
        if kind == "picture":
            return self._picture(name)
        raise LookupError(
            "{%s} is unknown: {text:NUMBER}, {picture:NAME} and {style} are there" % placeholder
        )

    def _text(self, name):
        text = self._texts.get((int(name), text_area.MESSAGE_FORM)) if name.isdecimal() else None
        if not text:
            raise LookupError(
                "the translation has no words of the number '%s'; a noun cannot be named" % name
            )
        return escape(shown(text), {'"': "&quot;"})

    def _picture(self, name):
        path = self._pictures / (name + ".png")
        if not re.fullmatch("[a-z_]+", name) or not path.exists():
            raise LookupError("there is no picture %s" % path)
        return inlined(path)


def filled(text, filler, faults):
    """The text with its placeholders replaced."""

    def replace(found):
        try:
            return filler.value(found[1])
        except LookupError as unknown:
            faults.add(text.count("\n", 0, found.start()) + 1, unknown.args[0])
            return ""

    return help_structure.PLACEHOLDER.sub(replace, text)


def read(path):
    try:
        return path.read_text(encoding="utf-8")
    except UnicodeDecodeError as error:
        line = error.object.count(b"\n", 0, error.start) + 1
        raise translation.Refused([f"{path}:{line}: it is not in UTF-8: save it as UTF-8"]) from None
    except OSError as error:
        raise translation.Refused([f"{path}: {error.strerror}"]) from None


def refuse(path, faults):
    if faults:
        raise translation.Refused([f"{path}:{line}: {reason}" for line, reason in sorted(faults)])


def read_style(path):
    style = read(path)
    faults = help_structure.Faults()
    help_structure.find_outside(style, faults)
    refuse(path, faults)
    return style


def make(page_path, po_path):
    """Returns the finished page and the name that the translation gives its help file."""
    language = translation.read(po_path, translation.read_catalogue(po_to_loc.CATALOGUE))
    source = read(page_path)
    folder = page_path.parent
    page = help_structure.Page(source, page_path.stem)
    if page_path.stem != ENGLISH and page.is_well_formed:
        help_structure.compare(page, help_structure.Page(read(folder / "en.html"), ENGLISH))
    filler = Filler(language.texts, folder / "pictures" / page_path.stem, read_style(folder / "style.css"))
    finished = filled(source, filler, page.faults)
    refuse(page_path, page.faults)
    return finished, language.help_file


def main(arguments=None):
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("--page", type=pathlib.Path, required=True, help="the source of the page")
    parser.add_argument(
        "--po", type=pathlib.Path, required=True, help="the translation with the windows' words"
    )
    parser.add_argument("--out", type=pathlib.Path, help="the page to write")
    options = parser.parse_args(arguments)
    try:
        page, name = make(options.page, options.po)
        if options.out and options.out.name != name:
            raise translation.Refused(
                [f"{options.po}:1: the help file is called {name}, not {options.out.name}"]
            )
        if options.out:
            po_to_loc.write_whole(options.out, page.encode("utf-8"))
    except translation.Refused as refused:
        for line in refused.args[0]:
            print(line, file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
