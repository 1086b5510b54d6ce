"""A password changed on the practice network: through the real window, or, where no Windows program can be run,
in the practice console. With --watch: the question at a logon on the day before the password expires, and the
window that it leads to."""

import argparse
import os
import pathlib
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

from desktop import OUT, Desktop, NoWine  # noqa: E402
from password_window import (CONFIRM, NEW, OK, OLD, PROGRAM, STAND_INS, PasswordWindow,  # noqa: E402
                             targets)
from practice_network import OLD as OLD_PASSWORD  # noqa: E402
from practice_network import PracticeNetwork  # noqa: E402

NEW_PASSWORD = "New-Password-2"
TARGETS = ["\\\\ARCHIVE", "PRACTICE"]
PICTURES = OUT / "demo"
DAY_BEFORE_EXPIRY = "2026-03-08T09:00:00"
"""Of the local computer's password in the stock world."""
OPTIONS = {"dlls": STAND_INS, "registry": targets(TARGETS)}


class YourDisplay(Desktop):
    """The screen that you sit at, in place of one that nobody sees."""

    def _start_screen(self):
        self.display = os.environ["DISPLAY"]
        authority = pathlib.Path(os.environ.get("XAUTHORITY") or pathlib.Path.home() / ".Xauthority")
        if authority.exists():
            shutil.copy(authority, self.work / "Xauthority")
            inside = self.windows_path(self.work / "Xauthority").removeprefix("Z:").replace("\\", "/")
            self.variables = {**self.variables, "XAUTHORITY": inside}


def tell_network(network):
    for name, password in network.passwords().items():
        print("  %-10s %s" % (name, "unchanged" if password == OLD_PASSWORD else "has the new password"))


def the_day_before(world):
    world["clock"] = DAY_BEFORE_EXPIRY


def until_you_close_it(watch):
    print("The window opens on your display. The old password is %s everywhere." % OLD_PASSWORD)
    with YourDisplay(**OPTIONS) as desktop:
        desktop.guard_session()
        network = PracticeNetwork(desktop, the_day_before if watch else None)
        process = desktop.start(PROGRAM, [] if watch else ["/f"], variables=network.variables)
        while process.exit_code() is None:
            desktop.driver.call("wait", process.pid, 500)
        print("The practice network now:")
        tell_network(network)


def driven_watch():
    print("There is no display: the question is answered with Yes, its pictures go to out/demo/.")
    shutil.rmtree(PICTURES, ignore_errors=True)
    with Desktop(**OPTIONS) as desktop:
        network = PracticeNetwork(desktop, the_day_before)
        process = desktop.start(PROGRAM, [], variables=network.variables)
        question = desktop.box(pid=process.pid)
        desktop.picture(PICTURES / "1-question.png", question.window)
        text = question.title + "\n\n" + question.text.replace("\r\n", "\n") + "\n"
        (PICTURES / "question.txt").write_text(text, encoding="utf-8")
        print("\n" + text)
        question.answer("Yes")
        window = PasswordWindow(desktop, process=process)
        desktop.wait_focus(window.window, OLD)
        desktop.picture(PICTURES / "2-window.png", window.window)
        window.close()
        print("The window was open and is closed; nothing has changed:")
        tell_network(network)


def driven():
    print("There is no display: the window is driven, its pictures go to out/demo/.")
    shutil.rmtree(PICTURES, ignore_errors=True)
    with Desktop(**OPTIONS) as desktop:
        desktop.guard_session()
        network = PracticeNetwork(desktop)
        window = PasswordWindow(desktop, variables=network.variables)
        desktop.wait_focus(window.window, OLD)
        desktop.picture(PICTURES / "1-entry.png", window.window)
        window.fill(OLD_PASSWORD, NEW_PASSWORD)
        desktop.picture(PICTURES / "2-filled-in.png", window.window)
        window.click(OK)
        paragraphs = window.wait_results()
        desktop.picture(PICTURES / "3-results.png", window.window)
        window.close()
        (PICTURES / "paragraphs.txt").write_text("\n\n".join(paragraphs) + "\n", encoding="utf-8")
        print("\n".join(["", *paragraphs, "", "The practice network now:"]))
        tell_network(network)


def change_in_the_console():
    steps = ["show", "type " + OLD_PASSWORD]
    for _ in (NEW, CONFIRM):
        steps += ["press Tab", "type " + NEW_PASSWORD]
    return in_the_console(steps + ["press Enter", "show", "close"], "--", "/f")


def watch_in_the_console():
    return in_the_console(["show", "close"], "--first", "clock " + DAY_BEFORE_EXPIRY, "--first", "box yes")


def in_the_console(steps, *arguments):
    console = [OUT / "native" / "practice", *arguments]
    ended = subprocess.run(console, input="\n".join(steps) + "\n", text=True, cwd=ROOT)
    return ended.returncode


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--watch", action="store_true", help="the watch on the day before a password expires")
    watch = parser.parse_args().watch
    try:
        if os.environ.get("DISPLAY"):
            until_you_close_it(watch)
        elif watch:
            driven_watch()
        else:
            driven()
    except NoWine as trouble:
        print("No Windows program can be run here: %s" % trouble)
        print("The same session in the practice console:")
        return watch_in_the_console() if watch else change_in_the_console()
    return 0


if __name__ == "__main__":
    sys.exit(main())
