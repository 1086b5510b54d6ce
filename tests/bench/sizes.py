"""The sizes of what is installed, and of what installs it."""

import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
sys.path[:0] = [str(HERE.parent / "lint"), str(HERE.parent)]

from built_languages import built_languages  # noqa: E402
from figures import Measure, counted  # noqa: E402
from imports import LONGEST, allowed_imports, imports  # noqa: E402

LONGEST_LIBRARY = 61440
LONGEST_INSTALLER = 1200000


def measures():
    program = ROOT / "out" / "program"
    moorlink = program / "Moorlink.exe"
    libraries = {library for library, _ in imports(moorlink)}
    texts = sorted(program.glob("*.loc"), key=lambda path: path.stat().st_size)
    if len(texts) != len(built_languages()):
        raise RuntimeError("%d language libraries in place of %d" % (len(texts), len(built_languages())))
    rows = [
        counted("`Moorlink.exe`, stripped", moorlink.stat().st_size, LONGEST, "bytes"),
        Measure("libraries that it imports from", ", ".join(sorted(libraries)),
                goal="no others than " + ", ".join(sorted(allowed_imports())),
                met=bool(libraries) and libraries <= set(allowed_imports())),
        counted("the largest of %d language libraries" % len(texts), texts[-1].stat().st_size, LONGEST_LIBRARY,
                "bytes"),
    ]
    for what, pattern in (("set-up program", "*.exe"), ("package", "*.msi")):
        made, = (ROOT / "out" / "installer").glob(pattern)
        rows.append(counted(what, made.stat().st_size, LONGEST_INSTALLER, "bytes"))
    return rows
