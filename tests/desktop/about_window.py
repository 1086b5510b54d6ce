"""The about window, opened from the settings window, and what the shell opens for it."""

from practice_network import program_folder
from settings_window import ABOUT, SettingsWindow
from waiting import wait_until

LEGAL_NOTICE, WEB, TRANSLATION, TRANSLATOR, TRANSLATOR_WEB = range(100, 105)
OK, HELP, VERSION, TITLE, DESCRIPTION, ICON = range(105, 111)

UNINSTALL = ("HKLM\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\"
             "{5C1E7A90-3B2D-4E68-9F14-A07D2C86B3E1}_is1")
ADDRESS = "https://kestrelmoor.example/home"
TIP = "Click to open the Author's Home Page in Internet"
HELP_FILE = "Help-1033.html"
OPENED = "opened.txt"
"""In the work folder: what was opened, a line each, where `watch_openings` has been called."""

HOT_LIGHT, GRAY_TEXT = 26, 17
TIP_CLASS = "tooltips_class32"


def watch_openings(desktop):
    """From now on a web page or a help page that is opened leaves its name in a file."""
    command = "C:\\windows\\system32\\cmd.exe /c echo %1>>" + desktop.windows_path(desktop.work / OPENED)
    desktop.write_registry("HKCR\\.html", "", "watchedpage")
    for kind in ("watchedpage", "https"):
        desktop.write_registry("HKCR\\%s\\shell\\open\\command" % kind, "", command)
    desktop.write_registry("HKCR\\https", "URL Protocol", "")


def opened(desktop):
    """The names of all that was opened, a line each; "" for nothing yet."""
    path = desktop.work / OPENED
    lines = path.read_text(encoding="utf-8").splitlines() if path.exists() else []
    return "\n".join(line.strip().strip('"') for line in lines)


def forget_openings(desktop):
    (desktop.work / OPENED).unlink(missing_ok=True)


def program_with_help(desktop, **files):
    return program_folder(desktop, **{HELP_FILE.replace(".", "_"): b"<p>help</p>", **files})


class AboutWindow:
    def __init__(self, settings: SettingsWindow):
        self.desktop = settings.desktop
        self.pid = settings.passwords.process.pid
        settings.click(ABOUT)
        self.window = self.desktop.wait_window(class_name="frmAbout", pid=self.pid)

    def control(self, identifier):
        return self.desktop.child(self.window, identifier)

    def text(self, identifier):
        return self.desktop.text(self.control(identifier))

    def visible(self, identifier):
        return self.control(identifier).visible

    def place(self, identifier):
        found = self.control(identifier).place
        return found.left, found.top, found.width, found.height

    def colour(self, index):
        """(red, green, blue) of a colour of the system."""
        number = self.desktop.call_in(self.window, "user32.dll", "GetSysColor", index)
        return number & 255, number >> 8 & 255, number >> 16 & 255

    def longest_run(self, identifier, colour):
        """Of pixels of one colour in a row of the control: an underline is as long as the text."""
        area = self.desktop.client_area(self.control(identifier))
        pixels = self.desktop.pixels(area)
        longest = 0
        for y in range(area.height):
            run = 0
            for x in range(area.width):
                run = run + 1 if pixels[x, y] == colour else 0
                longest = max(longest, run)
        return longest

    def is_hot(self, identifier):
        width = self.desktop.client_area(self.control(identifier)).width
        return self.longest_run(identifier, self.colour(HOT_LIGHT)) > width * 0.9

    def wait_hot(self, identifier, hot=True):
        wait_until(lambda: self.is_hot(identifier) == hot, "link %d hot: %s" % (identifier, hot))

    def wait_closed(self):
        self.desktop.wait_no_window(class_name="frmAbout", pid=self.pid)
