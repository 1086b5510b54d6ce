"""Looks for passwords on a desktop from outside: in windows, processes, files and the registry."""

import re

from password_window import CONFIRM, NEW, OLD, PROGRAM

ROWS = ("listbox", "combobox")
BLOCK = 32768
PATIENCE = 60.0
HEX_DATA = re.compile(rb"hex(?:\([0-9a-f]+\))?:([0-9a-f,]*)")
"""The data of a value in an exported registry and in the files that Wine keeps it in."""


def _read(path):
    """Nothing of what has gone meanwhile."""
    try:
        return path.read_bytes()
    except (FileNotFoundError, ProcessLookupError):
        return b""


def _changed(path):
    try:
        return path.stat().st_ctime
    except FileNotFoundError:
        return 0.0


class Traces:
    """A password counts as found where any run of half its length stands, in small letters or capitals, in UTF-8 or
    in UTF-16. Each search gives the places."""

    def __init__(self, desktop, *passwords):
        self.desktop = desktop
        self._needles = set()
        for password in passwords:
            half = len(password) // 2
            for part in (password[at:at + half] for at in range(len(password) - half + 1)):
                self._needles |= {part.lower().encode("utf-8"), part.lower().encode("utf-16-le")}

    def holds(self, data):
        """Whether a text, or bytes, hold a password."""
        if isinstance(data, str):
            data = data.encode("utf-8", "surrogatepass")
        small = data.lower()
        return any(needle in small for needle in self._needles)

    # Windows ----------------------------------------------------------------------------------------------

    def in_windows(self):
        """Of all programs: titles, texts of all controls, rows of lists. Left out are the three boxes for passwords, as
        long as they are masked: Wine hands out what Windows does not."""
        found = set()
        for window in self.desktop.windows():
            if self.holds(window.title):
                found.add("title of %s" % window.class_name)
            for control in self.desktop.children(window):
                kept = window.class_name == "frmPass" and control.id in (OLD, NEW, CONFIRM) and control.password
                if not kept and self.holds(control.text):
                    found.add("text of %s %d" % (window.class_name, control.id))
                if control.class_name.lower() in ROWS and any(
                        self.holds(row.text) for row in self.desktop.rows(control)):
                    found.add("row of %s %d" % (window.class_name, control.id))
        return found

    # Processes --------------------------------------------------------------------------------------------

    def in_processes(self):
        """Command lines and environments as this computer knows them, of every process on the desktop's screen."""
        found = set()
        for process in self.desktop.processes():
            name = self._name(process)
            for what in ("cmdline", "environ"):
                if self.holds(_read(process / what)):
                    found.add("%s of %s" % (what, name))
        return found

    def in_blocks(self, window):
        """The command line and the environment as the program that owns a window has them now."""
        blocks = (("GetCommandLineW", "\0"), ("GetEnvironmentStringsW", "\0\0"))
        return {function for function, end in blocks if self.holds(self._block(window, function).partition(end)[0])}

    def _block(self, window, function):
        """What stands, and what follows, where a function of the system's tells it in the program that owns a
        window."""
        address = self.desktop.call_in(window, "kernel32.dll", function) & 0xFFFFFFFF
        with open(self._program() / "mem", "rb", buffering=0) as memory:
            memory.seek(address)
            return memory.read(BLOCK).decode("utf-16-le", "replace")

    def _program(self):
        found = [process for process in self.desktop.processes() if PROGRAM.name in self._command(process)]
        if len(found) != 1:
            raise LookupError("%s runs %d times" % (PROGRAM.name, len(found)))
        return found[0]

    def _command(self, process):
        return _read(process / "cmdline").decode("utf-8", "replace")

    def _name(self, process):
        return self._command(process).partition("\0")[0].replace("\\", "/").rpartition("/")[2]

    # What stays ------------------------------------------------------------------------------------------

    def in_files(self, since, but=()):
        """Names and content of the files that were made or changed since a moment, in the folders that programs can
        write to and on drive C:."""
        found = set()
        for folder in (self.desktop.work, self.desktop.folders["outputs"], self.desktop.prefix_file("")):
            for path in folder.rglob("*"):
                if path in but or path.is_symlink():
                    continue
                if self.holds(path.name):
                    found.add("name %s" % path.name)
                if path.is_file() and _changed(path) >= since and self.holds(_read(path)):
                    found.add("file %s" % path.name)
        return found

    def in_registry(self):
        """Of all that the registry holds, as the registry's own editor exports it."""
        file = self.desktop.work / "whole.reg"
        self.desktop.start("C:\\windows\\regedit.exe", ["/E", self.desktop.windows_path(file)]).wait_exit(PATIENCE)
        exported = file.read_text("utf-16").encode("utf-8")
        file.unlink()
        return self._in_export("registry", exported)

    def in_hives(self):
        """Of the files in which Wine keeps the registry, which it has written when the desktop has been stopped."""
        files = [self.desktop.prefix_file("..") / name for name in ("user.reg", "system.reg", "userdef.reg")]
        return set().union(*(self._in_export(file.name, file.read_bytes()) for file in files))

    def _in_export(self, name, exported):
        """Of texts as they stand and of data that is given in hexadecimal."""
        exported = re.sub(rb"\\\r?\n\s*", b"", exported)
        data = (bytes.fromhex(text.replace(b",", b"").decode()) for text in HEX_DATA.findall(exported))
        found = {name} if self.holds(exported) else set()
        return found | {"data in " + name for block in data if self.holds(block)}
