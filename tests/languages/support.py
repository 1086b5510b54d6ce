"""What the tests of the languages share."""

import contextlib
import io
import os
import pathlib
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
ENGLISH = ROOT / "languages" / "en.po"
sys.path[:0] = [str(ROOT / "tools"), str(ROOT / "tests")]
sys.dont_write_bytecode = True

import po_to_loc  # noqa: E402


def program_folder(variable, *places):
    """The folder of a finished build: from the environment, or the first usual place that is there."""
    named = os.environ.get(variable)
    candidates = [pathlib.Path(named)] if named else [ROOT / place for place in places]
    for candidate in candidates:
        if (candidate / "default.loc").exists():
            return candidate
    raise AssertionError(f"no default.loc in {', '.join(map(str, candidates))}: build first")


def run_tool(*arguments):
    """Returns the exit code and what was written to the error stream."""
    errors = io.StringIO()
    with contextlib.redirect_stderr(errors):
        try:
            code = po_to_loc.main([str(argument) for argument in arguments])
        except SystemExit as ended:
            code = ended.code
    return code, errors.getvalue()


class Folder:
    """A temporary folder with one .po file, made from the English one by replacing passages."""

    def __init__(self, test):
        temporary = tempfile.TemporaryDirectory()
        test.addCleanup(temporary.cleanup)
        self.path = pathlib.Path(temporary.name)
        self.po = self.path / "xx.po"

    def write(self, *replacements):
        text = ENGLISH.read_text(encoding="utf-8")
        for old, new in replacements:
            if text.count(old) != 1:
                raise AssertionError(f"{old!r} stands {text.count(old)} times in en.po")
            text = text.replace(old, new)
        self.po.write_text(text, encoding="utf-8")
        return text

    def line_of(self, passage):
        """The line where the entry with that passage begins, its comments included."""
        text = self.po.read_text(encoding="utf-8")
        start = text.rindex("\n\n", 0, text.index(passage)) + 2
        return text[:start].count("\n") + 1
