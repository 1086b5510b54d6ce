"""The table of the fault matrix knows every call of the practice platform: how it fails, or that it can't."""

import json
import re
import unittest

from sources import ROOT

TABLE = ROOT / "tests" / "native" / "faults" / "told.json"
PLATFORM = ROOT / "src" / "platform"
PRACTICE = PLATFORM / "practice"
CALL = re.compile(r'\bEnter\(\s*"([^"]+)"')
DECLARED = re.compile(
    r"^(?! *///)[\w:<>,&* \[\]]*?[ &*>](\w+)\([^;{]*\)(?: const)?(?: = 0)?(?: noexcept)?;", re.MULTILINE)

CALLS_OF = {
    "BindObject": "GetObject", "ChangePassword": "IADsUser.ChangePassword", "GetAttribute": "IADsUser.Get",
    "GetKeyboardCues": "SystemParametersInfoW", "GetProperty": "IADsUser.PasswordExpirationDate",
    "GetSidIdentifierAuthority": "GetSidIdentifierAuthority", "GetSidSubAuthority": "GetSidSubAuthority",
    "GetSidSubAuthorityCount": "GetSidSubAuthorityCount", "LoadIconImage": "LoadImageW",
    "RegQueryValueData": "RegQueryValueExW", "RegQueryValueType": "RegQueryValueExW",
}
"""Functions of the platform that make a call of another name, or enter it by a name that is put together."""

WITHOUT_A_CALL = {
    "texts are compared and folded by the system's tables": {"CompareRows", "CompareText", "FoldCase"},
    "known since the process began": {"CommandLineArguments", "ProgramBaseName", "ProgramFolder"},
    "the clock and the calendar": {"DateText", "Now", "Timer"},
    "a figure of what another call has handed out": {
        "LsaNtStatusToWinError", "MouseHookPoint", "PrimaryDomainSid", "PtInRect", "TakeNumbers", "TakeText",
        "UserSidInBuffer",
    },
    "the end of the process": {"EndByError"},
    "the windows, whose own calls are the form model's": {"TheDesktop"},
}
"""Functions of the platform that no fault is laid into, under the reason."""


def told():
    table = json.loads(TABLE.read_text(encoding="utf-8"))
    return set(table["codes"]).union(*table["unanswered"].values())


class Calls(unittest.TestCase):
    def test_of_the_platform_all_are_told(self):
        called = {name for path in PRACTICE.rglob("*.cpp") for name in CALL.findall(path.read_text(encoding="utf-8"))}
        self.assertGreater(len(called), 50)
        self.assertEqual(set(), called - told())


class Functions(unittest.TestCase):
    def test_of_the_platform_each_makes_a_call_that_is_told_or_has_its_reason(self):
        headers = [path.read_text(encoding="utf-8") for path in PLATFORM.glob("*.h")]
        declared = {name for header in headers for name in DECLARED.findall(header)}
        self.assertGreater(len(declared), 100)
        calls = {call.replace(".", "::").rpartition("::")[2] for call in told()}
        excused = set().union(*WITHOUT_A_CALL.values())
        self.assertEqual(set(), declared - calls - set(CALLS_OF) - excused)
        self.assertEqual(set(), (set(CALLS_OF) | excused) - declared)
        self.assertEqual(set(), set(CALLS_OF.values()) - told())


if __name__ == "__main__":
    unittest.main()
