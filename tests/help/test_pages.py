"""The finished help pages of all languages."""

import html.parser
import unittest

import support
import help_page

LARGEST_PAGE = 120 * 1024
LARGEST_PICTURE = 6 * 1024
EMPTY_WINDOW = 1300
"""Bytes that the picture of a window takes whose controls stand there without a word."""
ALL_PICTURES = 350 * 1024
NAMES = ["password", "reminder", "results", "settings"]


class Reader(html.parser.HTMLParser):
    """What a browser would make of a page."""

    def __init__(self, page):
        super().__init__()
        self.tags = set()
        self.sources = []
        self.links = []
        self.ids = []
        self.language = None
        self.feed(page)

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        self.tags.add(tag)
        self.sources += [values["src"]] if "src" in values else []
        self.links += [values["href"]] if "href" in values else []
        self.ids += [values["id"]] if "id" in values else []
        if tag == "html":
            self.language = values.get("lang")


class FinishedPages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.pages = {
            language: help_page.make(support.page_of(language), support.po_file(language))
            for language in support.built_languages()
        }

    def each(self):
        for code, (page, name) in self.pages.items():
            with self.subTest(code):
                yield code, page, name

    def test_english_is_there(self):
        self.assertEqual(self.pages["en"][1], "Help-1033.html")

    def test_no_page_is_larger_than_120_kilobytes(self):
        for _, page, _ in self.each():
            self.assertLessEqual(len(page.encode("utf-8")), LARGEST_PAGE)

    def test_a_page_needs_nothing_but_itself(self):
        for code, page, _ in self.each():
            reader = Reader(page)
            self.assertEqual(reader.language, code)
            self.assertEqual(len(reader.sources), len(NAMES))
            for source in reader.sources:
                self.assertTrue(source.startswith("data:image/png;base64,"))
            self.assertGreater(len(reader.links), 10)
            self.assertLessEqual({link.removeprefix("#") for link in reader.links}, set(reader.ids))
            self.assertTrue(reader.tags.isdisjoint({"script", "link", "iframe", "object", "embed", "base"}))

    def test_a_page_says_that_it_is_in_utf_8(self):
        for _, page, _ in self.each():
            self.assertIn('<meta http-equiv="Content-Type" content="text/html; charset=utf-8" />', page[:200])

    def test_the_windows_words_stand_as_in_the_windows(self):
        page = self.pages["en"][0]
        for words in (
            "<b>Settings...</b>",
            "<b>User name:</b>",
            "<b>Log Off</b>",
            "<dt>Remind me</dt>",
            "<b>…: The password has been changed.</b>",
            "<b>Your password for … expires in … and …</b>",
        ):
            self.assertIn(words, page)


class Words(unittest.TestCase):
    def test_a_text_loses_its_marks(self):
        for text, words in (
            ("Re&mind me", "Remind me"),
            ("追加(&A)...", "追加..."),
            ("a (&B)", "a"),
            ("R&&D", "R&D"),
            ("at least %1 %2 long", "at least … long"),
            ("100%% of %1.", "100% of …"),
            ("one\r\n\r\ntwo", "one two"),
            ("Nom\u00a0:", "Nom\u00a0:"),
        ):
            self.assertEqual(help_page.shown(text), words)

    def test_a_text_cannot_become_markup(self):
        filler = help_page.Filler({(7, help_page.text_area.MESSAGE_FORM): '<b> && "'}, None, "")
        self.assertEqual(filler.value("text:7"), "&lt;b&gt; &amp; &quot;")


class BuiltPages(unittest.TestCase):
    def test_the_page_lies_beside_the_library_that_names_it(self):
        folder = support.ROOT / "out" / "native" / "program"
        page = (folder / "Help-1033.html").read_text(encoding="utf-8")
        self.assertEqual(page, help_page.make(support.HELP / "en.html", support.ENGLISH_TEXTS)[0])
        self.assertIn("Help-1033.html".encode("utf-16-le"), (folder / "default.loc").read_bytes())


class Pictures(unittest.TestCase):
    sizes = {path: path.stat().st_size for path in support.HELP.glob("pictures/*/*.png")}

    def test_every_language_has_its_own(self):
        for language in support.built_languages():
            with self.subTest(language):
                pictures = sorted(path.name for path in (support.HELP / "pictures" / language).iterdir())
                self.assertEqual(pictures, [name + ".png" for name in NAMES])

    def test_they_are_small(self):
        self.assertGreaterEqual(len(self.sizes), len(NAMES))
        self.assertLessEqual(max(self.sizes.values()), LARGEST_PICTURE)
        self.assertLessEqual(sum(self.sizes.values()), ALL_PICTURES)

    def test_their_controls_are_drawn(self):
        for path, size in self.sizes.items():
            with self.subTest(path):
                self.assertGreaterEqual(size, EMPTY_WINDOW)


if __name__ == "__main__":
    unittest.main()
