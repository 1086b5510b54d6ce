"""What other programs take of the processors during a measurement, which is what makes its times doubtful."""

import collections
import ctypes
import os
import pathlib
import threading
import time

MINUTE = 60.0
PERIOD = 10.0
PR_SET_CHILD_SUBREAPER = 36
"""prctl(2), with Linux' number of it."""

TICK = 1 / os.sysconf("SC_CLK_TCK")

Process = collections.namedtuple("Process", "parent seconds")
"""`seconds`: of a processor, those of its ended children with them."""


def keep_own():
    """Servers that leave their parents stay this process' children."""
    libc = ctypes.CDLL(None, use_errno=True)
    if libc.prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0) != 0:
        raise OSError(ctypes.get_errno(), "prctl")


def read_processes():
    found = {}
    for entry in pathlib.Path("/proc").iterdir():
        if not entry.name.isdecimal():
            continue
        try:
            fields = (entry / "stat").read_text(errors="replace").rpartition(")")[2].split()
        except (FileNotFoundError, ProcessLookupError):
            continue
        found[int(entry.name)] = Process(int(fields[1]), sum(map(int, fields[11:15])) * TICK)
    return found


def processes():
    """Each process of the computer by its number, the kernel's own with them, and with each its parent."""
    while True:
        found = read_processes()
        if all(process.parent in found or process.parent == 0 for process in found.values()):
            return found


def seconds_of_others(root, found):
    """Seconds of a processor that all but `root` and what it has started have taken since the computer's start."""
    own = {root}
    pending = [root]
    children = collections.defaultdict(list)
    for number, process in found.items():
        children[process.parent].append(number)
    while pending:
        started = children[pending.pop()]
        own.update(started)
        pending += started
    return sum(process.seconds for number, process in found.items() if number not in own)


def most_within(samples, span):
    """The greatest growth over not more than `span` in samples of (time, amount) in the order of their times."""
    return max((later - earlier for index, (start, earlier) in enumerate(samples)
                for end, later in samples[index:] if end - start <= span), default=0.0)


class OthersWatch:
    """Notes what other programs take while it is entered, once in PERIOD. `most`, after that: the seconds of a
    processor that they took in the worst minute."""

    def __init__(self):
        self.most = 0.0
        self._samples = []
        self._done = threading.Event()

    def _sample(self):
        self._samples.append((time.monotonic(), seconds_of_others(os.getpid(), processes())))

    def _watch(self):
        while not self._done.wait(PERIOD):
            self._sample()

    def __enter__(self):
        keep_own()
        self._sample()
        self._thread = threading.Thread(target=self._watch)
        self._thread.start()
        return self

    def __exit__(self, *_):
        self._done.set()
        self._thread.join()
        self._sample()
        self.most = most_within(self._samples, MINUTE + PERIOD / 2)
