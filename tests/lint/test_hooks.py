"""The program listens to keys and to the mouse of its own thread alone."""

import re
import unittest

from sources import ROOT, relative, tracked

SET = re.compile(r"\bSetWindowsHookEx[AW]?\(([^;]*)\)")
OWN_THREAD = "type, &HookDoor<type>, nullptr, ::GetCurrentThreadId()"


class Hooks(unittest.TestCase):
    def test_each_is_set_for_the_programs_own_thread_alone(self):
        calls = {}
        for path in tracked(".cpp", ".h"):
            if path.is_relative_to(ROOT / "src" / "platform" / "windows"):
                for call in SET.findall(path.read_text(encoding="utf-8")):
                    calls.setdefault(relative(path), []).append(call.strip())
        self.assertEqual({"src/platform/windows/input_hooks.cpp": [OWN_THREAD + ")"]},
                         {file: [call for call in found if "HookProcedure" not in call] for file, found in calls.items()})


if __name__ == "__main__":
    unittest.main()
