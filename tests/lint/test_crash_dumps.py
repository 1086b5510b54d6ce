"""What becomes of a fault is left to the system: the program writes no dump of its memory and forbids none."""

import re
import unittest

from imports import PROGRAM
from sources import ROOT, relative, tracked

CALL = re.compile(rb"MiniDump\w*|Wer[A-Z]\w+|ReportFault\w*|AddERExcludedApplication\w*|RtlReportException\w*")
"""Calls of the system that write a dump, ask for one, or keep one from being written."""
WIDE = re.compile(rb"(?:\w\0)+")
HANDLER = re.compile(r"\w*SetUnhandledExceptionFilter\b|\w*AddVectored\w+|\bsignal\(|\b__except\b|\b_set_se_translator\b")
"""Ways to take a fault ahead of the system."""
ERROR_MODE = re.compile(r"\bSetErrorMode\(([^()]*)\)")
MODES = {
    "src/platform/windows/entry.cpp": ["SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX"],
    "src/platform/windows/shell_execution.cpp": ["0", "mOwn"],
}
"""Where an error mode is set. None has SEM_NOGPFAULTERRORBOX, which keeps the system from looking at a fault."""


def calls_in(image):
    """Names in a program, imported or looked up, narrow or wide."""
    texts = [image, *(text.replace(b"\0", b"") for text in WIDE.findall(image))]
    return {name.decode("ascii") for text in texts for name in CALL.findall(text)}


def found_in_sources(pattern):
    """{file: what fits there}"""
    found = {}
    for path in tracked(".cpp", ".h", ".c"):
        if path.is_relative_to(ROOT / "src") and (here := pattern.findall(path.read_text(encoding="utf-8"))):
            found[relative(path)] = here
    return found


class CrashDumps(unittest.TestCase):
    @unittest.skipUnless(PROGRAM.exists(), "Moorlink.exe has not been built")
    def test_the_program_names_no_call_that_writes_or_forbids_one(self):
        self.assertEqual(set(), calls_in(PROGRAM.read_bytes()))

    def test_no_error_mode_keeps_the_system_from_a_fault(self):
        self.assertEqual(MODES, found_in_sources(ERROR_MODE))

    def test_no_handler_of_ours_comes_ahead_of_the_systems(self):
        self.assertEqual({}, found_in_sources(HANDLER))


class TheSearch(unittest.TestCase):
    def test_names_are_found_narrow_and_wide(self):
        image = b"\0MiniDumpWriteDump\0x\0" + "WerSetFlags\0".encode("utf-16-le") + b"Were\0Answer\0"
        self.assertEqual({"MiniDumpWriteDump", "WerSetFlags"}, calls_in(image))

    def test_handlers_are_found(self):
        for line in ("::SetUnhandledExceptionFilter(f)", 'Find("AddVectoredExceptionHandler")', "signal(SIGSEGV, f)"):
            self.assertTrue(HANDLER.search(line), line)


if __name__ == "__main__":
    unittest.main()
