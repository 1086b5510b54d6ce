"""Whether a built Moorlink.exe can start on the oldest system and is as small and closed as it should be.

    imports.py [Moorlink.exe]

Prints one line per fault; the exit code tells whether there was one. `imports_allowed.txt` lists the entries
that the program may import statically. A name goes in there only after a look at what the oldest system's
library exports; anything newer is bound by name at its first call.
"""

import pathlib
import re
import struct
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
PROGRAM = HERE.parent.parent / "out" / "windows" / "program" / "Moorlink.exe"
LONGEST = 512000
OLDEST_SUBSYSTEM = (4, 0)
EXECUTE, WRITE = 0x20000000, 0x80000000


def allowed_imports():
    """{library: entries}, from paragraphs that begin with the library's name and a colon."""
    allowed = {}
    for word in (HERE / "imports_allowed.txt").read_text(encoding="ascii").split():
        if word.endswith(":"):
            entries = allowed.setdefault(word[:-1], set())
        else:
            entries.add(word)
    return allowed


def imports(program):
    """(library, entry) for every static import; an import by number has that number as its entry."""
    text = subprocess.run(["i686-w64-mingw32-objdump", "-p", str(program)], check=True, capture_output=True,
                          text=True).stdout
    library = None
    for line in text.splitlines():
        named = re.match(r"\s*DLL Name: (\S+)", line)
        entry = re.match(r"\t[0-9a-f]+\s+(\d+)\s+(\S+)", line)
        if named:
            library = named[1].upper()
        elif entry and library:
            yield library, entry[2]
        elif line and not line[0].isspace():
            library = None


def headers(image):
    """(time of the build, version of the subsystem, [(name, characteristics) of each section])"""
    start, = struct.unpack_from("<I", image, 0x3C)
    count, = struct.unpack_from("<H", image, start + 6)
    time, = struct.unpack_from("<I", image, start + 8)
    optional_size, = struct.unpack_from("<H", image, start + 20)
    optional = start + 24
    sections = []
    for place in range(optional + optional_size, optional + optional_size + 40 * count, 40):
        name = image[place:place + 8].rstrip(b"\0").decode("ascii")
        sections.append((name, *struct.unpack_from("<I", image, place + 36)))
    return time, struct.unpack_from("<HH", image, optional + 48), sections


def faults(program):
    allowed = allowed_imports()
    found = list(imports(program))
    if not found:
        yield "no imports could be read"
    for library, entry in found:
        if library not in allowed:
            yield "imports from %s: %s" % (library, entry)
        elif entry not in allowed[library]:
            yield "imports %s from %s, which is not on the list" % (entry, library)
    image = program.read_bytes()
    if len(image) > LONGEST:
        yield "has %d bytes, more than %d" % (len(image), LONGEST)
    time, subsystem, sections = headers(image)
    if time != 0:
        yield "bears the time of its build, so that no two builds are the same"
    if subsystem != OLDEST_SUBSYSTEM:
        yield "asks for version %d.%d of the system" % subsystem
    for name, characteristics in sections:
        if characteristics & EXECUTE and characteristics & WRITE:
            yield "section %s can be written and run" % name


def main():
    program = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else PROGRAM
    found = ["%s %s" % (program.name, fault) for fault in faults(program)]
    print("\n".join(found) if found else "%s: %d bytes, imports as allowed" % (program.name, program.stat().st_size))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
