"""Reads the source of a help page: its elements in order, and what must not stand in it.

A page is compared with the English one block by block. Within a block, such as a paragraph or a cell, a
translation may put emphasis, links and the window's words into the order that its grammar needs, but each has
to stand there as often as in English.
"""

import collections
import itertools
import re
from xml.parsers import expat

INLINE = {"a", "b", "br", "code", "img"}
BLOCKS = set("body dd div dl dt h1 h2 head html li meta ol p style table td th title tr ul".split())
ATTRIBUTES = set("alt class content dir href http-equiv id lang name scope src type".split())
TRANSLATED = {"alt", "dir", "lang"}
"""What a translation gives a value of its own."""

PLACEHOLDER = re.compile(r"\{([^{}]*)\}")
OUTSIDE = re.compile(r"[a-z]+://|url\s*\(|@import|expression\s*\(|javascript:", re.IGNORECASE)


class Faults(list):
    """(line, reason) of everything that is wrong with a file."""

    def add(self, line, reason):
        self.append((line, reason))


def find_outside(text, faults):
    """What would make a browser ask for anything but the page."""
    for number, line in enumerate(text.splitlines(), 1):
        found = OUTSIDE.search(line)
        if found:
            faults.add(number, "'%s' refers to something outside the page" % found[0])


class Block:
    """A block element: where it stands, its tag with its attributes, and what stands in its words."""

    def __init__(self, line, depth, tag, attributes):
        self.line = line
        self.tag = tag
        self.shape = (depth, _written(tag, attributes))
        self.parts = collections.Counter()


def _written(tag, attributes):
    kept = "".join(' %s="%s"' % pair for pair in sorted(attributes.items()) if pair[0] not in TRANSLATED)
    return "<%s%s>" % (tag, kept)


class Page:
    """The blocks of a page in order, and its faults. Attribute values and words come as they are written."""

    def __init__(self, text, language):
        self.faults = Faults()
        self.blocks = []
        self._language = language
        self._open = []
        self._ids = set()
        self._links = []
        self._parser = expat.ParserCreate()
        self._parser.buffer_text = True  # so that no placeholder comes in two pieces
        self._parser.StartElementHandler = self._start
        self._parser.EndElementHandler = self._end
        self._parser.CharacterDataHandler = self._words
        find_outside(text, self.faults)
        self.is_well_formed = self._parse(text)
        if self.is_well_formed:
            self._check_links()

    def _parse(self, text):
        try:
            self._parser.Parse(text, True)
        except expat.ExpatError as error:
            self.faults.add(error.lineno, "it is not well formed: %s" % expat.ErrorString(error.code))
            return False
        return True

    def _check_links(self):
        for line, target in self._links:
            if target not in self._ids:
                self.faults.add(line, "the link leads to #%s, which is not in this page" % target)

    def _complain(self, reason):
        self.faults.add(self._parser.CurrentLineNumber, reason)

    def _start(self, tag, attributes):
        if tag not in INLINE | BLOCKS:
            self._complain("<%s> does not belong in a help page" % tag)
        for name in sorted(set(attributes) - ATTRIBUTES):
            self._complain("the attribute %s does not belong in a help page" % name)
        self._check_values(tag, attributes)
        if tag in INLINE and self._open:
            self._open[-1].parts[_written(tag, attributes)] += 1
        else:
            block = Block(self._parser.CurrentLineNumber, len(self._open), tag, attributes)
            self.blocks.append(block)
            self._open.append(block)

    def _check_values(self, tag, attributes):
        if tag == "html":
            self._check_language(attributes)
        if tag == "img":
            self._check_picture(attributes)
        if "href" in attributes:
            self._note_link(attributes["href"])
        if "id" in attributes:
            self._note_id(attributes["id"])

    def _check_language(self, attributes):
        if attributes.get("lang") != self._language or attributes.get("dir") not in ("ltr", "rtl"):
            self._complain('<html> needs lang="%s", and dir with ltr or rtl' % self._language)

    def _check_picture(self, attributes):
        if not attributes.get("alt", "").strip():
            self._complain("the picture needs words in alt, for those who do not see it")
        if not re.fullmatch(r"\{picture:[^{}]*\}", attributes.get("src", "")):
            self._complain("src has to be {picture:NAME}")

    def _note_link(self, target):
        if target.startswith("#"):
            self._links.append((self._parser.CurrentLineNumber, target[1:]))
        else:
            self._complain("'%s' leads out of the page: a link has to begin with #" % target)

    def _note_id(self, name):
        if name in self._ids:
            self._complain("the id %s stands twice" % name)
        self._ids.add(name)

    def _end(self, tag):
        if tag not in INLINE:
            self._open.pop()

    def _words(self, words):
        for placeholder in PLACEHOLDER.findall(words):
            self._open[-1].parts["{%s}" % placeholder] += 1


def compare(page, english):
    """Adds to the page's faults what differs from the English page. Behind a block too many or too few
    nothing more can be told."""
    for ours, theirs in itertools.zip_longest(page.blocks, english.blocks):
        if ours is None:
            page.faults.add(
                page.blocks[-1].line,
                "the page ends before %s of line %d in the English page" % (theirs.shape[1], theirs.line),
            )
            return
        if theirs is None or ours.shape != theirs.shape:
            wanted = "ends" if theirs is None else "has %s in line %d" % (theirs.shape[1], theirs.line)
            page.faults.add(ours.line, "%s stands where the English page %s" % (ours.shape[1], wanted))
            return
        for parts, word in (
            (theirs.parts - ours.parts, "lacks"),
            (ours.parts - theirs.parts, "has too many of"),
        ):
            for part in sorted(parts):
                page.faults.add(
                    ours.line,
                    "<%s> %s %s, compared with line %d of the English page"
                    % (ours.tag, word, part, theirs.line),
                )
