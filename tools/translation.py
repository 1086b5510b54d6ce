"""Reads a .po file into the texts of one language, and says everything that is wrong with it at once."""

import dataclasses
import json
import re
import unicodedata

import plural_table
import polib
import text_area

EMPTY_ON_PURPOSE = "(none)"
SOURCE_LANGUAGE = "en"
ODD_LINE_ENDS = re.compile("[\x0b\x0c\x1c-\x1e\x85\u2028\u2029]")
"""Where the parser ends a line and an editor does not."""
CONTROLS = re.compile("[\x00-\x1f\x7f-\x9f\u2028\u2029]+")
BYTE = "[0-9]|[1-9][0-9]|1[0-9][0-9]|2[0-4][0-9]|25[0-5]"


class Refused(Exception):
    """The file can't be used; the argument is the list of reasons, one line each."""


@dataclasses.dataclass
class Catalogue:
    """What every language has to hold: languages/messages.json."""

    arguments: dict  # message number -> number of its arguments
    nouns: set
    may_be_empty: set
    windows: dict  # name -> numbers of the texts that show at the same time


@dataclasses.dataclass
class Translation:
    languages: list
    serves_relatives: bool
    font: str
    old_font: str
    charset: int
    help_file: str
    plural_table: bytes
    texts: dict  # (number, form) -> text


def read_catalogue(path):
    with open(path, encoding="utf-8") as file:
        data = json.load(file)
    return Catalogue(
        arguments={int(number): count for number, count in data["messages"].items()},
        nouns=set(data["nouns"]),
        may_be_empty=set(data["may_be_empty"]),
        windows=data["windows"],
    )


def placeholders(text):
    """The digits behind single percent signs, as the program reads them; a None for any other sign."""
    found = []
    for match in re.finditer(r"%(%|[0-9]|)", text):
        if match[1] != "%":
            found.append(int(match[1]) if match[1] else None)
    return found


def accelerators(text):
    """The characters behind single ampersands."""
    return [match[1] for match in re.finditer(r"&(&|.|$)", text, re.DOTALL) if match[1] != "&"]


def is_on_a_key(character):
    """False for what is typed by way of an input method, such as a Chinese character."""
    return character.isalnum() and unicodedata.east_asian_width(character) not in "WF"


class _Reader:
    def __init__(self, path, catalogue):
        self.path = path
        self.catalogue = catalogue
        self.content_lines = []
        self.problems = []
        self.texts = {}
        self.lines = {}
        self.form_count = 0
        self.is_english = False

    def complain(self, line, text):
        """What the file holds may stand in the text, but a complaint stays one line."""
        self.problems.append(f"{self.path}:{line}: {CONTROLS.sub(' ', text)}")

    def read(self):
        content = self.read_file()
        self.content_lines = content.splitlines()
        file = self.parse(content)
        self.is_english = re.split("[-_]", file.metadata.get("Language", ""))[0] == SOURCE_LANGUAGE
        translation = self.read_head(file)
        for entry in file:
            entry.linenum = entry.linenum or 1  # the parser begins the first entry ahead of the first line
            if not entry.obsolete:
                self.read_entry(entry)
        self.check_completeness()
        self.check_accelerators()
        if self.problems:
            raise Refused(self.problems)
        return translation

    def read_file(self):
        try:
            content = self.path.read_text(encoding="utf-8")
        except UnicodeDecodeError as error:
            line = error.object.count(b"\n", 0, error.start) + 1
            raise Refused([f"{self.path}:{line}: it is not in UTF-8: save it as UTF-8"]) from None
        except OSError as error:
            raise Refused([f"{self.path}: {error.strerror}"]) from None
        odd = ODD_LINE_ENDS.search(content)
        if odd:
            line = content.count("\n", 0, odd.start()) + 1
            raise Refused([f"{self.path}:{line}: the character U+{ord(odd[0]):04X} ends the line: take it out"])
        return content

    def parse(self, content):
        try:
            # The parser would open a file whose name is all that stands there; no name ends in a line break.
            return polib.pofile(content + "\n")
        except OSError as error:
            # The parser raises the same kind of error as the file system, with the line in its text.
            line = re.search(r"\(line ([0-9]+)\)(?:: (.*))?", str(error))
            raise Refused(
                [f"{self.path}:{line[1]}: not understood as a .po file: {line[2] or 'wrong syntax'}"]
            ) from None
        except TypeError:
            # It compares the header with what stands ahead of it, which it can't where that has plural forms.
            raise Refused(
                [f"{self.path}:{self.head_line('')}: the header, with an empty msgid, has to be the first entry"]
            ) from None

    def head_line(self, name):
        """The line of a header field; that of the header's beginning when the field is missing."""
        for wanted in (f'"{name}:', "msgid "):
            for line, text in enumerate(self.content_lines, start=1):
                if text.startswith(wanted):
                    return line
        return 1

    def field(self, file, name, pattern, meaning):
        value = file.metadata.get(name, "").strip()
        if not re.fullmatch(pattern, value):
            self.complain(
                self.head_line(name), f"the header field {name} should be {meaning}, but is '{value}'"
            )
            return None
        return value

    def read_head(self, file):
        numbers = self.field(
            file, "X-Language-Numbers", r"[0-9]+( +[0-9]+)*", "language numbers with blanks between"
        )
        languages = [int(number) for number in numbers.split()] if numbers else []
        if not all(0 < number < 0x10000 for number in languages):
            self.complain(
                self.head_line("X-Language-Numbers"),
                "the header field X-Language-Numbers holds a number outside 1 to 65535",
            )
        relatives = self.field(file, "X-Serves-Relatives", "yes|no", "yes or no")
        font = self.field(file, "X-Font-Name", ".+", "the name of a font")
        old_font = self.field(file, "X-Font-Name-NT4", ".+", "the name of a font")
        charset = self.field(file, "X-Font-Charset", BYTE, "the number of a character set, 0 to 255")
        help_file = self.field(file, "X-Help-File", ".+", "the name of the help file")
        table = b""
        try:
            self.form_count, rule = plural_table.parse(file.metadata.get("Plural-Forms", ""))
            table = plural_table.make(self.form_count, rule)
        except ValueError as error:
            self.complain(self.head_line("Plural-Forms"), str(error))
        return Translation(
            languages=languages,
            serves_relatives=relatives == "yes",
            font=font,
            old_font=old_font,
            charset=int(charset or 0),
            help_file=help_file,
            plural_table=table,
            texts=self.texts,
        )

    def read_entry(self, entry):
        context = entry.msgctxt or ""
        if not re.fullmatch("[1-9][0-9]{0,4}", context):
            self.complain(entry.linenum, f"'{context}' is no message number: write the number as msgctxt")
            return
        number = int(context)
        if number in self.lines:
            self.complain(
                entry.linenum,
                f"number {number} stands in line {self.lines[number]} already: keep one of them",
            )
            return
        self.lines[number] = entry.linenum
        is_noun = number in self.catalogue.nouns
        if not is_noun and number not in self.catalogue.arguments:
            self.complain(entry.linenum, f"the program has no text number {number}: take the entry out")
        elif is_noun != bool(entry.msgid_plural):
            form = "a noun, and needs msgid_plural" if is_noun else "no noun: take out msgid_plural"
            self.complain(entry.linenum, f"number {number} is {form}")
        else:
            if entry.fuzzy:
                self.complain(
                    entry.linenum,
                    f"number {number} is marked as fuzzy: see whether the text fits and take out the mark",
                )
            if is_noun:
                self.read_noun(entry, number)
            else:
                self.read_message(entry, number)

    def takes_english(self, entry):
        """True where the English text stands as it is."""
        return self.is_english and not entry.msgstr and not any(entry.msgstr_plural.values())

    def read_noun(self, entry, number):
        for form in range(self.form_count):
            if self.takes_english(entry):
                text = entry.msgid if form == 0 else entry.msgid_plural
            else:
                text = entry.msgstr_plural.get(form, "")
            if not text:
                self.complain(entry.linenum, f"number {number} lacks msgstr[{form}]")
            if placeholders(text):
                self.complain(entry.linenum, f"number {number} is a noun and takes no arguments: '{text}'")
            self.texts[number, form] = text
        surplus = [form for form in entry.msgstr_plural if form >= self.form_count]
        if surplus:
            self.complain(
                entry.linenum,
                f"number {number} has msgstr[{surplus[0]}], but nplurals is {self.form_count}",
            )

    def read_message(self, entry, number):
        text = entry.msgid if self.takes_english(entry) else entry.msgstr
        if not text:
            self.complain(entry.linenum, f"number {number} is not translated: fill in msgstr")
        elif text == EMPTY_ON_PURPOSE:
            if number not in self.catalogue.may_be_empty:
                self.complain(entry.linenum, f"number {number} can't be left empty: give it a text")
            text = ""
        else:
            self.check_placeholders(entry.linenum, number, text)
            self.check_accelerator(entry, number, text)
        self.texts[number, text_area.MESSAGE_FORM] = re.sub("\r?\n", "\r\n", text)

    def check_accelerator(self, entry, number, text):
        if accelerators(entry.msgid) and not accelerators(text):
            self.complain(
                entry.linenum,
                f"number {number} lacks an accelerator: put & ahead of a letter, or (&X) behind the word",
            )

    def check_placeholders(self, line, number, text):
        found = placeholders(text)
        if None in found:
            self.complain(line, f"number {number} has a lone percent sign: write %% for a percent sign")
        wanted = set(range(1, self.catalogue.arguments[number] + 1))
        here = {digit for digit in found if digit is not None}
        for digit in sorted(here - wanted):
            self.complain(
                line, f"number {number} has %{digit}, but takes {len(wanted)} argument(s): take it out"
            )
        for digit in sorted(wanted - here):
            self.complain(line, f"number {number} lacks %{digit}: put it where the argument belongs")

    def check_completeness(self):
        for number in sorted((self.catalogue.nouns | set(self.catalogue.arguments)) - set(self.lines)):
            self.complain(
                max(len(self.content_lines), 1),
                f"number {number} is missing: copy its entry from en.po and translate it",
            )

    def check_accelerators(self):
        marks = {}
        for number in sorted({number for group in self.catalogue.windows.values() for number in group}):
            found = accelerators(self.texts.get((number, text_area.MESSAGE_FORM), ""))
            if len(found) > 1 or not all(map(is_on_a_key, found)):
                self.complain(
                    self.lines[number],
                    f"number {number} needs one & at most, ahead of a letter that is on a key; write && for "
                    "an ampersand",
                )
            elif found:
                marks[number] = found[0].casefold()
        for window, numbers in self.catalogue.windows.items():
            holders = {}
            for number in numbers:
                mark = marks.get(number)
                if mark in holders:
                    self.complain(
                        self.lines[number],
                        f"number {number} has the letter '{mark}' as accelerator, as number {holders[mark]} "
                        f"in line {self.lines[holders[mark]]} has; both show in {window}: choose another",
                    )
                elif mark:
                    holders[mark] = number


def read(path, catalogue):
    """Returns the Translation, or raises Refused with every reason."""
    return _Reader(path, catalogue).read()
