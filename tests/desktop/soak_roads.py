"""How a form is opened many times in one process, by messages, for speed: keys and mouse are tried elsewhere.

settings   by the password window's button, and closed as by the cross in the frame
about      by the settings window's button, and closed as by the cross
password   a run that fails on every target, and Back: a new window takes the place of the old one. A program started
           with /f opens it at once, any other by its watch, which asks the servers anew
language   another one chosen in the settings window, which the password window takes on
browse     the settings window's Add, the button of the entry, and the dialog cancelled
"""

from browse_dialog import BrowseDialog
from held_network import BridgedDirectory, HeldNetwork
from password_window import CONFIRM, NEW, OK, OLD, SETTINGS_BUTTON, TITLE_AFTER
from settings_window import ABOUT, ADD, ENTRY, ENTRY_BROWSE, LANGUAGES
from settings_window import OK as SETTINGS_OK
from waiting import wait_until

WM_SETTEXT, WM_COMMAND, BM_CLICK, CB_SETCURSEL, CBN_SELCHANGE = 0x000C, 0x0111, 0x00F5, 0x014E, 1
INVALID_PASSWORD = 86
NORMAL_ACCOUNT = 0x201
WORDS = {OLD: "Old-Password-1", NEW: "New-Password-2", CONFIRM: "New-Password-2"}


class RefusingNetwork(HeldNetwork):
    """Refuses each change at once."""

    def _answer(self, request):
        if request["call"] == "NetUserChangePassword":
            return {"code": INVALID_PASSWORD}
        return super()._answer(request)


class RefusingDirectory(BridgedDirectory):
    """Tells that every password has expired, and refuses each change at once."""

    def __init__(self):
        super().__init__(UserFlags=NORMAL_ACCOUNT, PasswordExpired=1, PasswordMinimumLength=0)

    def _answer(self, request):
        answer = super()._answer(request)
        return {"code": INVALID_PASSWORD} if request["call"] == "IADsUser.ChangePassword" else answer


class Roads:
    """Of one program, whose password window is open. Each gives the window that is open at its end."""

    def __init__(self, desktop, process):
        self._desktop = desktop
        self._pid = process.pid
        self._password = self._wait("frmPass")

    def settings(self):
        self._close(self.open_settings())
        return self._password

    def open_settings(self):
        self._press(self._control(self._password, SETTINGS_BUTTON))
        return self._wait("frmSettings")

    def about(self, settings):
        self._press(self._control(settings, ABOUT))
        self._close(self._wait("frmAbout"))
        return settings

    def password(self):
        controls = {control.id: control for control in self._desktop.children(self._password)}
        for identifier, words in WORDS.items():
            self._desktop.send_text(controls[identifier], WM_SETTEXT, 0, words)
        self._press(controls[OK])
        wait_until(lambda: self._desktop.window(self._password).title == TITLE_AFTER, "the results")
        self._press(controls[OK])
        self._wait_gone(self._password)
        self._password = self._wait("frmPass")
        return self._password

    def language(self, row):
        """The one in a row of the list, another one than before."""
        title = self._desktop.window(self._password).title
        settings = self.open_settings()
        languages = self._control(settings, LANGUAGES)
        self._desktop.send(languages, CB_SETCURSEL, row)
        self._desktop.send(settings, WM_COMMAND, CBN_SELCHANGE << 16 | LANGUAGES, languages.handle)
        self._press(self._control(settings, SETTINGS_OK))
        self._wait_gone(settings)
        wait_until(lambda: self._desktop.window(self._password).title != title, "another language")
        return self._password

    def languages(self, rows):
        """One after the other."""
        for row in rows:
            window = self.language(row)
        return window

    def browse(self, settings):
        self._press(self._control(settings, ADD))
        controls = self._desktop.children(settings)
        entry = next(control for control in controls if control.id == ENTRY and control.class_name == "Static")
        self._press(next(control for control in controls
                         if control.id == ENTRY_BROWSE and control.parent == entry.handle))
        BrowseDialog.wait(self._desktop, self._pid).dismiss()
        return settings

    def _wait(self, class_name):
        """A form that is open and painted: what its first painting makes is made in the first turns, too."""
        window = self._desktop.wait_window(class_name=class_name, pid=self._pid)
        self._desktop.paint(window)
        return window

    def _control(self, window, identifier):
        return self._desktop.child(window, identifier)

    def _press(self, button):
        self._desktop.post(button, BM_CLICK)

    def _close(self, window):
        self._desktop.close_window(window)
        self._wait_gone(window)

    def _wait_gone(self, window):
        wait_until(lambda: self._desktop.window(window) is None, "no more window %s" % window.class_name)
