"""The table of the fault matrix knows every call of the practice platform: how it fails, or that it can't."""

import json
import re
import unittest

from sources import ROOT

TABLE = ROOT / "tests" / "native" / "faults" / "told.json"
PRACTICE = ROOT / "src" / "platform" / "practice"
CALL = re.compile(r'\bEnter\(\s*"([^"]+)"')


class Calls(unittest.TestCase):
    def test_of_the_platform_all_are_told(self):
        table = json.loads(TABLE.read_text(encoding="utf-8"))
        told = set(table["codes"]) | set(table["unanswered"])
        called = {name for path in PRACTICE.rglob("*.cpp") for name in CALL.findall(path.read_text(encoding="utf-8"))}
        self.assertGreater(len(called), 50)
        self.assertEqual(set(), called - told)


if __name__ == "__main__":
    unittest.main()
