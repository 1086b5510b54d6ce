"""What po_to_loc.py says about a translation: each fault with its place and its remedy."""

import unittest

import support


class Refusals(unittest.TestCase):
    def setUp(self):
        self.folder = support.Folder(self)

    def refused(self, *replacements):
        self.folder.write(*replacements)
        code, errors = support.run_tool("--po", self.folder.po)
        self.assertEqual(code, 1)
        return errors

    def assert_one(self, errors, number, text):
        """One line of complaint, at the line of the entry of that number."""
        line = self.folder.line_of(f'msgctxt "{number}"\n')
        self.assertEqual(errors, f"{self.folder.po}:{line}: {text}\n")

    def test_english_is_accepted(self):
        self.assertEqual(support.run_tool("--po", support.ENGLISH), (0, ""))

    def test_a_missing_number_is_named_at_the_end_of_the_file(self):
        errors = self.refused(('msgctxt "1002"\nmsgid "Cancel"\nmsgstr ""\n', ""))
        last = len(self.folder.po.read_text(encoding="utf-8").splitlines())
        self.assertEqual(
            errors,
            f"{self.folder.po}:{last}: number 1002 is missing: copy its entry from en.po and translate it\n",
        )

    def test_an_unknown_number_is_named(self):
        errors = self.refused(('msgctxt "1003"', 'msgctxt "1004"\nmsgid "x"\nmsgstr ""\n\nmsgctxt "1003"'))
        self.assert_one(errors, 1004, "the program has no text number 1004: take the entry out")

    def test_a_context_that_is_no_number_is_named(self):
        errors = self.refused(('msgctxt "1003"', 'msgctxt "ok"\nmsgid "x"\nmsgstr ""\n\nmsgctxt "1003"'))
        self.assert_one(errors, "ok", "'ok' is no message number: write the number as msgctxt")

    def test_a_number_that_stands_twice_is_named_with_both_lines(self):
        errors = self.refused(('msgctxt "1003"', 'msgctxt "1002"\nmsgid "x"\nmsgstr ""\n\nmsgctxt "1003"'))
        first = self.folder.line_of('msgctxt "1002"\nmsgid "Cancel"')
        second = self.folder.line_of('msgctxt "1002"\nmsgid "x"')
        self.assertEqual(
            errors,
            f"{self.folder.po}:{second}: number 1002 stands in line {first} already: keep one of them\n",
        )

    def test_a_lost_placeholder_is_named(self):
        errors = self.refused(('"Error %1: %2"\nmsgstr ""', '"Error %1: %2"\nmsgstr "Fehler %1"'))
        self.assert_one(errors, 15, "number 15 lacks %2: put it where the argument belongs")

    def test_a_placeholder_too_many_is_named(self):
        errors = self.refused(('"Error %1: %2"\nmsgstr ""', '"Error %1: %2"\nmsgstr "%1 %2 %3"'))
        self.assert_one(errors, 15, "number 15 has %3, but takes 2 argument(s): take it out")

    def test_placeholder_zero_is_no_argument(self):
        errors = self.refused(('"Error %1: %2"\nmsgstr ""', '"Error %1: %2"\nmsgstr "%1 %2 %0"'))
        self.assert_one(errors, 15, "number 15 has %0, but takes 2 argument(s): take it out")

    def test_a_lone_percent_sign_is_named(self):
        for text in ("100%", "100 % OK"):
            errors = self.refused(('"Cancel"\nmsgstr ""', f'"Cancel"\nmsgstr "{text}"'))
            self.assert_one(errors, 1002, "number 1002 has a lone percent sign: write %% for a percent sign")

    def test_a_doubled_percent_sign_and_a_changed_order_are_fine(self):
        self.folder.write(('"Error %1: %2"\nmsgstr ""', '"Error %1: %2"\nmsgstr "%2 (%1, 100%%1)"'))
        self.assertEqual(support.run_tool("--po", self.folder.po), (0, ""))

    def test_a_noun_takes_no_placeholder(self):
        errors = self.refused(('msgid "character"', 'msgid "character %1"'))
        self.assert_one(errors, 329, "number 329 is a noun and takes no arguments: 'character %1'")

    def test_a_noun_needs_its_plural(self):
        errors = self.refused(('msgid_plural "characters"\nmsgstr[0] ""\nmsgstr[1] ""', 'msgstr ""'))
        self.assert_one(errors, 329, "number 329 is a noun, and needs msgid_plural")

    def test_a_message_has_no_plural(self):
        errors = self.refused(('"Cancel"\nmsgstr ""', '"Cancel"\nmsgid_plural "x"\nmsgstr[0] ""'))
        self.assert_one(errors, 1002, "number 1002 is no noun: take out msgid_plural")

    def test_only_the_translators_texts_may_be_empty(self):
        errors = self.refused(('"Cancel"\nmsgstr ""', '"Cancel"\nmsgstr "(none)"'))
        self.assert_one(errors, 1002, "number 1002 can't be left empty: give it a text")

    def test_two_equal_accelerators_in_one_window_are_named(self):
        errors = self.refused(('"&Remove"\nmsgstr ""', '"&Remove"\nmsgstr "&Away"'))
        add = self.folder.line_of('msgctxt "408"\n')
        self.assert_one(
            errors,
            409,
            f"number 409 has the letter 'a' as accelerator, as number 408 in line {add} has; both show in "
            "the settings window: choose another",
        )

    def test_texts_that_never_show_together_may_share_an_accelerator(self):
        self.folder.write(('"&Back"\nmsgstr ""', '"&Back"\nmsgstr "&Settings again"'))
        self.assertEqual(support.run_tool("--po", self.folder.po), (0, ""))

    def test_two_accelerators_in_one_text_are_named(self):
        for text in ("&Of&f", "Off &", "Off& now", "&...", "&登出"):
            errors = self.refused(('"&Log Off"\nmsgstr ""', f'"&Log Off"\nmsgstr "{text}"'))
            self.assert_one(
                errors,
                317,
                "number 317 needs one & at most, ahead of a letter that is on a key; write && for "
                "an ampersand",
            )

    def test_a_lost_accelerator_is_named(self):
        for text in ("Log Off", "Log && Off"):
            errors = self.refused(('"&Log Off"\nmsgstr ""', f'"&Log Off"\nmsgstr "{text}"'))
            self.assert_one(
                errors,
                317,
                "number 317 lacks an accelerator: put & ahead of a letter, or (&X) behind the word",
            )

    def test_an_accelerator_may_stand_behind_the_word_or_be_cyrillic(self):
        for text in ("登出(&L)", "В&ыйти", "&1"):
            self.folder.write(('"&Log Off"\nmsgstr ""', f'"&Log Off"\nmsgstr "{text}"'))
            self.assertEqual(support.run_tool("--po", self.folder.po), (0, ""))

    def test_a_fuzzy_entry_is_named(self):
        errors = self.refused(
            ('msgctxt "1002"\nmsgid "Cancel"\nmsgstr ""', '#, fuzzy\nmsgctxt "1002"\nmsgid "x"\nmsgstr "y"')
        )
        self.assert_one(
            errors,
            1002,
            "number 1002 is marked as fuzzy: see whether the text fits and take out the mark",
        )

    def test_a_noun_has_as_many_forms_as_the_head_says(self):
        character = 'msgid_plural "characters"\nmsgstr[0] ""\nmsgstr[1] ""'
        errors = self.refused((character, 'msgid_plural "characters"\nmsgstr[0] "x"'))
        self.assert_one(errors, 329, "number 329 lacks msgstr[1]")
        errors = self.refused(
            (character, 'msgid_plural "characters"\nmsgstr[0] "x"\nmsgstr[1] "y"\nmsgstr[2] "z"')
        )
        self.assert_one(errors, 329, "number 329 has msgstr[2], but nplurals is 2")

    def test_every_fault_is_told_at_once(self):
        errors = self.refused(
            ('"Cancel"\nmsgstr ""', '"Cancel"\nmsgstr "100%"'),
            ('"Error %1: %2"\nmsgstr ""', '"Error %1: %2"\nmsgstr "%1"'),
        )
        self.assertEqual(len(errors.splitlines()), 2)

    def test_a_file_that_is_no_po_file_is_named_with_its_line(self):
        self.folder.po.write_text('msgid ""\nmsgstr ""\n\nthis is nothing\n', encoding="utf-8")
        code, errors = support.run_tool("--po", self.folder.po)
        self.assertEqual(code, 1)
        self.assertRegex(errors, f"^{self.folder.po}:4: not understood as a .po file: ")

    def test_a_file_in_another_encoding_is_named(self):
        self.folder.po.write_bytes(b'msgid ""\nmsgstr "\xfc"\n')
        code, errors = support.run_tool("--po", self.folder.po)
        self.assertEqual(code, 1)
        self.assertEqual(errors, f"{self.folder.po}:2: it is not in UTF-8: save it as UTF-8\n")

    def test_a_complaint_stays_one_line_whatever_it_shows(self):
        errors = self.refused(('msgctxt "1003"', 'msgctxt "a\\nb"\nmsgid "x"\nmsgstr ""\n\nmsgctxt "1003"'))
        line = self.folder.line_of('msgctxt "a')
        self.assertEqual(
            errors, f"{self.folder.po}:{line}: 'a b' is no message number: write the number as msgctxt\n"
        )

    def refused_file(self, text):
        self.folder.po.write_text(text, encoding="utf-8")
        code, errors = support.run_tool("--po", self.folder.po)
        self.assertEqual(code, 1)
        return errors.splitlines()

    def test_an_entry_that_the_file_begins_with_has_the_first_line(self):
        self.assertIn(
            f"{self.folder.po}:1: 'ok' is no message number: write the number as msgctxt",
            self.refused_file('msgctxt "ok"\nmsgid "x"\nmsgstr "y"\n'),
        )

    def test_an_empty_file_has_one_line_to_name(self):
        self.assertIn(
            f"{self.folder.po}:1: number 1002 is missing: copy its entry from en.po and translate it",
            self.refused_file(""),
        )

    def test_a_file_that_holds_the_name_of_another_is_not_that_file(self):
        self.assertIn(
            f"{self.folder.po}:1: not understood as a .po file: wrong syntax",
            self.refused_file(str(support.ENGLISH)),
        )

    def test_a_header_behind_an_entry_of_its_own_kind_is_named(self):
        noun = 'msgid ""\nmsgid_plural ""\nmsgstr[0] "x"\n'
        self.assertEqual(
            [f"{self.folder.po}:2: the header, with an empty msgid, has to be the first entry"],
            self.refused_file("\n" + noun + '\nmsgid ""\nmsgstr "Language: en"\n'),
        )

    def test_a_character_that_ends_the_line_unseen_is_named(self):
        for character, name in (("\u2028", "U+2028"), ("\x85", "U+0085"), ("\x0c", "U+000C")):
            self.folder.write(('"Cancel"\nmsgstr ""', f'"Cancel"\nmsgstr "a{character}b"'))
            code, errors = support.run_tool("--po", self.folder.po)
            text = self.folder.po.read_text(encoding="utf-8")
            line = text.count("\n", 0, text.index(character)) + 1
            self.assertEqual(code, 1)
            self.assertEqual(
                errors, f"{self.folder.po}:{line}: the character {name} ends the line: take it out\n"
            )

    def test_a_file_that_is_not_there_is_named(self):
        code, errors = support.run_tool("--po", self.folder.path / "none.po")
        self.assertEqual(code, 1)
        self.assertEqual(errors, f"{self.folder.path / 'none.po'}: No such file or directory\n")


class HeadFields(unittest.TestCase):
    def setUp(self):
        self.folder = support.Folder(self)

    def refused(self, *replacements):
        self.folder.write(*replacements)
        code, errors = support.run_tool("--po", self.folder.po)
        self.assertEqual(code, 1)
        return errors

    def line_of_field(self, passage):
        """The line where it stands."""
        text = self.folder.po.read_text(encoding="utf-8")
        return text[: text.index(passage)].count("\n") + 1

    def test_each_field_is_needed(self):
        for field in (
            "X-Language-Numbers: 1033",
            "X-Serves-Relatives: yes",
            "X-Font-Name: MS Shell Dlg 2",
            "X-Font-Name-NT4: MS Shell Dlg",
            "X-Font-Charset: 1",
            "X-Help-File: Help-1033.html",
        ):
            errors = self.refused((f'"{field}\\n"\n', ""))
            line = self.line_of_field('msgid ""')
            name = field.split(":")[0]
            self.assertIn(f"{self.folder.po}:{line}: the header field {name} should be ", errors)

    def test_a_field_that_is_wrong_is_named_with_its_line(self):
        for right, wrong, reason in (
            ("X-Language-Numbers: 1033", "X-Language-Numbers: en", "be language numbers with blanks between"),
            ("X-Serves-Relatives: yes", "X-Serves-Relatives: maybe", "be yes or no"),
            ("X-Font-Name: MS Shell Dlg 2", "X-Font-Name: ", "be the name of a font"),
            ("X-Font-Name-NT4: MS Shell Dlg", "X-Font-Name-NT4: ", "be the name of a font"),
            ("X-Font-Charset: 1", "X-Font-Charset: 256", "be the number of a character set, 0 to 255"),
            ("X-Help-File: Help-1033.html", "X-Help-File: ", "be the name of the help file"),
        ):
            name, _, value = wrong.partition(": ")
            errors = self.refused((right + "\\n", wrong + "\\n"))
            place = f"{self.folder.po}:{self.line_of_field(wrong)}"
            self.assertEqual(errors, f"{place}: the header field {name} should {reason}, but is '{value}'\n")

    def test_a_language_number_fits_16_bits(self):
        for number in (0, 65536):
            errors = self.refused(("X-Language-Numbers: 1033", f"X-Language-Numbers: 1033 {number}"))
            place = f"{self.folder.po}:{self.line_of_field('X-Language-Numbers')}"
            reason = "the header field X-Language-Numbers holds a number outside 1 to 65535"
            self.assertEqual(errors, f"{place}: {reason}\n")

    def test_a_plural_rule_that_cannot_be_used_is_named_with_its_line(self):
        for rule, reason in (
            ("two", "Plural-Forms is not of the form 'nplurals=2; plural=(n != 1);'"),
            ("nplurals=2; plural=(n != 1;", "unbalanced parenthesis in plural form"),
            ("nplurals=2; plural=(n / 0);", "the plural rule divides by zero"),
            ("nplurals=2; plural=0*(1/(n-1000));", "the plural rule divides by zero"),
            ("nplurals=2; plural=0-(n != 1);", "the plural rule gives form -1, but forms count from 0"),
            ("nplurals=1000000000; plural=0;", "nplurals is 1000000000, but a language has 10 forms at most"),
            ("nplurals=2; plural=n*2;", "the plural rule gives form 398, but nplurals is 2"),
            ("nplurals=1; plural=(n != 1);", "the plural rule gives form 1, but nplurals is 1"),
            ("nplurals=2; plural=(n % 1000 == 1);", "the plural rule gives form 1 for 1001, but 101 has form 0"),
        ):
            errors = self.refused(("nplurals=2; plural=(n != 1);", rule))
            line = self.line_of_field("Plural-Forms")
            self.assertIn(f"{self.folder.po}:{line}: {reason}", errors)

    def test_a_missing_plural_rule_is_named(self):
        errors = self.refused(('"Plural-Forms: nplurals=2; plural=(n != 1);\\n"\n', ""))
        line = self.line_of_field('msgid ""')
        self.assertIn(f"{self.folder.po}:{line}: Plural-Forms is not of the form", errors)


class Untranslated(unittest.TestCase):
    """English stands as it is; every other language gives a text of its own for each number."""

    def setUp(self):
        self.folder = support.Folder(self)

    def errors_of(self, language):
        self.folder.write(
            ('"Language: en\\n"', language), ('"Cancel"\nmsgstr ""', '"Cancel"\nmsgstr "Abbrechen"')
        )
        return support.run_tool("--po", self.folder.po)

    def test_what_another_language_leaves_empty_is_named(self):
        for language in ('"Language: de\\n"', '"Language: enm\\n"', '"X-Nothing: x\\n"'):
            code, errors = self.errors_of(language)
            self.assertEqual(code, 1)
            for number in (1001, 204):
                line = self.folder.line_of(f'msgctxt "{number}"\n')
                self.assertIn(
                    f"{self.folder.po}:{line}: number {number} is not translated: fill in msgstr\n", errors
                )
            line = self.folder.line_of('msgctxt "329"\n')
            self.assertIn(f"{self.folder.po}:{line}: number 329 lacks msgstr[1]\n", errors)
            self.assertNotIn("number 1002 ", errors)

    def test_an_english_of_another_country_may_leave_empty_what_stays(self):
        self.assertEqual(self.errors_of('"Language: en_GB\\n"'), (0, ""))


if __name__ == "__main__":
    unittest.main()
