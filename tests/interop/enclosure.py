"""A room of its own for one server: network, mounts and processes that nobody else on the computer sees.

Two servers that both want 127.0.0.1:445 live side by side this way, and nothing of them outlasts the room:
its processes, its loopback and its files (all in memory) go when its keeper goes, and the keeper goes when
the pipe to this process is closed, by `close`, by the end of this process or by its death.
"""

import importlib.util
import os
import shutil
import subprocess

PROGRAMS = {
    "unshare": "util-linux",
    "nsenter": "util-linux",
    "ip": "iproute2",
    "samba": "samba-ad-dc",
    "smbd": "samba",
    "samba-tool": "samba-ad-provision",
    "pdbedit": "samba",
    "smbpasswd": "samba-common-bin",
    "net": "samba-common-bin",
    "ldbmodify": "ldb-tools",
    "smbclient": "smbclient",
}

_NEW_ROOM = ["unshare", "--net", "--mount", "--pid", "--fork", "--mount-proc", "--kill-child=KILL"]


def obstacle():
    """Why no enclosure can be had here, as one line with the remedy; None where all is well."""
    missing = {package for program, package in PROGRAMS.items() if shutil.which(program) is None}
    if importlib.util.find_spec("samba") is None:
        missing.add("python3-samba")
    if missing:
        return "packages are missing; the remedy: apt-get install " + " ".join(sorted(missing))
    if os.geteuid() != 0:
        return "servers of one's own need root rights; the remedy: run this as root"
    trial = [*_NEW_ROOM, "ip", "link", "set", "lo", "up"]
    if subprocess.run(trial, stdin=subprocess.DEVNULL, capture_output=True, check=False).returncode != 0:
        return "no namespaces can be made here; the remedy: run in a container with the capability SYS_ADMIN"
    return None


class Enclosure:
    """`run` and `spawn` start programs in the room; `folders` are empty there, in memory only."""

    def __init__(self, folders):
        mounts = "".join(f"mount -t tmpfs -o mode=755 none {folder}; " for folder in folders)
        self._spawned = []
        script = f"set -e; ip link set lo up; {mounts}echo ready; exec cat >/dev/null"
        self._keeper = subprocess.Popen(
            [*_NEW_ROOM, "sh", "-c", script],
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            start_new_session=True,
        )
        with self._keeper.stdout as first_words:
            ready = first_words.readline() == b"ready\n"
        if not ready:
            self.close()
            raise RuntimeError("the enclosure could not be made")

    def _enter(self, argv, network_only):
        keeper = str(self._keeper.pid)
        rooms = [f"--net=/proc/{keeper}/ns/net"]
        if not network_only:
            rooms += [f"--mount=/proc/{keeper}/ns/mnt", f"--pid=/proc/{keeper}/ns/pid_for_children"]
        return ["nsenter", *rooms, "--", *argv]

    def run(self, argv, text="", network_only=False, timeout=60, variables=None):
        """Runs a program to its end with `text` as its input. With `network_only` it is a caller from
        outside: it sees the room's loopback, and the computer's own files."""
        environment = {**os.environ, "LC_ALL": "C.UTF-8", **(variables or {})}
        return subprocess.run(
            self._enter(argv, network_only),
            input=text,
            capture_output=True,
            encoding="utf-8",
            env=environment,
            cwd="/",
            timeout=timeout,
            check=False,
        )

    def spawn(self, argv):
        """Starts a program that lives as long as the room, at the longest."""
        program = subprocess.Popen(
            self._enter(argv, network_only=False),
            stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
            cwd="/",
            start_new_session=True,
        )
        self._spawned.append(program)
        return program

    def open(self, argv):
        """Starts a caller from outside with pipes for its input and output; whoever asks for it ends it."""
        return subprocess.Popen(
            self._enter(argv, network_only=True),
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            encoding="utf-8",
            cwd="/",
            start_new_session=True,
        )

    def close(self):
        self._keeper.stdin.close()
        try:
            self._keeper.wait(timeout=10)
        except subprocess.TimeoutExpired:
            self._keeper.kill()
            self._keeper.wait()
        for program in self._spawned:
            program.wait()
