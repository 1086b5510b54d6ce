"""The stand-in network library in Wine: its calls reach the real servers, its records come out right."""

import os
import subprocess
import sys
import tempfile
import unittest
from functools import cache
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent))

from cases import BridgeCase, buffers_of, fresh  # noqa: E402
from servers import USER  # noqa: E402

PROJECT = Path(__file__).resolve().parents[2]
FOLDER = PROJECT / "out" / "stand_ins"
WINE = PROJECT / "tests" / "desktop" / "wine_root.sh"
FREED = {"call": "NetApiBufferFree", "known": True, "code": 0}
OVERRIDES = "mscoree,mshtml=;winemenubuilder.exe=;netapi32=n"


def setUpModule():
    if not (FOLDER / "netapi_probe.exe").exists():
        raise unittest.SkipTest("the stand-ins are not built; the remedy: ./build.sh")
    program_path()


def probe(calls, **variables):
    """The answers to some calls, as lists. A call is a tuple of its word and its arguments; None stands for
    a null pointer."""
    lines = "".join("\t".join("-" if word is None else word for word in call) + "\n" for call in calls)
    with tempfile.TemporaryDirectory() as changes:
        result = subprocess.run(
            [WINE, "run", "--bind", f"{FOLDER}:stand_ins", "--prefix", f"{changes}/prefix"]
            + ["--", "wine", program_path()],
            input=lines,
            capture_output=True,
            encoding="utf-8",
            env={**os.environ, "WINEDLLOVERRIDES": OVERRIDES, **variables},
            timeout=120,
            check=True,
        )
    return [line.split("\t") for line in result.stdout.splitlines()]


@cache
def program_path():
    """Where the probe lies as Wine sees it; the Wine is made at the first call."""
    wine = subprocess.run([WINE, "make"], capture_output=True, text=True, check=False)
    if wine.returncode == 77:
        raise unittest.SkipTest(wine.stderr.strip())
    if wine.returncode != 0:
        raise RuntimeError(wine.stderr)
    on_host = wine.stdout.strip() == "host"
    return f"{FOLDER if on_host else '/mnt/stand_ins'}/netapi_probe.exe"


class OverTheBridge(BridgeCase):
    def probe(self, *calls):
        return probe(calls, KESTRELMOOR_BRIDGE=self.bridge.address)

    def test_password_changed_through_the_library_logs_on_and_the_old_one_does_not(self):
        servers = self.network.servers
        new = [fresh() for _ in servers]
        changes = [
            ("NetUserChangePassword", f"\\\\{server.name}", None, server.first_password, word)
            for server, word in zip(servers, new)
        ]
        self.assertEqual(self.probe(*changes), [["0"]] * 3)
        for server, word in zip(servers, new):
            with self.subTest(server.name):
                self.assertTrue(server.log_on(USER, word))
                self.assertFalse(server.log_on(USER, server.first_password))

    def test_any_character_goes_through_and_an_empty_password_is_a_text(self):
        server = self.network.server
        words = " \"Sécond\\ %s $wörd'-2 ЖΩ漢\N{GRINNING FACE}"
        answers = self.probe(
            ("NetUserChangePassword", "\\\\SERVER1", None, server.first_password, words),
            ("NetUserChangePassword", "\\\\SERVER1", None, words, ""),
        )
        self.assertEqual(answers, [["0"], ["2245"]])
        self.assertTrue(server.log_on(USER, words))

    def test_refusals_come_back_as_their_codes(self):
        answers = self.probe(
            ("NetUserChangePassword", "\\\\SERVER1", None, "Not-the-one-7", fresh()),
            ("NetUserChangePassword", "\\\\DC1", None, self.network.controller.first_password, "Ab1-"),
            ("NetUserChangePassword", "\\\\NOWHERE", None, "a", "b"),
            ("NetUserChangePassword", "\\\\SERVER1", None, None, "b"),
        )
        self.assertEqual(answers, [["86"], ["2245"], ["53"], ["87"]])

    def test_names_and_policies_come_out_of_the_records(self):
        answers = self.probe(
            ("NetWkstaUserGetInfo",),
            ("NetWkstaGetInfo",),
            ("NetGetDCName", "PRACTICE"),
            ("NetGetDCName", "OTHER"),
            ("DsGetDcNameW", "practice.test"),
            ("DsGetDcNameW", "other.test"),
            ("NetUserModalsGet", "\\\\DC1"),
            ("NetUserModalsGet", "\\\\SERVER1"),
        )
        self.assertEqual(
            answers,
            [
                ["0", "user"],
                ["0", "DESK1", "WORKGROUP"],
                ["0", "\\\\DC1"],
                ["2453"],
                ["0", "\\\\dc1.practice.test"],
                ["1355"],
                ["0", "7", "3628800"],
                ["0", "5", "4294967295"],
            ],
        )

    def test_account_comes_out_of_its_record(self):
        code, name, age, flags, expired = self.probe(("NetUserGetInfo", "\\\\DC1", USER))[0]
        self.assertEqual((code, name, flags, expired), ("0", USER, "513", "0"))
        self.assertLess(int(age), 300)

    def test_every_buffer_is_counted_until_it_comes_back_and_a_second_release_is_87(self):
        self.assertEqual(self.probe(("Releases",)), [["0", "0", "87"]])
        freed = [call for call in self.bridge.record if call["call"] == "NetApiBufferFree"]
        self.assertEqual(
            [(call["known"], call["outstanding"]) for call in freed], [(True, 1), (True, 0), (False, 0)]
        )

    def test_a_buffer_that_stays_out_and_one_that_comes_back_twice_are_seen(self):
        self.probe(("NetWkstaUserGetInfo",))
        self.assertEqual(*buffers_of(self.bridge.record))
        self.assertNotEqual(*buffers_of(self.bridge.record[:-1]))
        self.assertNotEqual(*buffers_of([*self.bridge.record, {**FREED, "known": False}]))

    def test_failed_query_leaves_no_buffer_behind(self):
        self.probe(("NetUserGetInfo", "\\\\NOWHERE", USER), ("NetWkstaUserGetInfo",))
        self.assertEqual(self.bridge.record[-1], {**FREED, "outstanding": 0})


class WithoutABridge(unittest.TestCase):
    CALLS = [
        ("NetWkstaUserGetInfo",),
        ("NetWkstaGetInfo",),
        ("NetGetDCName", "PRACTICE"),
        ("DsGetDcNameW", "PRACTICE"),
        ("NetUserGetInfo", None, "user"),
        ("NetUserModalsGet", None),
        ("NetUserChangePassword", "\\\\DC1", None, "a", "b"),
    ]

    def test_every_call_answers_2138_where_nothing_is_named(self):
        self.assertEqual(probe(self.CALLS), [["2138"]] * 7)

    def test_every_call_answers_2138_where_nobody_listens(self):
        self.assertEqual(probe(self.CALLS, KESTRELMOOR_BRIDGE="127.0.0.1:1"), [["2138"]] * 7)


class NetworkTexts(unittest.TestCase):
    def test_every_network_code_that_is_met_has_a_text_that_ends_a_line_and_fits_the_buffer(self):
        codes = [2138, 2203, 2221, 2226, 2242, 2243, 2244, 2245, 2246, 2351, 2453]
        for code, answer in zip(codes, probe([("Message", str(code)) for code in codes]), strict=True):
            with self.subTest(code):
                self.assertEqual(answer[0], "ended")
                self.assertRegex(answer[1], r"^[A-Z].{15,250}\.$")

    def test_text_of_2245_is_the_own_one(self):
        answer = probe([("Message", "2245")])[0][1]
        self.assertTrue(answer.startswith("The new password breaks the rules for passwords:"), answer)

    def test_code_without_a_text_gives_none(self):
        self.assertEqual(probe([("Message", "2999")]), [["open", ""]])


if __name__ == "__main__":
    unittest.main()
