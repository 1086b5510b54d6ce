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

    def test_a_missing_number_is_named(self):
        errors = self.refused(('msgctxt "1002"\nmsgid "Cancel"\nmsgstr ""\n', ""))
        self.assertEqual(
            errors,
            f"{self.folder.po}: number 1002 is missing: copy its entry from en.po and translate it\n",
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
        for text in ("&Of&f", "Off &"):
            errors = self.refused(('"&Log Off"\nmsgstr ""', f'"&Log Off"\nmsgstr "{text}"'))
            self.assert_one(
                errors,
                317,
                "number 317 needs one & at most, ahead of a letter; write && for an ampersand",
            )

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
        self.assertEqual(errors, f"{self.folder.po}: it is not in UTF-8 at byte 17: save it as UTF-8\n")

    def test_a_file_that_is_not_there_is_named(self):
        code, errors = support.run_tool("--po", self.folder.path / "none.po")
        self.assertEqual(code, 1)
        self.assertEqual(errors, f"{self.folder.path / 'none.po'}: No such file or directory\n")


class HeadFields(unittest.TestCase):
    def setUp(self):
        self.folder = support.Folder(self)

    def test_each_field_is_needed(self):
        for field in (
            "X-Language-Numbers: 1033",
            "X-Serves-Relatives: yes",
            "X-Font-Name: MS Shell Dlg 2",
            "X-Font-Name-NT4: MS Shell Dlg",
            "X-Font-Charset: 1",
            "X-Help-File: Help-1033.html",
        ):
            self.folder.write((f'"{field}\\n"\n', ""))
            code, errors = support.run_tool("--po", self.folder.po)
            name = field.split(":")[0]
            self.assertEqual(code, 1, field)
            self.assertIn(f"{self.folder.po}:1: the header field {name} should be ", errors)

    def test_a_language_number_fits_16_bits(self):
        self.folder.write(("X-Language-Numbers: 1033", "X-Language-Numbers: 1033 65536"))
        code, errors = support.run_tool("--po", self.folder.po)
        self.assertEqual(code, 1)
        self.assertIn("outside 1 to 65535", errors)

    def test_a_missing_plural_rule_is_named(self):
        self.folder.write(('"Plural-Forms: nplurals=2; plural=(n != 1);\\n"\n', ""))
        code, errors = support.run_tool("--po", self.folder.po)
        self.assertEqual(code, 1)
        self.assertIn("Plural-Forms is not of the form", errors)


class Untranslated(unittest.TestCase):
    def test_what_stays_in_english_is_noted_and_no_fault(self):
        folder = support.Folder(self)
        folder.write(
            ("Language: en", "Language: de"), ('"Cancel"\nmsgstr ""', '"Cancel"\nmsgstr "Abbrechen"')
        )
        code, notes = support.run_tool("--po", folder.po)
        self.assertEqual(code, 0)
        line = folder.line_of('msgctxt "1001"\n')
        self.assertIn(f"{folder.po}:{line}: number 1001 stays in English\n", notes)
        for quiet in ("number 1002 ", "number 204 ", "number 205 ", "number 206 "):
            self.assertNotIn(quiet, notes)


if __name__ == "__main__":
    unittest.main()
