"""The password window of Moorlink.exe as a person uses it: filled in by keys, clicked by mouse, read from outside."""

from desktop import OUT
from practice_network import Accounts
from records import Rectangle
from waiting import wait_until

PROGRAM = OUT / "program" / "Moorlink.exe"
STAND_INS = {name: OUT / "stand_ins" / name for name in ("netapi32.dll", "netmsg.dll")}
SETTINGS = "HKCU\\Software\\Orvane\\Kestrelmoor"

USER_LABEL, USER, STATUS, SAME, OLD_LABEL, OLD, TARGETS = range(100, 107)
NEW_LABEL, NEW, CONFIRM_LABEL, CONFIRM, WAIT, SETTINGS_BUTTON, OK, CANCEL = range(107, 115)

REG_MULTI_SZ = 7
LB_GETITEMHEIGHT = 0x01A1

TITLE = "Change Password"
TITLE_DURING = "Changing Password"
TITLE_AFTER = "Password Change Results"
CHANGED = ": The password has been changed."
NOT_CHANGED = ": The password has not been changed."
PATIENCE = 30.0
"""Seconds that a change on a real server may take."""


def targets(names):
    """The registry entries that make these names the active targets."""
    bits = bytearray((len(names) - 1) // 8 + 1)
    for index in range(len(names)):
        bits[index // 8] |= 1 << index % 8
    list_of_names = "".join(name + "\0" for name in [*names, ""]).encode("utf-16-le")
    return {SETTINGS: {"Servers": (REG_MULTI_SZ, list_of_names), "Active": bytes(bits)}}


class PasswordWindow:
    """An open window; `process` is given where the program runs already. What a run tells as changed on the
    practice network is held against its accounts."""

    def __init__(self, desktop, arguments=(), program=PROGRAM, variables=None, process=None):
        self.desktop = desktop
        self.process = process or desktop.start(program, ["/f", *arguments], variables=variables)
        self.window = desktop.wait_window(class_name="frmPass", pid=self.process.pid)
        self._accounts_before = Accounts.behind(self.process)
        self._new = None

    def control(self, identifier):
        return self.desktop.child(self.window, identifier)

    def text(self, identifier):
        return self.desktop.text(self.control(identifier))

    def title(self):
        return self.desktop.window(self.window).title

    def enabled(self, identifier):
        return self.control(identifier).enabled

    def fill(self, old, new, confirm=None):
        """Types into the three boxes, each clicked first, and waits until every character has arrived."""
        for identifier, words in ((OLD, old), (NEW, new), (CONFIRM, new if confirm is None else confirm)):
            self.desktop.click(self.control(identifier))
            self.desktop.wait_focus(self.window, identifier)
            self.desktop.type(words)
            self.wait_length(identifier, len(words.encode("utf-16-le")) // 2)
        self._new = new

    def length(self, identifier):
        """In UTF-16 units. A box with a mask gives its text to nobody else, but its length (WM_GETTEXTLENGTH)."""
        return self.desktop.send(self.control(identifier), 0x000E)

    def wait_length(self, identifier, length):
        wait_until(lambda: self.length(identifier) == length, "%d characters in box %d" % (length, identifier))

    def rows(self):
        """The targets, without their masks."""
        return [row.text.split("\t")[0] for row in self.desktop.rows(self.control(TARGETS))]

    def masks(self):
        """What each row shows behind the target's name, "" where it shows nothing."""
        return [row.text.partition("\t")[2] for row in self.desktop.rows(self.control(TARGETS))]

    def row_area(self, row):
        """Where a row lies on the screen, shown or not."""
        targets_list = self.control(TARGETS)
        area = self.desktop.client_area(targets_list)
        height = self.desktop.send(targets_list, LB_GETITEMHEIGHT)
        top = area.top + (row - self.desktop.list_state(targets_list)[1]) * height
        return Rectangle(area.left, top, area.right, top + height)

    def box_area(self):
        """Where the box for the old password lies on the screen, or None while it is hidden."""
        box = self.control(OLD)
        return self.desktop.client_area(box) if box.visible else None

    def click_row(self, row):
        """On its name."""
        area, targets_list = self.row_area(row), self.control(TARGETS)
        top = self.desktop.client_area(targets_list).top
        self.desktop.click(targets_list, at=(20, area.top - top + area.height // 2))

    def wait_edit(self, row):
        """Waits until the box lies over the mask of a row and has the focus."""
        def found():
            area, box = self.row_area(row), self.box_area()
            return (self.desktop.list_state(self.control(TARGETS))[0] == row and box is not None
                    and (box.top, box.right, box.bottom) == (area.top, area.right, area.bottom))
        wait_until(found, "the box over row %d" % row)
        self.desktop.wait_focus(self.window, OLD)

    def type_old(self, words):
        """Into the box that has the focus."""
        self.desktop.type(words)
        self.wait_length(OLD, len(words.encode("utf-16-le")) // 2)

    def type_new(self, words):
        """Into both boxes, each clicked first."""
        for identifier in (NEW, CONFIRM):
            self.click(identifier)
            self.desktop.wait_focus(self.window, identifier)
            self.desktop.type(words)
            self.wait_length(identifier, len(words.encode("utf-16-le")) // 2)
        self._new = words

    def click(self, identifier):
        self.desktop.click(self.control(identifier))

    def change(self, old, new):
        """Fills in, presses OK and waits for the end of the run. Returns the paragraphs."""
        self.fill(old, new)
        self.click(OK)
        return self.wait_results()

    def wait_results(self, timeout=PATIENCE):
        wait_until(lambda: self.title() == TITLE_AFTER, "the results", timeout)
        paragraphs = self.paragraphs()
        self._prove(paragraphs)
        return paragraphs

    def _prove(self, paragraphs):
        """On each target that is told as changed the old password no longer lets in, and the one that was typed
        here does; on each that is told as not changed, the old one still does."""
        accounts = Accounts.behind(self.process)
        if accounts is None:
            return
        for target in (words.removesuffix(CHANGED) for words in paragraphs if words.endswith(CHANGED)):
            password = accounts.password(target)
            if password == self._accounts_before.password(target):
                raise AssertionError("%s is told as changed, and the old password still lets in" % target)
            if self._new not in (None, password):
                raise AssertionError("%s is told as changed, and the new password does not let in" % target)
        for target in (words.partition(NOT_CHANGED)[0] for words in paragraphs if NOT_CHANGED in words):
            if accounts.knows(target) and accounts.password(target) != self._accounts_before.password(target):
                raise AssertionError("%s is told as not changed, and the old password no longer lets in" % target)

    def paragraphs(self):
        return self.text(STATUS).split("\r\n\r\n")

    def close(self):
        """By the button, and waits for the end of the program."""
        self.click(CANCEL)
        return self.process.wait_exit()
