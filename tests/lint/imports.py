"""Whether a built Moorlink.exe can start on the oldest system and is as small and closed as it should be, and
its language libraries too.

    imports.py [Moorlink.exe or library]...

Prints one line per fault; the exit code tells whether there was one. `imports_allowed.txt` lists the entries
that the program may import statically. A name goes in there only after a look at what the oldest system's
library exports; anything newer is bound by name at its first call.
"""

import pathlib
import sys

import pefile

HERE = pathlib.Path(__file__).resolve().parent
PROGRAM = HERE.parent.parent / "out" / "windows" / "program" / "Moorlink.exe"
LONGEST = 512000
OLDEST_SUBSYSTEM = (4, 0)
LIBRARY_IMPORTS = {
    "KERNEL32.DLL": {"GetProcessHeap", "HeapAlloc", "HeapFree"},
    "OLEAUT32.DLL": {"SafeArrayCreateVector", "SysAllocStringLen"},
}
"""What a language library may import: memory, and the texts that it hands out."""
RELOCATIONS = pefile.DIRECTORY_ENTRY["IMAGE_DIRECTORY_ENTRY_BASERELOC"]


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
    for library in getattr(pefile.PE(str(program)), "DIRECTORY_ENTRY_IMPORT", []):
        for entry in library.imports:
            yield library.dll.decode("ascii").upper(), entry.name.decode("ascii") if entry.name else str(entry.ordinal)


def import_faults(program, allowed):
    found = list(imports(program))
    if not found:
        yield "no imports could be read"
    for library, entry in found:
        if library not in allowed:
            yield "imports from %s: %s" % (library, entry)
        elif entry not in allowed[library]:
            yield "imports %s from %s, which is not on the list" % (entry, library)


def protection_faults(image):
    """What keeps an attacker's bytes from being run, or the image from lying where nobody can foresee it."""
    characteristics = image.OPTIONAL_HEADER
    if not characteristics.IMAGE_DLLCHARACTERISTICS_NX_COMPAT:
        yield "lets its data be run"
    if not characteristics.IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE:
        yield "lies at a fixed address"
    if image.FILE_HEADER.IMAGE_FILE_RELOCS_STRIPPED or not characteristics.DATA_DIRECTORY[RELOCATIONS].Size:
        yield "can't be moved from its address"
    for section in image.sections:
        if section.IMAGE_SCN_MEM_EXECUTE and section.IMAGE_SCN_MEM_WRITE:
            yield "section %s can be written and run" % section.Name.rstrip(b"\0").decode("ascii")


def faults(program):
    yield from import_faults(program, allowed_imports())
    image = pefile.PE(str(program), fast_load=True)
    yield from protection_faults(image)
    size = program.stat().st_size
    if size > LONGEST:
        yield "has %d bytes, more than %d" % (size, LONGEST)
    if image.FILE_HEADER.TimeDateStamp != 0:
        yield "bears the time of its build, so that no two builds are the same"
    subsystem = image.OPTIONAL_HEADER.MajorSubsystemVersion, image.OPTIONAL_HEADER.MinorSubsystemVersion
    if subsystem != OLDEST_SUBSYSTEM:
        yield "asks for version %d.%d of the system" % subsystem


def library_faults(library):
    yield from import_faults(library, LIBRARY_IMPORTS)
    yield from protection_faults(pefile.PE(str(library), fast_load=True))


def main():
    code = 0
    for path in map(pathlib.Path, sys.argv[1:] or [PROGRAM]):
        found = list(library_faults(path) if path.suffix == ".loc" else faults(path))
        print("\n".join("%s %s" % (path.name, fault) for fault in found) or "%s: as it should be" % path.name)
        code = 1 if found else code
    return code


if __name__ == "__main__":
    sys.exit(main())
