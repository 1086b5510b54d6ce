"""A password changed on the practice network: through the real window, or, where no Windows program can be run,
in the practice console."""

import os
import pathlib
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

from desktop import OUT, Desktop, NoWine  # noqa: E402
from password_window import CONFIRM, NEW, OK, OLD, STAND_INS, PasswordWindow, targets  # noqa: E402
from practice_network import OLD as OLD_PASSWORD  # noqa: E402
from practice_network import PracticeNetwork  # noqa: E402

NEW_PASSWORD = "New-Password-2"
TARGETS = ["\\\\ARCHIVE", "PRACTICE"]
PICTURES = OUT / "demo"
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


def on_your_display():
    print("The window opens on your display. The old password is %s everywhere." % OLD_PASSWORD)
    with YourDisplay(**OPTIONS) as desktop:
        desktop.guard_session()
        network = PracticeNetwork(desktop)
        window = PasswordWindow(desktop, variables=network.variables)
        while window.process.exit_code() is None:
            desktop.driver.call("wait", window.process.pid, 500)
        print("The practice network now:")
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


def in_the_console(trouble):
    print("No Windows program can be run here: %s" % trouble)
    print("The same session in the practice console:")
    steps = ["show", "type " + OLD_PASSWORD]
    for _ in (NEW, CONFIRM):
        steps += ["press Tab", "type " + NEW_PASSWORD]
    steps += ["press Enter", "show", "close"]
    console = [OUT / "native" / "practice", "--", "/f"]
    ended = subprocess.run(console, input="\n".join(steps) + "\n", text=True, cwd=ROOT)
    return ended.returncode


def main():
    try:
        if os.environ.get("DISPLAY"):
            on_your_display()
        else:
            driven()
    except NoWine as trouble:
        return in_the_console(trouble)
    return 0


if __name__ == "__main__":
    sys.exit(main())
