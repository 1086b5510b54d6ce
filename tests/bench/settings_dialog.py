"""How long the settings take from the press of their button until the dialog is on the screen and takes input, with
few servers and with many, each in a program of its own; the two take turns."""

import pathlib
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parent / "desktop")]

from desktop import Desktop  # noqa: E402
from figures import print_table, with_spread  # noqa: E402
from password_window import SETTINGS, SETTINGS_BUTTON, STAND_INS, PasswordWindow, targets  # noqa: E402
from practice_network import PracticeNetwork  # noqa: E402
from waiting import wait_until  # noqa: E402
from wine_desktop import NoWine  # noqa: E402

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


def main():
    try:
        with Desktop(dlls=STAND_INS) as desktop:
            network = PracticeNetwork(desktop)
            windows = [open_window(desktop, network, count) for count in (FEW, MANY)]
            pairs = [[seconds_to_dialog(desktop, window) for window in windows] for _ in range(PAIRS)]
    except NoWine as reason:
        print("\nthe settings were not measured: %s" % reason)
        return
    print_table("The settings from the press to the screen, %d pairs" % PAIRS, [
        ("%d servers" % FEW, with_spread([few * 1000 for few, _ in pairs], "%.0f") + " ms", ""),
        ("%d servers" % MANY, with_spread([many * 1000 for _, many in pairs], "%.0f") + " ms", ""),
        ("ratio", with_spread([many / few for few, many in pairs], "%.2f"), "goal: at most 2"),
    ])


if __name__ == "__main__":
    main()
