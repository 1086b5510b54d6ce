"""Starts a screen that nobody sees, a Windows of its own and the driver in it, and ends them all."""

import os
import pathlib
import shutil
import signal
import subprocess
import tempfile

from driver_pipe import Driver
from waiting import PATIENCE, wait_until
import windows_registry

HERE = pathlib.Path(__file__).resolve().parent
OUT = HERE.parent.parent / "out"
WINE_ROOT = HERE / "wine_root.sh"
CACHE = pathlib.Path(os.environ.get("KESTRELMOOR_CACHE") or pathlib.Path.home() / ".cache" / "kestrelmoor")


class NoWine(Exception):
    """No Wine for 32-bit programs can be had on this computer; the text names the remedy."""


def wine_kind():
    """"root" or "host", made ready for use. Raises NoWine."""
    made = subprocess.run([str(WINE_ROOT), "make"], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    if made.returncode == 77:
        raise NoWine(made.stderr.strip().splitlines()[-1])
    if made.returncode != 0:
        raise RuntimeError("the Wine root could not be made:\n" + made.stderr)
    return made.stdout.strip()


class Process:
    """A program that the desktop started; `variables` are those that it was given."""

    def __init__(self, desktop, pid, output, variables):
        self.desktop = desktop
        self.pid = pid
        self.variables = variables
        self._output = output

    def exit_code(self):
        """None while it runs."""
        return self.desktop.driver.number("wait", self.pid, 0)

    def wait_exit(self, timeout=PATIENCE):
        code = self.desktop.driver.number("wait", self.pid, int(timeout * 1000))
        if code is None:
            raise TimeoutError("the program still runs after %g seconds" % timeout)
        return code

    def output(self):
        """What it has written so far to its standard output and error, as text."""
        return self._output.read_text(encoding="utf-8", errors="replace")

    def end(self):
        self.desktop.driver.call("end", self.pid)


class WineDesktop:
    """A context manager; everything that it starts is ended with it, and its folders are removed.

    dpi         dots per inch: 96, 120, 144 or 192
    size        of the screen, in pixels
    registry    {"HKCU\\\\Software\\\\...": {name: text, number, bytes or (type, bytes)}}, set at the start
    dlls        {name: host path}: put into the system folder and used in place of Wine's own
    variables   environment of every program
    folders     {name: host path}: more folders that programs see, beside `out` and `work`
    locale      "de_DE": the language of Windows and of its boxes; without it English
    """

    def __init__(self, dpi=96, size=(1280, 960), registry=None, dlls=None, variables=None, folders=None,
                 locale=None):
        self.dpi = dpi
        self.size = size
        self.registry = registry or {}
        self.dlls = dlls or {}
        self.variables = variables or {}
        self.folders = {"out": OUT, **(folders or {})}
        self.locale = locale
        self.driver = None
        self._screen = None
        self._base = None
        self._programs = []

    # Life -------------------------------------------------------------------------------------------------

    def __enter__(self):
        self._kind = wine_kind()
        self._base = pathlib.Path(tempfile.mkdtemp(prefix="kestrelmoor-desktop-"))
        try:
            self.work = self._base / "work"
            self.work.mkdir()
            self._outputs = self._base / "outputs"
            self._outputs.mkdir()
            self.folders.update(work=self.work, outputs=self._outputs)
            self._start_screen()
            self._prepare_prefix()
            self._start_driver()
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        if self.driver is not None:
            self.driver.close()
        if self._screen is not None:
            self._screen.terminate()
            self._screen.wait()
        if self._base is not None:
            shutil.rmtree(self._base, ignore_errors=True)
        self.driver = self._screen = self._base = None

    def _start_screen(self):
        read_end, write_end = os.pipe()
        self._screen = subprocess.Popen(
            ["setpriv", "--pdeathsig", "TERM", "Xvfb", "-displayfd", str(write_end), "-nolisten", "tcp",
             "-screen", "0", "%dx%dx24" % self.size],
            pass_fds=[write_end], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        os.close(write_end)
        with os.fdopen(read_end) as answer:
            number = answer.readline().strip()
        if not number:
            raise RuntimeError("Xvfb does not start")
        self.display = ":" + number

    def _prepare_prefix(self):
        """Writes what differs from a fresh prefix into the folder that lies over it."""
        self._changes = self._base / "prefix"
        system = self._changes / "drive_c" / "windows" / "system32"
        system.mkdir(parents=True)
        for name, path in self.dlls.items():
            shutil.copyfile(path, system / name)
        for name in ("user.reg", "system.reg"):
            shutil.copyfile(CACHE / "wine-prefix" / name, self._changes / name)
        # Wine's own desktop in one window of the screen draws frames and moves the focus without a window
        # manager's help.
        windows_registry.add_to_files(self._changes, {
            "HKCU\\Software\\Wine\\Explorer": {"Desktop": "Tests"},
            "HKCU\\Software\\Wine\\Explorer\\Desktops": {"Tests": "%dx%d" % self.size},
            "HKCU\\Control Panel\\Desktop": {"LogPixels": self.dpi},
            "HKCU\\Software\\Wine\\Fonts": {"LogPixels": self.dpi},
            **self.registry,
        })

    def _start_driver(self):
        overrides = "mscoree,mshtml=;winemenubuilder.exe="
        for name in self.dlls:
            overrides += ";%s=n" % name.removesuffix(".dll")
        environment = {
            "HOME": str(pathlib.Path.home()), "PATH": os.environ["PATH"], "KESTRELMOOR_CACHE": str(CACHE),
            "LANG": "C.UTF-8", "DISPLAY": self.display, "WINEDLLOVERRIDES": overrides, **self.variables,
        }
        signal = "KILL" if self._kind == "root" else "TERM"
        command = ["setpriv", "--pdeathsig", signal, str(WINE_ROOT), "run"]
        for name, path in self.folders.items():
            command += ["--bind", "%s:%s" % (path, name)]
        driver = self.windows_path(OUT / "desktop" / "driver.exe")
        command += ["--prefix", str(self._changes), "--", *self._with_locale(), "wine", driver]
        self.driver = Driver(command, environment)

    def _with_locale(self):
        """The head of a command that gives Wine the locale, made for it here."""
        if self.locale is None:
            return []
        name = self.locale + ".UTF-8"
        subprocess.run(["localedef", "-i", self.locale, "-f", "UTF-8", self.work / name], check=True)
        folder = self.windows_path(self.work).removeprefix("Z:").replace("\\", "/")
        return ["env", "LC_ALL=" + name, "LOCPATH=" + folder]

    def stop(self):
        """Has Wine's server write the registry into its files and end all programs, the driver too: nothing can be
        asked of the desktop any more."""
        servers = [process for process in self.processes() if "wineserver" in (process / "exe").readlink().name]
        for server in servers:
            os.kill(int(server.name), signal.SIGTERM)
        wait_until(lambda: not any(server.exists() for server in servers), "the end of Wine's server")
        self._programs.clear()

    # Programs ---------------------------------------------------------------------------------------------

    def processes(self):
        """This computer's records (/proc/...) of all processes on the desktop's screen, Wine's own too."""
        mark = ("DISPLAY=%s\0" % self.display).encode()
        found = []
        for process in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                if mark in (process / "environ").read_bytes():
                    found.append(process)
            except OSError:
                continue  # it has ended, or is none of ours
        return found

    def windows_path(self, path):
        """The path under which Windows programs see a file or folder of `folders`."""
        path = pathlib.Path(path).resolve()
        if self._kind == "root":
            for name, folder in self.folders.items():
                folder = pathlib.Path(folder).resolve()
                if path == folder or folder in path.parents:
                    path = pathlib.Path("/mnt") / name / path.relative_to(folder)
                    break
            else:
                raise ValueError("programs do not see %s" % path)
        return "Z:" + str(path).replace("/", "\\")

    def prefix_file(self, path):
        """Where the host finds a file that a program wrote to its drive C:, for example "users/x.log"."""
        return self._changes / "drive_c" / path

    def start(self, program, args=(), cwd="", variables=None, as_user=False):
        """Starts a program. `program` and `cwd` are host paths, or Windows paths with a drive; `args` is a
        list, or the rest of the command line as it is; `as_user`: without the rights of an administrator, as
        others are run."""
        tail = args if isinstance(args, str) else subprocess.list2cmdline(args)
        line = ('"%s" %s' % (self._given_path(program), tail)).rstrip()
        folder = self._given_path(cwd) if cwd else ""
        extra = ["%s=%s" % pair for pair in (variables or {}).items()]
        output = self._outputs / ("%d.txt" % len(list(self._outputs.iterdir())))
        command = "start_as_user" if as_user else "start"
        pid = self.driver.number(command, line, folder, self.windows_path(output), *extra)
        program = Process(self, pid, output, {**self.variables, **(variables or {})})
        self._programs.append(program)
        return program

    def end_programs(self):
        """Ends what was started and still runs."""
        for program in self._programs:
            if program.exit_code() is None:
                program.end()
        self._programs.clear()

    def _given_path(self, path):
        text = str(path)
        return text if text[1:2] == ":" else self.windows_path(text)
