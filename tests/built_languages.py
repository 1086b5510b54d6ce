"""The languages that are built with the program."""

import pathlib

FOLDER = pathlib.Path(__file__).resolve().parent.parent / "languages"


def built_languages():
    """Their codes, English first, as languages/LINGUAS names them."""
    lines = (FOLDER / "LINGUAS").read_text(encoding="utf-8").splitlines()
    return [line for line in lines if not line.startswith("#")]


def po_file(language):
    return FOLDER / f"{language}.po"
