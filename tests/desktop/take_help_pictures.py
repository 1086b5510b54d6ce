"""take_help_pictures.py [LANGUAGE]...: takes the pictures of the help pages anew, in all languages or in
those named, and leaves them in help/pictures/<language>. To be run by hand when a window has changed, after
tests/desktop/run.sh has prepared the desktop; look at the pictures before you keep them.

Needs the package python3-pil.
"""

import sys

from PIL import Image

from help_windows import PICTURES, HelpWindows
from built_languages import built_languages

COLOURS = 16
"""Four bits for each pixel: enough for windows with smoothed letters."""


def shrink(path):
    with Image.open(path) as picture:
        small = picture.convert("RGB").quantize(COLOURS, dither=Image.Dither.NONE)
    small.save(path, optimize=True)


def main(languages):
    for language in languages:
        with HelpWindows(language) as windows:
            for name, window in windows.all():
                path = PICTURES / language / (name + ".png")
                windows.desktop.picture(path, window)
                shrink(path)
                print("%s %d bytes" % (path.relative_to(PICTURES), path.stat().st_size), flush=True)


if __name__ == "__main__":
    main(sys.argv[1:] or built_languages())
