"""clang-tidy finds nothing in the program and its language libraries; and it would, however the sources are put
together."""

import pathlib
import re
import tempfile
import unittest

import clang_tidy

CLEAN = "namespace kestrelmoor {\nint %s() { return 1; }\n} // namespace kestrelmoor\n"
FAULTY = "int* %s() { return 0; }\n"
FAULT = "%s:1:%d: error: use nullptr [modernize-use-nullptr"
HIDDEN = "namespace {\nint hidden = 1;\n}\nint* %s() { return hidden == 0 ? nullptr : &hidden; }\n"
USING = "namespace far {\nint away();\n}\nusing far::away;\n"


class Sources(unittest.TestCase):
    maxDiff = None

    def test_nothing_is_found(self):
        self.assertEqual("", clang_tidy.look(clang_tidy.sources_to_look_at()))

    def test_none_is_left_out(self):
        looked_at = clang_tidy.sources_to_look_at()
        for folder in ("src", "languages"):
            self.assertEqual([], [path for path in sorted((clang_tidy.ROOT / folder).rglob("*.c*"))
                                  if path.suffix in (".c", ".cpp") and path not in looked_at])
        self.assertEqual(set(), set(looked_at) - set(clang_tidy.flags_by_source()))

    def test_each_exception_on_the_spot_names_its_check_and_reason(self):
        text = "\n".join(path.read_text(encoding="utf-8") for path in clang_tidy.tracked(".cpp", ".h", ".c")
                         if path.relative_to(clang_tidy.ROOT).parts[0] in ("src", "languages"))
        told = re.findall(r"NOLINT(?:NEXTLINE)?\([a-z0-9.-]+\): \w", text)
        self.assertEqual((True, len(told)), (len(told) > 0, text.count("NOLINT")))


class Exceptions(unittest.TestCase):
    def test_each_has_its_reason(self):
        lines = clang_tidy.SETTINGS.read_text(encoding="ascii").splitlines()
        reasons = " ".join(line for line in lines if line.startswith("#"))
        left_out = re.findall(r"^  -[a-z]+-([a-z0-9*-]+),?$", "\n".join(lines), re.MULTILINE)
        self.assertIn("exception-escape", left_out)
        self.assertEqual([], [name for name in left_out if name not in reasons])


class MadeUp(unittest.TestCase):
    def setUp(self):
        folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory())).resolve()
        self.sources = folder / "src"
        self.sources.mkdir()
        self.work = folder / "work"
        self.work.mkdir()
        self.cache = folder / "cache"

    def write(self, name, text):
        path = self.sources / name
        path.write_text(text, encoding="ascii")
        return path

    def look(self, *sources, flags=("-std=c++20",)):
        inspector = clang_tidy.Inspector(self.work, self.cache)
        return inspector.look({path: list(flags) for path in sources})

    def remembered(self):
        return len(list(self.cache.iterdir()))

    def test_a_fault_in_any_of_a_group_is_found(self):
        sources = [self.write(*file) for file in (
            ("a.cpp", CLEAN % "A"), ("b.cpp", FAULTY % "B"), ("c.cpp", FAULTY % "C"))]
        found = self.look(*sources)
        self.assertEqual([0, 1, 1], [found.count(FAULT % (path, 19)) for path in sources])
        self.assertEqual(0, self.remembered())

    def test_a_fault_in_a_header_is_found(self):
        header = self.write("h.h", "inline " + FAULTY % "H")
        source = '#include "h.h"\n' + CLEAN
        found = self.look(self.write("a.cpp", source % "A"), self.write("b.cpp", CLEAN % "B"))
        self.assertIn(FAULT % (header, 26), found)

    def test_sources_that_use_the_same_name_are_looked_at_all_the_same(self):
        sources = [self.write(name + ".cpp", HIDDEN % name + FAULTY % (name + "2")) for name in ("a", "b", "c")]
        found = self.look(*sources)
        self.assertEqual([1, 1, 1], [found.count("%s:5:20: error: use nullptr" % path) for path in sources])
        self.assertNotIn("redefinition", found)

    def test_what_only_the_main_file_is_asked_for_is_found_in_each(self):
        sources = [self.write("a.cpp", USING + CLEAN % "A"), self.write("b.cpp", USING + CLEAN % "B")]
        found = self.look(*sources)
        told = "%s:4:12: error: using decl 'away' is unused"
        self.assertEqual([1, 1], [found.count(told % path) for path in sources])

    def test_a_source_that_the_compiler_refuses_is_a_finding(self):
        sources = [self.write("a.cpp", CLEAN % "A"), self.write("b.cpp", '#include "missing.h"\n')]
        self.assertIn("b.cpp:1:10: error: 'missing.h' file not found", self.look(*sources))

    def test_what_was_clean_is_remembered_until_something_that_it_hangs_on_changes(self):
        header = self.write("h.h", CLEAN % "H")
        source = self.write("a.cpp", '#include "h.h"\n#ifdef WITH_FAULT\n%s#endif\n' % (FAULTY % "A"))
        self.assertEqual(("", 1), (self.look(source), self.remembered()))
        self.assertEqual(("", 1), (self.look(source), self.remembered()))
        self.assertIn("use nullptr", self.look(source, flags=("-std=c++20", "-DWITH_FAULT")))
        header.write_text(FAULTY % "H", encoding="ascii")
        self.assertIn("use nullptr", self.look(source))
        self.assertEqual(1, self.remembered())

    def test_what_is_remembered_is_not_looked_at_again(self):
        source = self.write("a.cpp", FAULTY % "A")
        inspector = clang_tidy.Inspector(self.work, self.cache)
        flags = ["-std=c++20"]
        (self.cache / inspector.key(source, [source], flags, ())).touch()
        self.assertEqual("", inspector.look({source: flags}))

    def test_a_set_that_is_left_out_for_a_look_is_not_asked_for(self):
        inspector = clang_tidy.Inspector(self.work, self.cache)
        source = self.write("a.cpp", FAULTY % "A")
        flags = {source: ["-std=c++20"]}
        self.assertEqual("", inspector.look(flags, ["--checks=-modernize-use-nullptr"]))
        self.assertIn("use nullptr", inspector.look(flags))

    def test_a_fault_in_c_is_found_in_the_language_libraries_folder(self):
        self.sources = self.sources.parent / "languages"
        self.sources.mkdir()
        text = "int %s(void) {\n    int count;\n    count = 1;\n    return count;\n}\n"
        sources = [self.write(name + ".c", text % name) for name in ("a", "b")]
        found = self.look(*sources, flags=("-std=c17",))
        self.assertEqual([1, 1], [found.count("%s:2:9: error" % path) for path in sources])


if __name__ == "__main__":
    unittest.main()
