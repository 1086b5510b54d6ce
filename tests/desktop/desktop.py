"""A real Windows desktop for tests: 32-bit Wine, a screen that nobody sees, and a driver beside the program.

    with Desktop(dlls={"netapi32.dll": path}) as desktop:
        program = desktop.start(OUT / "program" / "Moorlink.exe", ["/f"])
        window = desktop.wait_window(class_name="frmPass")
        desktop.click(desktop.child(window, 105))
        desktop.type("secret")
        desktop.box().answer("OK")
        code = program.wait_exit()

Windows and controls are records with a handle; ask again (`window`, `children`) to see what has become of
them.
"""

import os
import pathlib
import subprocess
import time

from keys import virtual_keys
from message_box import MessageBox
from records import Control, InputState, Rectangle, Row, Window
from waiting import PATIENCE, wait_until
from wine_desktop import OUT, NoWine, Process, WineDesktop
import windows_registry

RDW_ALL_NOW = 0x0001 | 0x0080 | 0x0100
"""RDW_INVALIDATE, RDW_ALLCHILDREN and RDW_UPDATENOW."""

STILL_ATTEMPTS = 20
"""How many pictures are taken at most until two in a row are alike; a caret that blinks may spoil some."""


class Desktop(WineDesktop):
    """What a person would see and do, and what a person can't: see WineDesktop for the options."""

    # Programs ---------------------------------------------------------------------------------------------

    def modules(self, process):
        """{lower-case name: path} of the libraries that a program has loaded, itself included."""
        return {name.lower(): path for name, path in self.driver.call("modules", process.pid)}

    def loads(self, process):
        """{path: how often that library has been loaded and not let go; 0 for one that stays for good}. The program
        is at rest."""
        return {path: int(loads) for path, loads in self.driver.call("loads", process.pid)}

    def handles(self, process):
        """{"windows", "gdi", "kernel"}: how many of each a program holds."""
        counts = self.driver.call("counts", process.pid)[0]
        return dict(zip(("windows", "gdi", "kernel"), map(int, counts)))

    def user_handles(self):
        """How many windows, menus, icons, hooks and the like there are, of all programs."""
        return self.driver.number("user")

    def heap_bytes(self, window):
        """What the heaps of the program that owns the window hold: (those that are its own, the one that it shares
        with the system's libraries)."""
        return tuple(map(int, self.driver.call("heaps", window.handle)[0]))

    def load_in(self, window, library):
        """Lets the program that owns the window load a library."""
        return self.driver.number("load_in", window.handle, library)

    # Windows ----------------------------------------------------------------------------------------------

    def windows(self, pid=None):
        """The top-level windows, the front one first."""
        found = [Window.of(fields) for fields in self.driver.call("windows")]
        return [window for window in found if pid is None or window.pid == pid]

    def find_window(self, title=None, class_name=None, pid=None):
        """The first visible window that fits, or None."""
        for window in self.windows(pid):
            if window.visible and title in (None, window.title) and class_name in (None, window.class_name):
                return window
        return None

    def wait_window(self, title=None, class_name=None, pid=None, timeout=PATIENCE):
        return wait_until(lambda: self.find_window(title, class_name, pid),
                          "a window %r of class %r" % (title, class_name), timeout)

    def wait_no_window(self, title=None, class_name=None, pid=None, timeout=PATIENCE):
        wait_until(lambda: self.find_window(title, class_name, pid) is None,
                   "no more window %r of class %r" % (title, class_name), timeout)

    def window(self, window):
        """The window as it is now, or None when it is gone."""
        return next((now for now in self.windows() if now.handle == window.handle), None)

    def children(self, window):
        """All descendants, in the order of the windows."""
        return [Control.of(fields) for fields in self.driver.call("children", window.handle)]

    def child(self, window, identifier=None, text=None, class_name=None):
        """The one descendant that fits; several or none is a LookupError."""
        found = [control for control in self.children(window)
                 if identifier in (None, control.id) and text in (None, control.text)
                 and (class_name is None or control.class_name.lower() == class_name.lower())]
        if len(found) != 1:
            raise LookupError("%d controls with id %r, text %r, class %r"
                              % (len(found), identifier, text, class_name))
        return found[0]

    def text(self, control):
        """What WM_GETTEXT answers now."""
        return self.driver.call("text", control.handle)[0][0]

    def wait_text(self, control, text, timeout=PATIENCE):
        wait_until(lambda: self.text(control) == text,
                   "the text %r, it is %r" % (text, self.text(control)), timeout)

    def rows(self, control):
        """The rows of a list or drop-down list: text, selected, data."""
        return [Row.of(fields) for fields in self.driver.call("items", control.handle)]

    def list_state(self, control):
        """(selected row or -1, top row)"""
        return tuple(map(int, self.driver.call("list", control.handle)[0]))

    def checked(self, control):
        """State of a check box or radio button: 0, 1, or 2 for undecided."""
        return self.send(control, 0x00F0)

    def input_state(self, window):
        """The foreground window, and the active, focused and capturing ones of the window's thread."""
        return InputState(*map(int, self.driver.call("input", window.handle)[0]))

    def focus(self, window):
        """The control that has the focus in the window's thread, or None."""
        handle = self.input_state(window).focus
        return next((control for control in self.children(window) if control.handle == handle), None)

    def wait_focus(self, window, identifier, timeout=PATIENCE):
        def found():
            focus = self.focus(window)
            return focus is not None and focus.id == identifier
        wait_until(found, "the focus on control %d" % identifier, timeout)

    def client_area(self, window):
        """On the screen."""
        return Rectangle(*map(int, self.driver.call("client", window.handle)[0]))

    def screen(self):
        """(width, height, dots per inch), as programs see it."""
        return tuple(map(int, self.driver.call("screen")[0]))

    def layout_faults(self, window, allow=()):
        """What is wrong with the visible controls: (kind, control, other control or None, explanation).
        Kinds: "wide" and "high" (text does not fit), "overlap", "outside" (of its parent). `allow` holds pairs
        of control ids that may overlap."""
        allowed = {frozenset(pair) for pair in allow}
        by_handle = {control.handle: control for control in self.children(window)}
        faults = []
        for kind, one, other, explanation in self.driver.call("layout", window.handle):
            one, other = by_handle.get(int(one)), by_handle.get(int(other))
            if kind == "overlap" and one and other and frozenset((one.id, other.id)) in allowed:
                continue
            faults.append((kind, one, other, explanation))
        return faults

    # Messages and input -----------------------------------------------------------------------------------

    def send(self, window, message, wparam=0, lparam=0):
        """SendMessage; the result as a signed number."""
        return self.driver.number("send", window.handle, message, wparam, lparam)

    def send_text(self, window, message, wparam, text):
        """SendMessage with the address of a text as lParam."""
        return self.driver.number("send_text", window.handle, message, wparam, text)

    def post(self, window, message, wparam=0, lparam=0):
        self.driver.call("post", window.handle, message, wparam, lparam)

    def close_window(self, window):
        """As by the cross in its frame."""
        self.post(window, 0x0112, 0xF060)

    def front(self, window):
        self.driver.call("front", window.handle)

    def click(self, control, at=None, button=1, clicks=1):
        """A real click, at the middle or at (x, y) of the client area; button 3 is the right one."""
        self._mouse(control, at, "click", "--repeat", str(clicks), "--delay", "60", str(button))

    def hold(self, control, at=None, seconds=0.3):
        """A click as slow as a person's: the button stays down for a while."""
        self._mouse(control, at, "mousedown", "1", "sleep", str(seconds), "mouseup", "1")

    def move_mouse(self, control, at=None):
        self._mouse(control, at)

    def _mouse(self, control, at, *more):
        # By the screen's own mouse: of clicks that Wine itself is told to make right after a window opened,
        # one in three was lost.
        area = self.client_area(control)
        x, y = at or (area.width // 2, area.height // 2)
        subprocess.run(["xdotool", "mousemove", str(area.left + x), str(area.top + y), *more],
                       env={**os.environ, "DISPLAY": self.display}, check=True, stdin=subprocess.DEVNULL)

    def type(self, text):
        """Real keys for what the keyboard has, else the characters themselves. The program handles them a
        little later: wait for what they lead to."""
        self.driver.call("type", text)

    def paste(self, text):
        """By the clipboard and Ctrl+V, into what has the focus."""
        self.set_clipboard(text)
        self.press("Ctrl+V")

    def press(self, combination):
        """A key or a chord: "Enter", "F1", "Alt+S", "Ctrl+Shift+Home"."""
        self.driver.call("press", *virtual_keys(combination))

    # Message boxes ----------------------------------------------------------------------------------------

    def find_box(self, title=None, pid=None):
        return MessageBox.find(self, title, pid)

    def box(self, title=None, pid=None, timeout=PATIENCE):
        """Waits for a message box."""
        return wait_until(lambda: self.find_box(title, pid), "a message box %r" % title, timeout)

    # Registry ---------------------------------------------------------------------------------------------

    def read_registry(self, key, name):
        """(type, bytes) of a value, or None when it is absent. Keys start with HKCU, HKLM or HKCR."""
        found = self.driver.call("read_value", *windows_registry.split_key(key), name)
        return (int(found[0][0]), bytes.fromhex(found[0][1])) if found else None

    def registry_value(self, key, name):
        """The value as text, number or bytes, or None when it is absent."""
        found = self.read_registry(key, name)
        return windows_registry.from_bytes(*found) if found else None

    def write_registry(self, key, name, value):
        kind, data = windows_registry.to_bytes(value)
        self.driver.call("write_value", *windows_registry.split_key(key), name, kind, data.hex())

    def delete_registry(self, key, name=None):
        """Deletes a value, or without a name the key and all below it."""
        if name is None:
            self.driver.call("delete_key", *windows_registry.split_key(key))
        else:
            self.driver.call("delete_value", *windows_registry.split_key(key), name)

    def list_registry(self, key):
        """(names of sub-keys, names of values), both empty when the key is absent."""
        found = self.driver.call("list_key", *windows_registry.split_key(key))
        return tuple([name for kind, name in found if kind == wanted] for wanted in ("key", "value"))

    # What a person can't ask for ---------------------------------------------------------------------------

    def pointer(self, window):
        """The mouse pointer that a program shows: "arrow", "text", "wait" or "other"."""
        return self.driver.call("pointer", window.handle)[0][0]

    def window_icon(self, window, size):
        """(handle, width, height) of the small (0) or large (1) icon, or None."""
        found = self.driver.call("window_icon", window.handle, size)
        return tuple(map(int, found[0])) if found else None

    def call_in(self, window, library, function, *numbers):
        """What a function of a system library returns in the program that owns the window."""
        return self.driver.number("call", window.handle, library, function, *numbers)

    def paint(self, window):
        """Has the window and its controls painted at once, for which the program leaves whatever it was about."""
        self.call_in(window, "user32.dll", "RedrawWindow", window.handle, 0, 0, RDW_ALL_NOW)

    def set_clipboard(self, text):
        self.driver.call("clipboard", text)

    def set_colour(self, window, index, colour):
        """A colour of the system, 0x00BBGGRR, set in the program that owns the window: Wine tells no other one.
        Its windows hear of it."""
        memory = self.call_in(window, "kernel32.dll", "GlobalAlloc", 0x40, 8)
        for place, number in ((memory, index), (memory + 4, colour)):
            self.call_in(window, "ntdll.dll", "RtlFillMemoryUlong", place, 4, number)
        self.call_in(window, "user32.dll", "SetSysColors", 1, memory, memory + 4)
        self.call_in(window, "kernel32.dll", "GlobalFree", memory)

    # Session and pictures ---------------------------------------------------------------------------------

    def guard_session(self):
        """From now on refuses the end of the session, so that it can be asked for in a test."""
        self.driver.call("guard")

    def session_endings(self):
        """How often the end of the session was asked for."""
        return self.driver.number("endings")

    def pixels(self, area):
        """{(x, y): (red, green, blue)} of a rectangle on the screen, counted from its corner."""
        place = "%dx%d+%d+%d" % (area.width, area.height, area.left, area.top)
        command = ["import", "-display", self.display, "-window", "root", "-crop", place, "+repage", "-depth", "8",
                   "rgb:-"]
        raw = subprocess.run(command, check=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE).stdout
        return {(n // 3 % area.width, n // 3 // area.width): tuple(raw[n:n + 3]) for n in range(0, len(raw), 3)}

    def picture(self, path, window=None):
        """Leaves a PNG of the screen or of a window with its frame, once it stands still."""
        path = pathlib.Path(path)
        path.parent.mkdir(parents=True, exist_ok=True)
        command = ["import", "-display", self.display, "-window", "root",
                   "-define", "png:exclude-chunks=date,time"]
        if window is not None:
            place = self.window(window).place
            area = "%dx%d+%d+%d" % (place.width, place.height, place.left, place.top)
            command += ["-crop", area, "+repage"]

        def take():
            subprocess.run(command + ["PNG:" + str(path)], check=True, stdin=subprocess.DEVNULL)
            return path.read_bytes()

        before = take()
        for _ in range(STILL_ATTEMPTS):
            time.sleep(0.1)
            now = take()
            if now == before:
                break
            before = now
