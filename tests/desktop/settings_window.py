"""The settings window as a person uses it, opened from the password window."""

from password_window import PROGRAM, SETTINGS, SETTINGS_BUTTON, PasswordWindow
from practice_network import PracticeNetwork
from waiting import wait_until

LOCAL, FRAME, SERVERS, ENTRY, ADD, REMOVE = range(100, 106)
REMIND, DAYS, DAYS_LABEL, LANGUAGE_LABEL, LANGUAGES, PERMANENT = range(106, 112)
ABOUT, HELP, OK, CANCEL = range(112, 116)
ENTRY_BOX, ENTRY_BROWSE = 100, 101
"""In the entry's own window."""

LB_GETITEMHEIGHT = 0x01A1
MARK_MIDDLE = 7
"""At 96 dots per inch, from the left of a row."""


class SettingsWindow:
    def __init__(self, desktop, program=PROGRAM, folder="", by_keys=False, arguments=(), network=None):
        """`folder` is the current directory of the program, where it looks for more languages."""
        self.desktop = desktop
        self._by_keys = by_keys
        self.network = network or PracticeNetwork(desktop)
        process = desktop.start(program, ["/f", *arguments], cwd=folder, variables=self.network.variables)
        self.passwords = PasswordWindow(desktop, process=process)
        self.open()

    def open(self):
        if self._by_keys:
            self.desktop.press("Alt+S")
        else:
            self.passwords.click(SETTINGS_BUTTON)
        self.window = self.desktop.wait_window(class_name="frmSettings", pid=self.passwords.process.pid)

    def controls(self):
        """{id: control} of the form, not of what the entry is made of."""
        controls = self.desktop.children(self.window)
        entry = next(control for control in controls if control.id == ENTRY and control.class_name == "Static")
        return {control.id: control for control in controls if control.parent != entry.handle}

    def control(self, identifier):
        return self.controls()[identifier]

    def entry_part(self, identifier):
        """The box or the button of the entry."""
        entry = self.control(ENTRY)
        return next(control for control in self.desktop.children(self.window)
                    if control.parent == entry.handle and control.id == identifier)

    def enabled(self, identifier):
        return self.control(identifier).enabled

    def checked(self, identifier):
        return self.desktop.checked(self.control(identifier)) == 1

    def set_checked(self, identifier, checked):
        if self.checked(identifier) != checked:
            self.click(identifier)
        self.wait_checked(identifier, checked)

    def wait_checked(self, identifier, checked):
        wait_until(lambda: self.checked(identifier) == checked, "control %d checked: %s" % (identifier, checked))

    def click(self, identifier):
        self.desktop.click(self.control(identifier))

    def rows(self):
        return [row.text for row in self.desktop.rows(self.control(SERVERS))]

    def current_row(self):
        return self.desktop.list_state(self.control(SERVERS))[0]

    def wait_rows(self, *names):
        wait_until(lambda: self.rows() == list(names), "the rows %s, they are %s" % (names, self.rows()))

    def wait_current(self, row):
        wait_until(lambda: self.current_row() == row, "row %d chosen, it is %d" % (row, self.current_row()))

    def row_middle(self, row):
        height = self.desktop.send(self.control(SERVERS), LB_GETITEMHEIGHT)
        return row * height + height // 2

    def click_mark(self, row):
        self.desktop.click(self.control(SERVERS), at=(MARK_MIDDLE, self.row_middle(row)))

    def click_name(self, row):
        self.desktop.click(self.control(SERVERS), at=(60, self.row_middle(row)))

    def open_entry(self):
        self.click(ADD)
        wait_until(lambda: self.control(ENTRY).visible, "the entry")
        self.wait_focus(self.entry_part(ENTRY_BOX))

    def add(self, name):
        """By the entry, which is left by Tab."""
        self.open_entry()
        self.type_name(name)
        self.leave_entry()

    def type_name(self, name):
        self.desktop.type(name)
        self.desktop.wait_text(self.entry_part(ENTRY_BOX), name)

    def leave_entry(self):
        """From its box over its button to the next control."""
        self.desktop.press("Tab")
        self.wait_focus(self.entry_part(ENTRY_BROWSE))
        self.desktop.press("Tab")
        wait_until(lambda: not self.control(ENTRY).visible, "the entry closed")

    def set_days(self, words):
        """By keys, in the place of what stands there."""
        days = self.control(DAYS)
        self.desktop.click(days, clicks=2)
        self.desktop.press("Backspace")
        self.desktop.wait_text(days, "")
        self.desktop.type(words)
        self.desktop.wait_text(days, words)

    def choose_language(self, begins):
        """By keys: the row whose name begins so."""
        languages = self.control(LANGUAGES)
        row = next(at for at, row in enumerate(self.desktop.rows(languages)) if row.text.startswith(begins))
        self.desktop.press("Alt+L")
        self.wait_focus(languages)
        self.desktop.press("Home")
        for _ in range(row):
            self.desktop.press("Down")
        wait_until(lambda: self.desktop.rows(languages)[row].selected, "the language %r" % begins)

    def save(self):
        self.click(OK)
        self.wait_closed()

    def wait_focus(self, control):
        wait_until(lambda: self.desktop.input_state(self.window).focus == control.handle, "the focus on it")

    def wait_closed(self):
        self.desktop.wait_no_window(class_name="frmSettings", pid=self.passwords.process.pid)

    def stored(self, name):
        return self.desktop.registry_value(SETTINGS, name)
