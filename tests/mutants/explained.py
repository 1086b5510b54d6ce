"""The page docs/mutants.md: changes that no test notices, each with the reason why none does.

An entry is a line `- \`src/a.cpp\`: \`text of the line\`` with, where only some kinds of change are meant, their names
between brackets: `(number, boundary)`. The reason follows a colon, or stands once above a list.
"""

import re

ENTRY = re.compile(r"^- `(src/[^`]+)`: `([^`]+)`(?: \(([a-z, ]+)\))?(?:: .+)?$")


class Page:
    def __init__(self, text):
        self.entries = []
        self.broken = []
        for number, line in enumerate(text.split("\n"), 1):
            if line.startswith("- "):
                found = ENTRY.match(line)
                if found:
                    file, source, kinds = found.groups()
                    self.entries.append((file, source, tuple(kinds.split(", ")) if kinds else ()))
                else:
                    self.broken.append(number)

    @staticmethod
    def fits(entry, result):
        file, source, kinds = entry
        return (file, source) == (result["file"], result["text"]) and (not kinds or result["kind"] in kinds)

    def explains(self, result):
        return any(self.fits(entry, result) for entry in self.entries)

    def unneeded(self, results):
        """Entries for which nothing survives."""
        survivors = [result for result in results if result["state"] != "killed"]
        return [
            "%s: %s" % entry[:2]
            for entry in self.entries
            if not any(self.fits(entry, result) for result in survivors)
        ]
