"""The computer that measures."""

import os
import pathlib
import re
import subprocess

WINE = pathlib.Path(__file__).resolve().parent.parent / "desktop" / "wine_root.sh"


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
