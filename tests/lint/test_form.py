"""The form of the sources: the formatter's, and the sizes of rooms."""

import subprocess
import unittest

from sources import relative, tracked

LARGEST_FILE = 500


class Form(unittest.TestCase):
    def test_sources_stand_as_the_formatter_sets_them(self):
        files = [path for path in tracked(".h", ".cpp", ".c") if path.suffix != ".rc"]
        self.assertGreater(len(files), 100)
        checked = subprocess.run(
            ["clang-format", "--dry-run", "--Werror", *map(str, files)], stderr=subprocess.PIPE, text=True
        )
        self.assertEqual("", checked.stderr)

    def test_no_room_has_grown_large(self):
        large = {
            relative(path): lines
            for path in tracked(".h", ".cpp", ".c", ".py")
            if (lines := path.read_text(encoding="utf-8").count("\n")) > LARGEST_FILE
        }
        self.assertEqual({}, large)

    def test_texts_end_with_one_line_break_and_hold_no_tab_or_trailing_blank(self):
        found = []
        for path in tracked(".h", ".cpp", ".c", ".py", ".sh", ".md", ".txt", ".json", ".cmake"):
            text = path.read_text(encoding="utf-8")
            if not text.endswith("\n") or text.endswith("\n\n"):
                found.append("%s: its end" % relative(path))
            for number, line in enumerate(text.split("\n"), 1):
                if line != line.rstrip() or "\t" in line:
                    found.append("%s:%d" % (relative(path), number))
        self.assertEqual([], found)
