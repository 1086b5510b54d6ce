"""How long the settings take from the press of their button until the dialog is on the screen and takes input, with
few servers and with many, each in a program of its own; the two take turns."""

import pathlib
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parent / "desktop")]

from desktop import Desktop  # noqa: E402
from figures import ratio_within  # noqa: E402
from password_window import SETTINGS, SETTINGS_BUTTON, STAND_INS, PasswordWindow, targets  # noqa: E402
from practice_network import PracticeNetwork  # noqa: E402
from waiting import wait_until  # noqa: E402

FEW, MANY = 10, 1000
PAIRS = 20
BM_CLICK, WM_NULL = 0x00F5, 0


def open_window(desktop, network, count):
    """The password window of a program that knows so many servers."""
    for name, value in targets(["\\\\SERVER%04d" % number for number in range(count)])[SETTINGS].items():
        desktop.write_registry(SETTINGS, name, value)
    return PasswordWindow(desktop, variables=network.variables)


def seconds_to_dialog(desktop, window):
    pid = window.process.pid
    button = window.control(SETTINGS_BUTTON)
    start = time.monotonic()
    desktop.post(button, BM_CLICK)
    dialog = wait_until(lambda: desktop.find_window(class_name="frmSettings", pid=pid), "the settings", 30)
    desktop.send(dialog, WM_NULL)  # answered once the dialog waits for input
    taken = time.monotonic() - start
    desktop.close_window(dialog)
    desktop.wait_no_window(class_name="frmSettings", pid=pid)
    return taken


def measures(pairs):
    """`pairs`: None for the full number."""
    with Desktop(dlls=STAND_INS) as desktop:
        network = PracticeNetwork(desktop)
        windows = [open_window(desktop, network, count) for count in (MANY, FEW)]
        times = [[seconds_to_dialog(desktop, window) * 1000 for window in windows] for _ in range(pairs or PAIRS)]
    return [ratio_within("the settings with {:,} servers, from the press to the screen".format(MANY), times, 2, "%.0f",
                         "ms", "with %d" % FEW)]
