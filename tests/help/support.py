"""What the tests of the help pages share."""

import contextlib
import io
import pathlib
import shutil
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
HELP = ROOT / "help"
sys.path[:0] = [str(ROOT / "tests"), str(ROOT / "tools")]
sys.dont_write_bytecode = True

import help_page  # noqa: E402
from built_languages import built_languages, po_file  # noqa: E402

ENGLISH_TEXTS = po_file("en")


def page_of(language):
    return HELP / (language + ".html")


def run_tool(*arguments):
    """Returns the exit code and what was written to the error stream."""
    errors = io.StringIO()
    with contextlib.redirect_stderr(errors):
        code = help_page.main([str(argument) for argument in arguments])
    return code, errors.getvalue()


class Folder:
    """A temporary folder with the English page, its style sheet and pictures, and the page of a language,
    made from the English one by replacing passages."""

    def __init__(self, test, code):
        temporary = tempfile.TemporaryDirectory()
        test.addCleanup(temporary.cleanup)
        self.path = pathlib.Path(temporary.name)
        self._code = code
        self.page = self.path / (code + ".html")
        for name in ("en.html", "style.css"):
            shutil.copy(HELP / name, self.path / name)
        for language in {"en", code}:
            shutil.copytree(HELP / "pictures" / "en", self.path / "pictures" / language)
        self.write()

    def write(self, *replacements):
        text = (HELP / "en.html").read_text(encoding="utf-8")
        for old, new in (('<html lang="en"', f'<html lang="{self._code}"'), *replacements):
            if text.count(old) != 1:
                raise AssertionError(f"{old!r} stands {text.count(old)} times in en.html")
            text = text.replace(old, new)
        self.page.write_text(text, encoding="utf-8")

    def line_of(self, passage, page=None):
        text = (page or self.page).read_text(encoding="utf-8")
        return text[: text.index(passage)].count("\n") + 1

    def run(self):
        return run_tool("--page", self.page, "--po", ENGLISH_TEXTS)
