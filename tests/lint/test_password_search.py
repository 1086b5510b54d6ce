"""The search for passwords: each call of the platform that is given a text has been seen to find one."""

import re
import unittest

from sources import ROOT, relative

SEARCH = ROOT / "tests" / "native" / "secrets" / "trace_search_test.cpp"
CALL = re.compile(r"\b(\w+)\(([^()]*)\)(?: noexcept)?;")
COMMENT = re.compile(r"//.*")
GIVEN = re.compile(r"const String&|StringView|std::string_view|const char\*|const std::vector<std::uint8_t>&")

READS_THE_SYSTEMS_BYTES = {"UserSidInBuffer"}


def calls(header):
    """Names of the calls of a header that are given texts or bytes."""
    declared = COMMENT.sub("", header)
    return {name for name, parameters in CALL.findall(declared) if GIVEN.search(parameters)} - READS_THE_SYSTEMS_BYTES


def seam():
    return {name: relative(path) for path in sorted((ROOT / "src" / "platform").glob("*.h"))
            for name in calls(path.read_text(encoding="utf-8"))}


class PasswordSearch(unittest.TestCase):
    def test_every_call_that_is_given_a_text_is_tried(self):
        tried = set(re.findall(r"platform::(\w+)\(", SEARCH.read_text(encoding="utf-8")))
        self.assertGreater(len(seam()), 25)
        self.assertEqual({}, {name: file for name, file in seam().items() if name not in tried})

    def test_calls_with_texts_are_told_from_others(self):
        header = """
            int A(const String& sText); // int B(const String& sText);
            void C(int n, String& sOut);
            bool D(int n,
                   StringView text) noexcept;
            bool E(const std::vector<std::uint8_t>& data);
            void F(const char* s);
        """
        self.assertEqual({"A", "D", "E", "F"}, calls(header))


if __name__ == "__main__":
    unittest.main()
