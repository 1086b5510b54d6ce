"""What help_page.py says about a page: each fault with its place and its reason."""

import unittest

import support


class PageCase(unittest.TestCase):
    code = "xx"

    def setUp(self):
        self.folder = support.Folder(self, self.code)

    def assert_refused(self, passage, *reasons):
        """One line for each reason, all at the line of that passage."""
        line = self.folder.line_of(passage)
        code, errors = self.folder.run()
        self.assertEqual(errors, "".join(f"{self.folder.page}:{line}: {reason}\n" for reason in reasons))
        self.assertEqual(code, 1)


class TranslatedPage(PageCase):
    """Compared with the English one."""

    def test_a_page_with_other_words_is_accepted(self):
        self.folder.write(
            ("<title>Kestrelmoor Help</title>", "<title>Ayuda</title>"),
            ('alt="The reminder: a password expires in a few days"', 'alt="Otra"'),
            ('dir="ltr"', 'dir="rtl"'),
        )
        self.assertEqual(self.folder.run(), (0, ""))

    def test_an_order_that_the_grammar_needs_is_accepted(self):
        self.folder.write(
            (
                "<b>{text:408}</b> adds a row, <b>{text:409}</b>",
                "<b>{text:409}</b> adds a row, <b>{text:408}</b>",
            )
        )
        self.assertEqual(self.folder.run(), (0, ""))

    def test_a_tag_that_is_not_closed(self):
        self.folder.write(("read the results.</li>", "read the results."))
        self.assert_refused('</ol>\n\n<p class="picture"', "it is not well formed: mismatched tag")

    def test_an_entity_with_a_name(self):
        self.folder.write(("read the results.</li>", "read the&nbsp;results.</li>"))
        self.assert_refused("read the&nbsp;", "it is not well formed: undefined entity")

    def test_a_block_too_many(self):
        self.folder.write(("read the results.</li>", "read the results.</li>\n<li>More.</li>"))
        english = self.folder.line_of(
            '<p class="picture"><img src="{picture:password}"', self.folder.path / "en.html"
        )
        self.assert_refused(
            "<li>More", '<li> stands where the English page has <p class="picture"> in line ' f"{english}"
        )

    def test_a_block_too_many_at_the_end(self):
        self.folder.write(("</div>\n</body>", "</div>\n<p>More.</p>\n</body>"))
        self.assert_refused("<p>More", "<p> stands where the English page ends")

    def test_the_last_block_left_out(self):
        text = self.folder.page.read_text(encoding="utf-8")
        last = text[text.rindex("<li>") : text.rindex("</ul>")]
        self.folder.write((last, ""))
        english = self.folder.line_of(last, self.folder.path / "en.html")
        self.assert_refused(
            "<li><b>A forgotten", "the page ends before <li> of line %d in the English page" % english
        )

    def test_another_id(self):
        self.folder.write(('<h2 id="what">', '<h2 id="que">'), ('href="#what"', 'href="#que"'))
        _, errors = self.folder.run()
        self.assertIn('<a href="#que">', errors)
        self.assertIn('<h2 id="que"> stands where the English page has <h2 id="what"> in line', errors)

    def test_a_windows_word_that_is_lost_or_another(self):
        self.folder.write(("<b>{text:305}</b>", "<b>{text:306}</b>"))
        line = self.folder.line_of("{text:306}")
        self.assert_refused(
            "{text:306}",
            f"<li> has too many of {{text:306}}, compared with line {line} of the English page",
            f"<li> lacks {{text:305}}, compared with line {line} of the English page",
            "the translation has no words of the number '306'; a noun cannot be named",
        )

    def test_emphasis_that_is_lost(self):
        self.folder.write(("<b>{text:305}</b>", "{text:305}"))
        self.assert_refused(
            "{text:305}",
            "<li> lacks <b>, compared with line %d of the English page" % self.folder.line_of("{text:305}"),
        )

    def test_another_picture(self):
        self.folder.write(("{picture:reminder}", "{picture:results}"))
        _, errors = self.folder.run()
        self.assertIn('<p> lacks <img src="{picture:reminder}">', errors)

    def test_the_language(self):
        self.folder.write(('lang="xx"', 'lang="yy"'))
        self.assert_refused("<html", '<html> needs lang="xx", and dir with ltr or rtl')

    def test_the_direction(self):
        self.folder.write((' dir="ltr"', ""))
        self.assert_refused("<html", '<html> needs lang="xx", and dir with ltr or rtl')

    def test_words_for_a_picture_that_are_missing_or_blank(self):
        for words in ("", 'alt=" "'):
            self.folder.write(('alt="The reminder: a password expires in a few days"', words))
            self.assert_refused(
                "{picture:reminder}", "the picture needs words in alt, for those who do not see it"
            )

    def test_a_page_in_another_encoding(self):
        self.folder.page.write_bytes(b"<html>\n\xfc</html>")
        self.assertEqual(
            self.folder.run(), (1, f"{self.folder.page}:2: it is not in UTF-8: save it as UTF-8\n")
        )

    def test_a_page_that_is_not_there(self):
        self.folder.page.unlink()
        self.assertEqual(self.folder.run(), (1, f"{self.folder.page}: No such file or directory\n"))

    def test_a_name_that_is_not_the_librarys(self):
        out = self.folder.path / "Help-1031.html"
        code, errors = support.run_tool(
            "--page", self.folder.page, "--po", support.ENGLISH_TEXTS, "--out", out
        )
        self.assertEqual(
            (code, errors),
            (1, f"{support.ENGLISH_TEXTS}:1: the help file is called Help-1033.html, not Help-1031.html\n"),
        )
        self.assertFalse(out.exists())


class EnglishPage(PageCase):
    """What not even this one may hold, which is compared with nothing."""

    code = "en"

    def test_a_script(self):
        self.folder.write(("</body>", "<script>x()</script>\n</body>"))
        self.assert_refused("<script>", "<script> does not belong in a help page")

    def test_an_attribute_that_runs_a_script(self):
        self.folder.write(("<body>", '<body onload="x()">'))
        self.assert_refused("<body", "the attribute onload does not belong in a help page")

    def test_a_link_out_of_the_page(self):
        self.folder.write(('href="#what"', 'href="other.html"'))
        self.assert_refused('"other.html"', "'other.html' leads out of the page: a link has to begin with #")

    def test_an_address_in_plain_words(self):
        self.folder.write(("read the results.", "read http://example.test/."))
        self.assert_refused("http://ex", "'http://' refers to something outside the page")

    def test_a_picture_from_outside(self):
        self.folder.write(("{picture:reminder}", "reminder.png"))
        self.assert_refused("reminder.png", "src has to be {picture:NAME}")

    def test_a_link_to_nowhere(self):
        self.folder.write(('<h2 id="what">', '<h2 id="where">'))
        self.assert_refused('href="#what"', "the link leads to #what, which is not in this page")

    def test_an_id_that_stands_twice(self):
        self.folder.write(('<h2 id="first">', '<h2 id="what">'))
        _, errors = self.folder.run()
        self.assertIn("the id what stands twice", errors)

    def test_a_noun(self):
        self.folder.write(("{text:305}", "{text:5}"))
        self.assert_refused(
            "{text:5}", "the translation has no words of the number '5'; a noun cannot be named"
        )

    def test_an_unknown_picture(self):
        self.folder.write(("{picture:reminder}", "{picture:other}"))
        self.assert_refused(
            "{picture:other}", "there is no picture %s/pictures/en/other.png" % self.folder.path
        )

    def test_an_unknown_placeholder(self):
        self.folder.write(("{text:305}", "{texts}"))
        self.assert_refused(
            "{texts}", "{texts} is unknown: {text:NUMBER}, {picture:NAME} and {style} are there"
        )

    def test_a_style_sheet_that_loads_something(self):
        for rule in ("@import 'x.css';", "body { background: url(x.png) }"):
            (self.folder.path / "style.css").write_text("\n" + rule, encoding="utf-8")
            code, errors = self.folder.run()
            self.assertEqual(code, 1)
            self.assertRegex(
                errors, f"^{self.folder.path}/style.css:2: '.+' refers to something outside the page$"
            )


if __name__ == "__main__":
    unittest.main()
