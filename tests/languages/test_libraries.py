"""The finished libraries, and how the tool fills one."""

import pathlib
import re
import subprocess
import unittest

import support
import text_area

CAPACITY = 32768


def empty_area(capacity=CAPACITY, layout=0):
    head = text_area.MAGIC + capacity.to_bytes(4, "little") + layout.to_bytes(4, "little")
    return head.ljust(capacity, b"\0")


class Filling(unittest.TestCase):
    def setUp(self):
        self.folder = support.Folder(self)
        self.library = self.folder.path / "empty.loc"
        self.out = self.folder.path / "1033.loc"

    def fill(self, library=None, po=support.ENGLISH):
        if library is not None:
            self.library.write_bytes(library)
        return support.run_tool("--library", self.library, "--po", po, "--out", self.out)

    def assert_refused(self, library, reason):
        code, errors = self.fill(library)
        self.assertEqual(code, 1)
        self.assertEqual(errors.partition(": ")[0], str(self.library))
        self.assertIn(reason, errors)
        self.assertFalse(self.out.exists())

    def test_only_the_area_changes(self):
        self.assertEqual(self.fill(b"ahead" + empty_area() + b"behind"), (0, ""))
        filled = self.out.read_bytes()
        self.assertEqual(len(filled), len("ahead") + CAPACITY + len("behind"))
        self.assertTrue(filled.startswith(b"ahead" + text_area.MAGIC))
        self.assertTrue(filled.endswith(b"behind"))
        self.assertIn("Cancel".encode("utf-16-le"), filled)

    def test_a_filled_library_can_be_filled_anew(self):
        self.folder.write(('"Cancel"\nmsgstr ""', '"Cancel"\nmsgstr "Zur\u00fcck \U0001f600"'))
        self.fill(empty_area(), self.folder.po)
        first = self.out.read_bytes()
        self.assertIn("Zur\u00fcck \U0001f600".encode("utf-16-le"), first)
        self.fill(first)
        self.assertNotIn("Zur\u00fcck".encode("utf-16-le"), self.out.read_bytes())
        again = self.out.read_bytes()
        self.fill(empty_area())
        self.assertEqual(self.out.read_bytes(), again)

    def test_a_file_without_area_is_refused(self):
        self.assert_refused(b"MZ no library", "no language library of Kestrelmoor")

    def test_two_areas_are_refused(self):
        self.assert_refused(empty_area() * 2, "more than one text area")

    def test_an_area_that_is_cut_off_is_refused(self):
        self.assert_refused(empty_area()[:-1], "cut off")
        self.assert_refused(empty_area()[:30], "cut off")

    def test_another_layout_is_refused(self):
        self.assert_refused(empty_area(layout=2), "layout 2")

    def test_texts_that_are_too_large_are_refused(self):
        self.assert_refused(empty_area(2000), "room for 2000: shorten the texts")

    def test_a_library_that_is_not_there_is_refused(self):
        code, errors = self.fill()
        self.assertEqual((code, errors), (1, f"{self.library}: No such file or directory\n"))

    def test_an_out_folder_that_is_not_there_is_refused(self):
        self.out = self.folder.path / "none" / "1033.loc"
        code, errors = self.fill(empty_area())
        self.assertEqual((code, errors), (1, f"{self.out}: No such file or directory\n"))

    def test_a_refused_translation_leaves_the_old_library(self):
        self.fill(empty_area())
        old = self.out.read_bytes()
        self.folder.write(('"Cancel"\nmsgstr ""', '"Cancel"\nmsgstr "100%"'))
        self.assertEqual(self.fill(empty_area(), self.folder.po)[0], 1)
        self.assertEqual(self.out.read_bytes(), old)
        self.assertEqual(
            sorted(path.name for path in self.folder.path.iterdir()), ["1033.loc", "empty.loc", "xx.po"]
        )

    def test_library_and_out_go_together(self):
        code, errors = support.run_tool("--library", self.library, "--po", support.ENGLISH)
        self.assertEqual(code, 2)
        self.assertIn("--library and --out go together", errors)


class WindowsLibrary(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = support.program_folder("KESTRELMOOR_WINDOWS_PROGRAM", "out/windows/program", "out/program")
        cls.path = folder / "default.loc"
        cls.dump = subprocess.run(
            ["i686-w64-mingw32-objdump", "-p", cls.path], check=True, capture_output=True, text=True
        ).stdout

    def test_exports_the_two_functions_without_decoration(self):
        table = self.dump.partition("[Ordinal/Name Pointer] Table")[2].partition("\n\n")[0]
        self.assertEqual(
            re.findall(r"^\s*\[\s*\d+\] (\S+)$", table, re.M), ["DllCanUnloadNow", "DllGetClassObject"]
        )

    def test_imports_from_two_libraries_only(self):
        names = {name.upper() for name in re.findall(r"DLL Name: (\S+)", self.dump)}
        self.assertEqual(names, {"KERNEL32.DLL", "OLEAUT32.DLL"})

    def test_runs_on_the_oldest_system(self):
        self.assertRegex(self.dump, r"MajorSubsystemVersion\s+4\n")
        self.assertRegex(self.dump, r"MinorSubsystemVersion\s+0\n")
        self.assertIn("(Windows GUI)", self.dump)

    def test_can_be_loaded_anywhere(self):
        self.assertNotRegex(self.dump, "relocations stripped")
        self.assertRegex(self.dump, r"Base Relocation Directory \[\.reloc\]")

    def test_holds_the_same_texts_as_the_native_one(self):
        native = support.program_folder("KESTRELMOOR_NATIVE_PROGRAM", "out/native/program")
        areas = []
        for path in (self.path, native / "default.loc"):
            library = pathlib.Path(path).read_bytes()
            offset, capacity = text_area.find(library)
            areas.append(library[offset : offset + capacity])
        self.assertEqual(areas[0], areas[1])


class EnglishTexts(unittest.TestCase):
    def test_every_entry_tells_the_translator_where_it_stands(self):
        blocks = support.ENGLISH.read_text(encoding="utf-8").strip().split("\n\n")[1:]
        self.assertGreater(len(blocks), 60)
        for block in blocks:
            self.assertTrue(block.startswith("#. "), block)


if __name__ == "__main__":
    unittest.main()
