"""The page docs/mutants.md: changes that no test notices, each with the reason why none does.

An entry is a line `- \`src/a.cpp\`: \`text of the line\``. Where the file has several lines of that text it says
which of them are meant: `2, 5 of 7`. Where only some kinds of change are meant, their names follow between brackets:
`(number, boundary)`. The reason follows a colon, or stands once above a list.
"""

import re
from typing import NamedTuple

ENTRY = re.compile(r"^- `(src/[^`]+)`: `([^`]+)`(?: ([\d, ]+) of (\d+))?(?: \(([a-z, ]+)\))?(?:: .+)?$")


class Entry(NamedTuple):
    """`places` are the numbers of the lines that are meant among the `lines` of that text in the file."""

    file: str
    text: str
    places: frozenset
    lines: int
    kinds: tuple

    def fits(self, result):
        return (
            (self.file, self.text) == (result["file"], result["text"])
            and result["place"] in self.places
            and (not self.kinds or result["kind"] in self.kinds)
        )

    def __str__(self):
        return "%s: %s" % (self.file, self.text)


def read(line):
    """None where it is no entry."""
    found = ENTRY.match(line)
    if not found:
        return None
    file, text, places, lines, kinds = found.groups()
    return Entry(file, text, frozenset(map(int, places.split(", "))) if places else frozenset({1}),
                 int(lines or 1), tuple(kinds.split(", ")) if kinds else ())


class Page:
    def __init__(self, text):
        self.entries = []
        self.broken = []
        for number, line in enumerate(text.split("\n"), 1):
            if line.startswith("- "):
                entry = read(line)
                if entry:
                    self.entries.append(entry)
                else:
                    self.broken.append(number)

    def explains(self, result):
        return any(entry.fits(result) for entry in self.entries)

    def unneeded(self, results):
        """Entries for which nothing survives, in a place that they name."""
        survivors = [result for result in results if result["state"] != "killed"]
        return [
            str(entry)
            for entry in self.entries
            if entry.places - {result["place"] for result in survivors if entry.fits(result)}
        ]
