"""The libraries of the system that the program loads by name: no others than those told here."""

import re
import unittest

from imports import PROGRAM, imports
from sources import ROOT, relative, tracked

FROM_THE_SYSTEM_FOLDER = {
    "kernel32.dll", "user32.dll",  # for entries that the oldest system lacks
    "imm32.dll", "netapi32.dll", "netmsg.dll", "ole32.dll", "oleacc.dll", "oleaut32.dll", "shell32.dll", "uxtheme.dll",
    "version.dll",
}
BY_PLAIN_NAME = {"comctl32.dll"}
ASKED_FOR_BY_THE_COMPILER = {"libgcc_s_dw2-1.dll"}
"""The start-up code looks for the compiler's own library among those that are loaded already."""

NAME = re.compile(r'"([\w.-]+\.(?:dll|drv|ocx))"', re.IGNORECASE)
LOAD = re.compile(r"\bLoadLibrary(?:Ex)?[AW]?\(\s*([^)]*)")
LOADERS = {
    "src/platform/windows/bound_library.cpp": "Wide(path",
    "src/platform/windows/modules.cpp": "Wide(path",
    "src/platform/windows/common_controls.cpp": 'L"comctl32.dll"',
}
NARROW = re.compile(rb"[\w.-]+\.dll\0", re.IGNORECASE)
WIDE = re.compile(rb"(?:[\w.-]\0)+\.\0d\0l\0l\0\0\0", re.IGNORECASE)


def program_sources():
    return [path for path in tracked(".cpp", ".h", ".c") if path.is_relative_to(ROOT / "src")
            and "practice" not in relative(path)]


def calls():
    """{file: what it hands to the loader} for each call of the loader's."""
    found = {}
    for path in program_sources():
        for call in LOAD.findall(path.read_text(encoding="utf-8")):
            if "platform/windows/" in relative(path) and not call.startswith("const "):
                found.setdefault(relative(path), []).append(call)
    return found


def names_in(image):
    """Names of libraries that a program holds as texts, in small letters. One unit ahead of a wide one may belong to
    the text before it."""
    told = FROM_THE_SYSTEM_FOLDER | BY_PLAIN_NAME
    wide = {match.decode("utf-16-le").rstrip("\0").lower() for match in WIDE.findall(image)}
    narrow = {match.rstrip(b"\0").decode("ascii").lower() for match in NARROW.findall(image)}
    return {name[1:] if name[1:] in told else name for name in wide} | narrow


class BoundLibraries(unittest.TestCase):
    def test_the_sources_name_no_others(self):
        named = {name.lower() for path in program_sources() for name in NAME.findall(path.read_text(encoding="utf-8"))}
        self.assertEqual(FROM_THE_SYSTEM_FOLDER | BY_PLAIN_NAME, named)

    def test_the_loader_is_called_in_three_places_and_with_a_plain_name_in_one(self):
        self.assertEqual(set(LOADERS), set(calls()))
        for file, found in calls().items():
            self.assertEqual([True], [call.startswith(LOADERS[file]) for call in found], file)

    @unittest.skipUnless(PROGRAM.exists(), "Moorlink.exe has not been built")
    def test_the_program_names_no_others(self):
        imported = {library.lower() for library, _ in imports(PROGRAM)}
        self.assertEqual(FROM_THE_SYSTEM_FOLDER | BY_PLAIN_NAME | ASKED_FOR_BY_THE_COMPILER | imported,
                         names_in(PROGRAM.read_bytes()))


class TheSearch(unittest.TestCase):
    def test_names_are_found_narrow_and_wide(self):
        unknown, told = (name.encode("utf-16-le") for name in ("winhttp.dll\0", "ole32.dll\0"))
        image = b"x\0WS2_32.dll\0\0e\0" + unknown + b"e\0" + told
        self.assertEqual({"ws2_32.dll", "ewinhttp.dll", "ole32.dll"}, names_in(image))


if __name__ == "__main__":
    unittest.main()
