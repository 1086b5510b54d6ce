#!/usr/bin/python3
"""Makes a language library of Kestrelmoor from a translation.

    po_to_loc.py --library default.loc --po da.po --out 1030.loc
    po_to_loc.py --po da.po                     only looks the translation through

Any library will do as --library, an empty one as well as the library of another language: its texts are
replaced. The header of the .po file says which languages the library serves, and with which font.
"""

import argparse
import os
import pathlib
import sys
import tempfile

import text_area
import translation
import windows_image

CATALOGUE = pathlib.Path(__file__).resolve().parent.parent / "languages" / "messages.json"


def write_whole(path, content):
    """Puts the file in place in one step, so that a half-written library is never found there."""
    handle, temporary = tempfile.mkstemp(dir=path.parent, prefix=path.name)
    try:
        with os.fdopen(handle, "wb") as file:
            file.write(content)
        os.chmod(temporary, 0o644)
        os.replace(temporary, path)
    except BaseException:
        os.unlink(temporary)
        raise


def make_library(template, out, texts):
    try:
        library = template.read_bytes()
    except OSError as error:
        raise translation.Refused([f"{template}: {error.strerror}"]) from None
    try:
        filled = text_area.fill(library, texts)
    except ValueError as error:
        raise translation.Refused([f"{template}: {error}"]) from None
    try:
        write_whole(out, windows_image.with_checksum(filled))
    except OSError as error:
        raise translation.Refused([f"{out}: {error.strerror}"]) from None


def main(arguments=None):
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("--po", type=pathlib.Path, required=True, help="the translation")
    parser.add_argument("--library", type=pathlib.Path, help="the library to take")
    parser.add_argument("--out", type=pathlib.Path, help="the library to write")
    parser.add_argument(
        "--catalogue", type=pathlib.Path, default=CATALOGUE, help="the numbers that a language must hold"
    )
    options = parser.parse_args(arguments)
    if (options.library is None) != (options.out is None):
        parser.error("--library and --out go together")
    try:
        texts = translation.read(options.po, translation.read_catalogue(options.catalogue))
        if options.out:
            make_library(options.library, options.out, texts)
    except translation.Refused as refused:
        for line in refused.args[0]:
            print(line, file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
