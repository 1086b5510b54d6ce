"""The computer that measures: what it is, and how busy."""

import os
import pathlib
import re
import subprocess
import threading
import time

WINE = pathlib.Path(__file__).resolve().parent.parent / "desktop" / "wine_root.sh"
SETTLED = 0.5
PATIENCE = 180.0
"""Seconds that a run waits for what went before it to fade from the load of a minute."""


def description():
    """Rows of two texts."""
    model = re.search(r"^model name\s*:\s*(.+)$", pathlib.Path("/proc/cpuinfo").read_text(), re.MULTILINE)
    system = os.uname()
    wine = subprocess.run([str(WINE), "run", "--", "wine", "--version"], stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, text=True)
    return [
        ("processors", "%d, %s" % (os.cpu_count(), model[1] if model else system.machine)),
        ("kernel", "%s %s" % (system.sysname, system.release)),
        ("Wine", wine.stdout.strip() if wine.returncode == 0 else "none"),
    ]


def settle():
    """Waits until the builds ahead of a run no longer show in the load, or in vain."""
    end = time.monotonic() + PATIENCE
    while os.getloadavg()[0] > SETTLED and time.monotonic() < end:
        time.sleep(5)


class LoadWatch:
    """Notes the highest load of a minute while it is entered."""

    def __init__(self):
        self.highest = 0.0
        self._done = threading.Event()

    def _watch(self):
        while True:
            self.highest = max(self.highest, os.getloadavg()[0])
            if self._done.wait(10):
                return

    def __enter__(self):
        self._thread = threading.Thread(target=self._watch)
        self._thread.start()
        return self

    def __exit__(self, *_):
        self._done.set()
        self._thread.join()
