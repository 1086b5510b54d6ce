"""clang-tidy over sources: what it finds.

    clang_tidy.py [SOURCE]...       without a source all that the program and its language libraries are made of

It works on the library's headers for seconds and on a source of ours for a moment. So sources are looked at in
groups, each as one text that includes them; what can't stand behind the others, for a name that both have, makes a
group of its own. A few checks look at the main file alone: they get each source by itself that holds what they are
about.

What was clean is remembered by all that the answer hangs on: every file that was read, the commands, the settings and
the tool's version.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

from sources import ROOT, tracked

SETTINGS = ROOT / ".clang-tidy"
OF_WINDOWS = ROOT / "src" / "platform" / "windows"
CACHE = pathlib.Path(os.environ.get("KESTRELMOOR_CACHE") or pathlib.Path.home() / ".cache" / "kestrelmoor")
MEMBERS = 24
"""So many sources make a group at most."""

OF_THE_MAIN_FILE = ["--checks=-*,misc-unused-alias-decls,misc-unused-using-decls"]
THEIR_MATTER = re.compile(r"\busing\b(?!\s+namespace\b)[^=;]*;|\bnamespace\s+\w+\s*=")
ERROR = re.compile(r"^(.+?):\d+:\d+: (?:fatal )?error: ", re.MULTILINE)


ONLY_THERE = re.compile("_windows[.]c$")
"""Of the language libraries: what the native build has no use for."""

WINDOWS_COMPILER = "i686-w64-mingw32-g++-win32"
SHAPES_OF_WINDOWS = [
    "--checks=-cppcoreguidelines-pro-type-union-access,-cppcoreguidelines-pro-type-const-cast"
]
"""Its records hold unions (VARIANT, STRRET), and some of its functions declare as written to what they only read."""


def sources_to_look_at():
    return [path for path in tracked(".cpp", ".c")
            if path.is_relative_to(ROOT / "src") or path.parent == ROOT / "languages"]


def flags_by_source():
    """What clang is told for each source, but for the names of files."""
    native = flags_of_build("native")
    windows = flags_of_build("windows")
    target = windows_target()
    of_windows = {path: target + words for path, words in windows.items() if is_of_windows(path)}
    return {**native, **of_windows}


def is_of_windows(path):
    return path.is_relative_to(OF_WINDOWS) or ONLY_THERE.search(path.name) is not None


def flags_of_build(preset):
    found = {}
    for entry in json.loads((ROOT / "out" / preset / "compile_commands.json").read_text(encoding="utf-8")):
        if not entry["file"].endswith((".c", ".cpp")):
            continue
        words = shlex.split(entry["command"])[1:]
        del words[words.index("-o"):words.index("-o") + 2]
        words.remove("-c")
        words.remove(entry["file"])
        found[pathlib.Path(entry["file"])] = words
    return found


def windows_target():
    """What has clang compile as the compiler for Windows does: for its system, by its standard library."""
    told = subprocess.run([WINDOWS_COMPILER, "-E", "-x", "c++", "-v", os.devnull],
                          stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, encoding="utf-8", check=True).stderr
    listed = told.partition("#include <...> search starts here:\n")[2].partition("End of search list")[0]
    folders = [str(pathlib.Path(line.strip()).resolve()) for line in listed.splitlines() if "c++" in line]
    return ["--target=i686-w64-mingw32", *(word for folder in folders for word in ("-isystem", folder))]


def groups(flags):
    """[(sources, their flags)]: sources of the same language and flags, near each other, in groups of about the
    same size."""
    found = []
    for kind, words in sorted({(path.suffix, tuple(words)) for path, words in flags.items()}):
        alike = sorted(path for path in flags if (path.suffix, tuple(flags[path])) == (kind, words))
        count = -(-len(alike) // MEMBERS)
        ends = [len(alike) * number // count for number in range(count + 1)]
        found += [(alike[begin:end], words) for begin, end in zip(ends, ends[1:])]
    return found


class Inspector:
    """Looks at sources; what is written on the way goes to `folder`, what was clean is remembered in `cache`."""

    def __init__(self, folder, cache=CACHE / "clang-tidy"):
        self._folder = pathlib.Path(folder)
        self._cache = pathlib.Path(cache)
        self._cache.mkdir(parents=True, exist_ok=True)
        version = subprocess.run(["clang-tidy", "--version"], stdout=subprocess.PIPE, check=True).stdout
        self._tool = [version, SETTINGS.read_bytes(), pathlib.Path(__file__).read_bytes()]

    def look(self, flags, options=()):
        """What is found in {source: its flags}, by the settings and `options`."""
        works = [(self._look_at_group, sources, words, options) for sources, words in groups(flags)]
        works += [
            (self._look_at, [path], words, OF_THE_MAIN_FILE)
            for path, words in sorted(flags.items())
            if THEIR_MATTER.search(path.read_text(encoding="utf-8"))
        ]
        with concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as workers:
            answers = [workers.submit(*work) for work in works]
        return "".join(answer.result() for answer in answers)

    def _look_at_group(self, sources, flags, options):
        if len(sources) == 1:
            return self._look_at(sources, flags, options)
        compiler = ["clang", "-fsyntax-only", "-w", "-ferror-limit=0", *flags, str(self._text_of(sources))]
        tried = subprocess.run(compiler, stderr=subprocess.PIPE, encoding="utf-8")
        if tried.returncode == 0:
            return self._look_at(sources, flags, options)
        broken = set(ERROR.findall(tried.stderr))
        apart = [path for path in sources if str(path) in broken]
        together = [path for path in sources if str(path) not in broken]
        if not apart or not together:
            return "".join(self._look_at([path], flags, options) for path in sources)
        return self._look_at_group(together, flags, options) + self._look_at_group(apart, flags, options)

    def _look_at(self, sources, flags, options):
        text = self._text_of(sources)
        mark = self._cache / self.key(text, sources, flags, options)
        if mark.exists():
            return ""
        command = ["clang-tidy", "--quiet", "--config-file=%s" % SETTINGS, *options, str(text), "--", *flags]
        ended = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, encoding="utf-8")
        found = ended.stdout.strip()
        if ended.returncode == 0 and not found:
            mark.touch()
            return ""
        return (found or ended.stderr) + "\n"

    def _text_of(self, sources):
        """The file that the tool is given: the source, or one that includes all of them."""
        if len(sources) == 1:
            return sources[0]
        lines = ['#include "%s" // NOLINT(bugprone-suspicious-include)\n' % path for path in sources]
        text = self._folder / (hashlib.sha256("".join(lines).encode()).hexdigest() + sources[0].suffix)
        text.write_text("".join(lines), encoding="utf-8")
        return text

    def key(self, text, sources, flags, options):
        """Of everything that the answer hangs on. It holds in another folder, too."""
        compiler = ["clang", "-M", *flags, str(text)]
        listed = subprocess.run(compiler, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, encoding="utf-8")
        read = re.findall(r"(?:\\ |\S)+", listed.stdout.partition(":")[2].replace("\\\n", " "))
        paths = [pathlib.Path(name.replace("\\ ", " ")) for name in read]
        files = [path for path in paths if path != text or path in sources]
        words = [listed.returncode, *map(str, sources), *flags, *options, *map(str, files)]
        told = "\n".join(str(word).replace(str(ROOT), "") for word in words).encode()
        return hashlib.sha256(b"\0".join(
            hashlib.sha256(part).digest() for part in [*self._tool, told, *(path.read_bytes() for path in files)]
        )).hexdigest()


def look(sources):
    flags = flags_by_source()
    with tempfile.TemporaryDirectory() as folder:
        inspector = Inspector(folder)
        return inspector.look({path: flags[path] for path in sources if not is_of_windows(path)}) + inspector.look(
            {path: flags[path] for path in sources if is_of_windows(path)}, SHAPES_OF_WINDOWS)


def main(names):
    found = look([pathlib.Path(name).resolve() for name in names] or sources_to_look_at())
    print(found, end="")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
