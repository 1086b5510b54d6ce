"""What a program holds, counted between turns of the same doing, and whether it grows."""

import pathlib
import re

from waiting import wait_until

MEASURES = ("windows", "user", "gdi", "kernel", "loads", "own", "common", "private")

NOISE = {"windows": 0.5, "user": 0.5, "gdi": 1.5, "kernel": 1.5, "loads": 0.5, "own": 64, "common": 128,
         "private": 64 * 1024}
"""By how much the mean of the last third of the readings may stand above that of the first. What leaks in each turn
adds up over the two thirds between: 20 turns show one handle in each or 10 bytes of a heap, 500 turns one handle in
every 200 turns, or 200 bytes of the pages in each."""


class Meter:
    """Counts for one program of a desktop:

    windows   its windows, hidden ones and children too
    user      windows, menus, icons, hooks and the like of the whole session
    gdi       its pens, brushes, fonts, bitmaps and the like
    kernel    its events, files, threads, keys and the like
    loads     how often libraries have been loaded and not let go
    own       bytes in the heaps that are its own
    common    bytes in the heap that it shares with the system's libraries: texts and lists handed from one to the other
    private   bytes of the pages that no other program shares, those of the system's libraries and of Wine among them
    """

    def __init__(self, desktop, process, program="Moorlink.exe"):
        self._desktop = desktop
        self._process = process
        self._folder = _host_folder(program, desktop.display)

    def read(self, window):
        """`window` is one of the program's. A reading counts once the next one is the same: what a painting under way
        holds for a moment is none of what the program keeps."""
        readings = [self._read(window)]

        def at_rest():
            readings.append(self._read(window))
            return readings[-1] == readings[-2]

        wait_until(at_rest, "two readings that are the same")
        return readings[-1]

    def _read(self, window):
        self._desktop.paint(window)
        own, common = self._desktop.heap_bytes(window)
        return {**self._desktop.handles(self._process), "user": self._desktop.user_handles(),
                "loads": sum(self._desktop.loads(self._process).values()), "own": own, "common": common,
                "private": self._private()}

    def libraries(self):
        return sorted(self._desktop.modules(self._process).values())

    def _private(self):
        rollup = (self._folder / "smaps_rollup").read_text(encoding="ascii")
        sizes = dict(re.findall(r"^(\w+): +(\d+) kB$", rollup, re.MULTILINE))
        return 1024 * (int(sizes["Anonymous"]) + int(sizes["Swap"]))


def _host_folder(program, display):
    """The folder in which this computer's system describes the program that runs on a screen."""
    marks = program.encode(), ("DISPLAY=%s\0" % display).encode()
    found = []
    for folder in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            texts = (folder / "cmdline").read_bytes(), (folder / "environ").read_bytes()
        except OSError:
            continue
        if all(mark in text for mark, text in zip(marks, texts)):
            found.append(folder)
    if len(found) != 1:
        raise LookupError("%d programs %s on the screen" % (len(found), program))
    return found[0]


def growth(values):
    """By how much the mean of the last third stands above that of the first."""
    third = max(len(values) // 3, 1)
    return sum(values[-third:]) / third - sum(values[:third]) / third


class Soak:
    """Does the same again and again. `turn` does it once and gives a window that is open afterwards."""

    def __init__(self, meter, turn):
        self._meter = meter
        self._turn = turn
        self._libraries = None
        self._each = 1
        self.readings = []

    def warm_up(self, turns):
        """What the first turns load, make and keep counts for nothing."""
        for _ in range(turns):
            window = self._turn()
        self._meter.read(window)
        self._libraries = self._meter.libraries()

    def run(self, turns, each):
        """Reads after every `each` turns."""
        self._each = each
        for number in range(1, turns + 1):
            window = self._turn()
            if number % each == 0:
                self.readings.append(self._meter.read(window))

    def growths(self):
        return {name: growth([reading[name] for reading in self.readings]) for name in MEASURES}

    def faults(self, **kept):
        """What grows beyond the noise, {name: by how much}. `kept`: {measure: how much is known to be kept in each
        turn}."""
        turns_between = (len(self.readings) - max(len(self.readings) // 3, 1)) * self._each
        allowed = {name: noise + kept.get(name, 0) * turns_between for name, noise in NOISE.items()}
        found = {name: grown for name, grown in self.growths().items() if grown > allowed[name]}
        libraries = self._meter.libraries()
        if libraries != self._libraries:
            found["libraries"] = sorted(set(libraries) ^ set(self._libraries))
        return found
