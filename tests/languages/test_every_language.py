"""Each language of languages/LINGUAS: its translation, and the finished library that holds it."""

import functools
import subprocess
import unittest

import pefile
import polib
import support
from built_languages import built_languages, po_file
from loaded_library import NT4, LoadedLibrary

LARGEST_LIBRARY = 61_440

# The form of a noun for each count. The forms are counted from 0 in the order of the categories of the
# Unicode CLDR plural rules for cardinal numbers (supplemental/plurals.xml): one, few, many, other, without
# those that a language has not, or that only fractions have. French, Italian, Spanish and Portuguese there
# tell round millions apart ("1000000 de jours"); as the noun is in the plural all the same, they count as that.
COUNTS = (0, 1, 2, 5, 11, 21, 22, 101, 112, 1_000_000)
ONE_AND_OTHER = (1, 0, 1, 1, 1, 1, 1, 1, 1, 1)
UP_TO_ONE_AND_OTHER = (0, 0, 1, 1, 1, 1, 1, 1, 1, 1)
EAST_SLAVIC = (2, 0, 1, 2, 2, 0, 1, 0, 2, 2)
ALWAYS_THE_SAME = (0, 0, 0, 0, 0, 0, 0, 0, 0, 0)
FORMS = {
    "en": ONE_AND_OTHER,
    "de": ONE_AND_OTHER,
    "fr": UP_TO_ONE_AND_OTHER,
    "it": ONE_AND_OTHER,
    "es": ONE_AND_OTHER,
    "pt-BR": UP_TO_ONE_AND_OTHER,
    "nl": ONE_AND_OTHER,
    "pl": (2, 0, 1, 2, 2, 2, 1, 2, 2, 2),
    "cs": (2, 0, 1, 2, 2, 2, 2, 2, 2, 2),
    "ru": EAST_SLAVIC,
    "uk": EAST_SLAVIC,
    "tr": ONE_AND_OTHER,
    "ja": ALWAYS_THE_SAME,
    "zh-CN": ALWAYS_THE_SAME,
    "ko": ALWAYS_THE_SAME,
}
NOUNS_DO_NOT_CHANGE = {"tr", "ja", "zh-CN", "ko"}
"""Behind a number."""

NOUNS = (5, 6, 329, 412)

# The fonts of each language, from Windows 2000 on and on Windows NT 4.0, and their character set.
WESTERN = ("MS Shell Dlg 2", "MS Shell Dlg", 1)
CENTRAL_EUROPEAN = ("MS Shell Dlg 2", "MS Shell Dlg", 238)
CYRILLIC = ("MS Shell Dlg 2", "MS Shell Dlg", 204)
# The language's numbers, the number of a relative, and its fonts.
HEADS = {
    "en": ([1033], 2057, WESTERN),
    "de": ([1031], 3079, WESTERN),
    "fr": ([1036], 2060, WESTERN),
    "it": ([1040], 2064, WESTERN),
    "es": ([3082, 1034], 2058, WESTERN),
    "pt-BR": ([1046], 2070, WESTERN),
    "nl": ([1043], 2067, WESTERN),
    "pl": ([1045], None, CENTRAL_EUROPEAN),
    "cs": ([1029], None, CENTRAL_EUROPEAN),
    "ru": ([1049], None, CYRILLIC),
    "uk": ([1058], None, CYRILLIC),
    "tr": ([1055], None, ("MS Shell Dlg 2", "MS Shell Dlg", 162)),
    "ja": ([1041], None, ("MS UI Gothic", "MS PGothic", 128)),
    "zh-CN": ([2052, 4100], None, ("SimSun", "SimSun", 134)),
    "ko": ([1042], None, ("Gulim", "Gulim", 129)),
}


def file_name(language):
    return "default.loc" if language == "en" else f"{HEADS[language][0][0]}.loc"


def translation_of(entry, form=None):
    if form is None:
        return entry.msgstr or entry.msgid
    return entry.msgstr_plural[form] or (entry.msgid if form == 0 else entry.msgid_plural)


def for_each_language(check):
    """Makes a test of a check of one language."""

    @functools.wraps(check)
    def test(self):
        for language in built_languages():
            with self.subTest(language):
                check(self, language)

    return test


class Translations(unittest.TestCase):
    def test_every_translation_is_built_and_known_here(self):
        files = {path.stem for path in (support.ROOT / "languages").glob("*.po")}
        self.assertEqual(set(built_languages()), files)
        self.assertEqual(set(FORMS), files)
        self.assertEqual(set(HEADS), files)

    @for_each_language
    def test_gettext_accepts_it(self, language):
        run = subprocess.run(
            ["msgfmt", "--check", "-o", "/dev/null", po_file(language)], capture_output=True, text=True
        )
        self.assertEqual((run.returncode, run.stderr), (0, ""))

    @for_each_language
    def test_it_passes_every_check(self, language):
        self.assertEqual(support.run_tool("--po", po_file(language)), (0, ""))

    @for_each_language
    def test_it_translates_the_english_texts_of_today(self, language):
        english = {entry.msgctxt: entry for entry in polib.pofile(str(support.ENGLISH))}
        for entry in polib.pofile(str(po_file(language))):
            source = english[entry.msgctxt]
            self.assertEqual((source.msgid, source.msgid_plural), (entry.msgid, entry.msgid_plural))


class NativeLibraries(unittest.TestCase):
    def load(self, language):
        folder = support.program_folder("KESTRELMOOR_NATIVE_PROGRAM", "out/native/program")
        library = LoadedLibrary(folder / file_name(language))
        library.initialize(HEADS[language][0][0])
        return library

    @for_each_language
    def test_it_gives_every_text_of_the_translation(self, language):
        library = self.load(language)
        for entry in polib.pofile(str(po_file(language))):
            if not entry.msgid_plural:
                wanted = translation_of(entry).replace("\n", "\r\n").replace("(none)", "")
                self.assertEqual(wanted, library.text(int(entry.msgctxt)))

    @for_each_language
    def test_it_chooses_the_form_that_the_language_has_for_a_count(self, language):
        library = self.load(language)
        entries = {entry.msgctxt: entry for entry in polib.pofile(str(po_file(language)))}
        for number in NOUNS:
            wanted = [translation_of(entries[str(number)], form) for form in FORMS[language]]
            self.assertEqual(wanted, [library.noun(number, count) for count in COUNTS])

    @for_each_language
    def test_its_forms_differ_where_the_language_tells_them_apart(self, language):
        """At least one of the nouns has as many forms as the language has."""
        nouns = [entry for entry in polib.pofile(str(po_file(language))) if entry.msgid_plural]
        most = max(len({translation_of(noun, form) for form in FORMS[language]}) for noun in nouns)
        self.assertEqual(1 if language in NOUNS_DO_NOT_CHANGE else len(set(FORMS[language])), most)

    @for_each_language
    def test_it_serves_its_numbers_and_its_relatives(self, language):
        library = self.load(language)
        numbers, relative, _ = HEADS[language]
        self.assertEqual(numbers, library.languages())
        for number in numbers + ([relative] if relative else []):
            library.initialize(number)

    def test_chinese_in_other_letters_is_refused(self):
        library = self.load("zh-CN")
        for number in (1028, 3076, 5124):
            with self.assertRaisesRegex(OSError, "0x80004005"):
                library.initialize(number)

    @for_each_language
    def test_it_names_its_fonts_and_its_help_file(self, language):
        library = self.load(language)
        (number, *_), _, (font, old_font, charset) = HEADS[language]
        self.assertEqual((font, charset), (library.font_name(), library.font_charset()))
        self.assertEqual(f"Help-{number}.html", library.help_file())
        library.initialize(number, NT4)
        self.assertEqual((old_font, charset), (library.font_name(), library.font_charset()))


class WindowsLibraries(unittest.TestCase):
    def setUp(self):
        self.folder = support.program_folder(
            "KESTRELMOOR_WINDOWS_PROGRAM", "out/windows/program", "out/program"
        )

    def test_the_program_has_a_library_for_each_language_and_no_other(self):
        self.assertEqual(
            {file_name(language) for language in built_languages()},
            {path.name for path in self.folder.glob("*.loc")},
        )

    @for_each_language
    def test_it_is_small(self, language):
        self.assertLessEqual((self.folder / file_name(language)).stat().st_size, LARGEST_LIBRARY)

    @for_each_language
    def test_it_is_a_sound_image(self, language):
        content = (self.folder / file_name(language)).read_bytes()
        image = pefile.PE(data=content)
        head = image.OPTIONAL_HEADER
        self.assertTrue(image.verify_checksum())
        self.assertEqual([], [text for text in image.get_warnings() if not text.startswith("Byte 0x00 ")])
        self.assertEqual((4096, 512), (head.SectionAlignment, head.FileAlignment))
        last = image.sections[-1]
        self.assertEqual(len(content), last.PointerToRawData + last.SizeOfRawData)
        end = last.VirtualAddress + last.Misc_VirtualSize
        self.assertEqual(-(-end // head.SectionAlignment) * head.SectionAlignment, head.SizeOfImage)


if __name__ == "__main__":
    unittest.main()
