"""The language for tests: English half as long again."""

import pathlib
import subprocess
import tempfile
import unittest

import polib
import support
import translation
from loaded_library import LoadedLibrary

TOOL = support.ROOT / "tools" / "pseudo_language.py"


class PseudoLanguage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = cls.enterClassContext(tempfile.TemporaryDirectory())
        cls.path = pathlib.Path(folder) / "longer.po"
        subprocess.run(["/usr/bin/python3", "-B", TOOL, "--out", cls.path], check=True)
        cls.texts = {entry.msgctxt: entry for entry in polib.pofile(str(cls.path))}

    def pairs(self):
        for entry in self.texts.values():
            if entry.msgid_plural:
                yield entry.msgid, entry.msgstr_plural[0]
                yield entry.msgid_plural, entry.msgstr_plural[1]
            elif entry.msgid != "(none)":
                yield entry.msgid, entry.msgstr

    def test_it_is_a_translation_without_fault(self):
        self.assertEqual(support.run_tool("--po", self.path), (0, ""))

    def test_a_text_is_half_as_long_again_between_brackets(self):
        self.assertEqual(self.texts["303"].msgstr, "[Çháñgé Pásswörd~~~~~ ]")
        for english, longer in self.pairs():
            self.assertEqual((longer[0], longer[-1]), ("[", "]"))
            self.assertEqual(max(len(english) + 2, len(english) + (len(english) + 1) // 2), len(longer))

    def test_accelerators_and_placeholders_stay(self):
        self.assertEqual(self.texts["410"].msgstr, "[Ré&mîñd mé~~~]")
        for english, longer in self.pairs():
            self.assertEqual(translation.accelerators(english), translation.accelerators(longer))
            self.assertEqual(translation.placeholders(english), translation.placeholders(longer))

    def test_the_library_of_another_language_takes_it(self):
        folder = support.program_folder("KESTRELMOOR_NATIVE_PROGRAM", "out/native/program")
        for template in folder.glob("*.loc"):
            out = self.path.with_name(template.name)
            tool = support.run_tool("--library", template, "--po", self.path, "--out", out)
            self.assertEqual(tool, (0, ""))
            library = LoadedLibrary(out)
            library.initialize(1031)
            self.assertEqual(self.texts["303"].msgstr, library.text(303))

    def test_switches_stay(self):
        for passage in ("Moorlink.exe [/f] [/d [", "\n/d\t", "\n/?\t"):
            self.assertIn(passage, self.texts["17"].msgstr)


if __name__ == "__main__":
    unittest.main()
