"""Gives the compiler of translations whatever can stand in a file: it makes a library or says what is wrong where.

    po_compiler.py [-runs=N] [-max_total_time=SECONDS] [-seed=N] [-artifact_prefix=FOLDER/] FOLDER...
    po_compiler.py FILE...                     tries these files and nothing else

Without coverage to go by, it changes the files of the folders at random, each from the same seed in the same way.
"""

import functools
import hashlib
import io
import pathlib
import random
import re
import signal
import struct
import sys
import time
import traceback

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
sys.dont_write_bytecode = True

import plural_table  # noqa: E402
import text_area  # noqa: E402
import translation  # noqa: E402

CAPACITY = 4096
PATIENCE = 5
"""Seconds of the processor for one file; what other programs take counts for nothing."""

CATALOGUE = translation.Catalogue(
    arguments={1: 0, 3: 1, 4: 2, 204: 0, 317: 0, 409: 0},
    nouns={5},
    may_be_empty={204},
    windows={"the window": [317, 409], "the other window": [1, 317]},
)
EMPTY_LIBRARY = b"ahead" + (text_area.MAGIC + struct.pack("<II", CAPACITY, 0)).ljust(CAPACITY, b"\0") + b"behind"
REASON = re.compile(r"xx\.po:([0-9]+): \S.*")
PIECES = [
    b'msgid ""\n', b'msgid_plural "x"\n', b'msgstr "y"\n', b'msgstr[0] "y"\n', b'msgstr[1] ""\n', b'msgstr[',
    b'msgctxt "5"\n', b'msgctxt "317"\n', b"#, fuzzy\n", b"#~ ", b"#| ", b"#. ", b"#: a.c:1\n", b"\n\n", b'"', b"\\",
    b"\\n", b"\\x41", b"%1", b"%2", b"%0", b"%%", b"&", b"&&", b"&A", b"(none)", b"\xef\xbb\xbf", b"\xff", b"\0", b"\r",
    "\u2028".encode(), "\u0130".encode(), "\U0001f600".encode(), b"\\\"", b"\\u0041", b"99999", b"-1", b"0x10",
    b"nplurals=2; plural=(n != 1);", b"nplurals=1; plural=0;", b"nplurals=0; plural=0;", b"nplurals=300; plural=n;",
    b"n%10", b"n/0", b"1/(n-1000)", b"0-1", b"!n", b"n?", b":", b"(", b")", b"&&n", b"||", b"*", b"-", b"<", b"nplurals=",
    b"X-Language-Numbers: 1033\\n", b"X-Font-Charset: 300\\n", b"Content-Type: text/plain; charset=latin-1\\n",
    b"Language: en\\n", b"Language: de\\n", b"plural=",
]


class PoFile:
    """What stands in for the path of a file: it reads as one does."""

    def __init__(self, content):
        self.content = content

    def __str__(self):
        return "xx.po"

    def read_text(self, encoding):
        return io.TextIOWrapper(io.BytesIO(self.content), encoding=encoding).read()


class Finding(Exception):
    """Something that must not be, whatever the file holds."""


def require(holds, what):
    if not holds:
        raise Finding(what)


def remember_rules():
    """A rule is looked through at 300,000 counts: once is enough for the rules that come again and again."""
    plural_table.parse = functools.lru_cache(256)(plural_table.parse)
    plural_table.make = functools.lru_cache(256)(plural_table.make)


def texts_in(area):
    """The texts of a finished area, read as a library reads them."""
    head = struct.unpack_from("<16sIIIHHIiIIIIIIIII", area)
    used, count, records = head[3], head[9], head[10]
    require(head[:3] == (text_area.MAGIC, CAPACITY, 1) and used <= CAPACITY, "the area's head")

    def text(offset, length):
        require(offset + 2 * length <= used, "a text beyond the area's end")
        return area[offset : offset + 2 * length].decode("utf-16-le")

    texts = {}
    for at in range(records, records + 12 * count, 12):
        number, form, offset, length = struct.unpack_from("<HHII", area, at)
        require(not texts or max(texts) < (number, form), "the order of the records")
        texts[number, form] = text(offset, length)
    return texts, [text(*head[at : at + 2]) for at in (11, 13, 15)]


def check_library(read):
    try:
        library = text_area.fill(EMPTY_LIBRARY, read)
    except ValueError as refused:
        require("room for" in str(refused), "a library that is full says so: %s" % refused)
        return
    require(len(library) == len(EMPTY_LIBRARY), "the library's size")
    require(library.startswith(b"ahead") and library.endswith(b"behind"), "bytes outside of the area")
    texts, names = texts_in(library[len(b"ahead") : -len(b"behind")])
    require(texts == read.texts, "a text is another in the library")
    require(names == [read.font, read.old_font, read.help_file], "a name is another in the library")
    numbers = set(CATALOGUE.arguments) | CATALOGUE.nouns
    require({number for number, _ in texts} == numbers, "a number is missing")


def check(content):
    """Raises whatever should not come of these bytes. True: they made a library."""
    signal.setitimer(signal.ITIMER_PROF, PATIENCE)
    try:
        read = translation.read(PoFile(content), CATALOGUE)
        check_library(read)
        return True
    except translation.Refused as refused:
        require(refused.args[0], "a refusal without a reason")
        lines = content.count(b"\n") + content.count(b"\r") + 1
        for reason in refused.args[0]:
            place = REASON.fullmatch(reason)
            require(place and 1 <= int(place[1]) <= lines, "a reason without its place: %r" % reason)
        return False
    finally:
        signal.setitimer(signal.ITIMER_PROF, 0)


class Mutator:
    def __init__(self, seeds, seed):
        self.seeds = seeds
        self.random = random.Random(seed)

    def next(self):
        content = self.random.choice(self.seeds)
        for _ in range(self.random.choice((1, 1, 1, 2, 2, 3, 5, 8))):
            change = self.random.choice(
                (self.change_byte, self.insert_piece, self.insert_piece, self.replace_by_piece, self.cut,
                 self.drop_line, self.repeat_line, self.swap_lines, self.splice, self.join_lines)
            )
            content = change(content)
        return content

    def place(self, content):
        return self.random.randrange(len(content) + 1)

    def change_byte(self, content):
        at = self.place(content)
        return content[:at] + bytes([self.random.randrange(256)]) + content[at + 1 :]

    def insert_piece(self, content):
        at = self.place(content)
        return content[:at] + self.random.choice(PIECES) + content[at:]

    def replace_by_piece(self, content):
        at = self.place(content)
        return content[:at] + self.random.choice(PIECES) + content[at + self.random.randrange(12) :]

    def cut(self, content):
        at = self.place(content)
        return content[:at] + content[at + self.random.randrange(1, 30) :]

    def drop_line(self, content):
        lines = content.splitlines(True)
        if lines:
            del lines[self.random.randrange(len(lines))]
        return b"".join(lines)

    def repeat_line(self, content):
        lines = content.splitlines(True)
        if lines:
            lines.insert(self.random.randrange(len(lines)), self.random.choice(lines))
        return b"".join(lines)

    def swap_lines(self, content):
        lines = content.splitlines(True)
        if lines:
            one, other = self.random.randrange(len(lines)), self.random.randrange(len(lines))
            lines[one], lines[other] = lines[other], lines[one]
        return b"".join(lines)

    def splice(self, content):
        other = self.random.choice(self.seeds)
        return content[: self.place(content)] + other[self.place(other) :]

    def join_lines(self, content):
        lines = content.splitlines(True)
        if lines:
            at = self.random.randrange(len(lines))
            lines[at] = lines[at].rstrip(b"\r\n")
        return b"".join(lines)


def report(content, prefix):
    """Keeps the file, unless it is kept already."""
    traceback.print_exc()
    if prefix is None:
        return
    path = pathlib.Path(prefix + "crash-" + hashlib.sha1(content).hexdigest())
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(content)
    print("Test unit written to %s" % path, file=sys.stderr)


def try_all(contents, prefix):
    """The number of contents that were tried, how many made a library, and whether all went well."""
    runs = libraries = 0
    for content in contents:
        runs += 1
        try:
            libraries += check(content)
        except Exception:
            report(content, prefix)
            return runs, libraries, False
    return runs, libraries, True


def bounded(seeds, options):
    yield from seeds
    mutator = Mutator(seeds, int(options.get("seed", 1)))
    end = time.monotonic() + float(options.get("max_total_time", 0) or 1e9)
    runs = int(options.get("runs", -1))
    done = len(seeds)
    while done != runs and (done % 16 or time.monotonic() < end):
        done += 1
        yield mutator.next()


def too_long(*_):
    raise Finding("it takes more than %d seconds" % PATIENCE)


def main(arguments):
    options = dict(match.groups() for match in map(re.compile("-([a-z_]+)=(.*)").fullmatch, arguments) if match)
    paths = [pathlib.Path(argument) for argument in arguments if not argument.startswith("-")]
    signal.signal(signal.SIGPROF, too_long)
    remember_rules()
    files = [path for path in paths if path.is_file()]
    if files:
        return 0 if try_all((path.read_bytes() for path in files), None)[2] else 1
    seeds = [file.read_bytes() for path in paths for file in sorted(path.iterdir())]
    if not seeds:
        print("po_compiler.py: there is no file to begin with", file=sys.stderr)
        return 2
    runs, libraries, well = try_all(bounded(seeds, options), options.get("artifact_prefix", "./"))
    print("libraries made: %d" % libraries, file=sys.stderr)
    print("stat::number_of_executed_units: %d" % runs, file=sys.stderr)
    return 0 if well else 77


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
