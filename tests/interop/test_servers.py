"""The servers and the bridge by themselves, without a Windows program."""

import os
import signal
import subprocess
import sys
import time
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent))

from cases import BridgeCase, fresh  # noqa: E402
from enclosure import Enclosure  # noqa: E402
from servers import USER  # noqa: E402

ABSENT = "\\\\NOWHERE"


class PasswordChange(BridgeCase):
    def test_changed_password_logs_on_and_the_old_one_does_not(self):
        for server in self.network.servers:
            with self.subTest(server.name):
                new = fresh()
                self.assertEqual(self.change(f"\\\\{server.name}", server.first_password, new), 0)
                self.assertTrue(server.log_on(USER, new))
                self.assertFalse(server.log_on(USER, server.first_password))

    def test_controller_answers_to_its_dns_name_in_any_case(self):
        first, new = self.network.controller.first_password, fresh()
        self.assertEqual(self.change("\\\\Dc1.Practice.Test", first, new), 0)
        self.assertTrue(self.network.controller.log_on(USER, new))

    def test_wrong_old_password_is_86_and_changes_nothing(self):
        for server in self.network.servers:
            with self.subTest(server.name):
                new = fresh()
                self.assertEqual(self.change(f"\\\\{server.name}", "Not-the-one-7", new), 86)
                self.assertTrue(server.log_on(USER, server.first_password))
                self.assertFalse(server.log_on(USER, new))

    def test_password_that_the_policy_refuses_is_2245(self):
        controller, server = self.network.controller, self.network.server
        for place, refused in ((controller, "Ab1-"), (controller, "allsmallletters"), (server, "Ab1-")):
            with self.subTest(place.name, refused=refused):
                self.assertEqual(self.change(f"\\\\{place.name}", place.first_password, refused), 2245)
                self.assertTrue(place.log_on(USER, place.first_password))

    def test_policies_differ_so_that_one_server_takes_what_the_other_refuses(self):
        controller, server = self.network.controller, self.network.server
        self.assertEqual(self.change("\\\\SERVER1", server.first_password, "small"), 0)
        self.assertEqual(self.change("\\\\DC1", controller.first_password, "small"), 2245)

    def test_password_used_before_is_2245_on_the_controller(self):
        first, between = self.network.controller.first_password, fresh()
        self.assertEqual(self.change("\\\\DC1", first, between), 0)
        self.assertEqual(self.change("\\\\DC1", between, first), 2245)

    def test_change_too_soon_after_the_last_is_2245(self):
        for server in (self.network.controller, self.network.server):
            with self.subTest(server.name):
                self.addCleanup(server.set_policy, min_age=0)
                server.set_policy(min_age=1)
                self.assertEqual(self.change(f"\\\\{server.name}", server.first_password, fresh()), 2245)

    def test_unknown_server_is_53(self):
        self.assertEqual(self.change(ABSENT, "First-word-1", "Second-word-2"), 53)

    def test_disabled_account_is_1331(self):
        for server in (self.network.controller, self.network.server):
            with self.subTest(server.name):
                self.addCleanup(server.set_disabled, USER, False)
                server.set_disabled(USER, True)
                self.assertEqual(self.change(f"\\\\{server.name}", server.first_password, fresh()), 1331)

    def test_locked_account_is_1909(self):
        server = self.network.server
        self.addCleanup(server.unlock, USER)
        self.addCleanup(server.set_policy, lockout=0)
        server.set_policy(lockout=2)
        self.assertEqual(self.change("\\\\SERVER1", "Not-the-one-7", fresh()), 86)
        self.assertEqual(self.change("\\\\SERVER1", "Not-the-one-7", fresh()), 86)
        self.assertEqual(self.change("\\\\SERVER1", server.first_password, fresh()), 1909)

    def test_password_that_must_be_changed_can_be_changed(self):
        for server in (self.network.controller, self.network.server):
            with self.subTest(server.name):
                server.require_change(USER)
                self.assertFalse(server.log_on(USER, server.first_password))
                new = fresh()
                self.assertEqual(self.change(f"\\\\{server.name}", server.first_password, new), 0)
                self.assertTrue(server.log_on(USER, new))

    def test_any_character_goes_through(self):
        words = " \"Sécond\\ %s $wörd'-2 ЖΩ漢\N{GRINNING FACE}"
        for server in (self.network.controller, self.network.server):
            with self.subTest(server.name):
                self.assertEqual(self.change(f"\\\\{server.name}", server.first_password, words), 0)
                self.assertTrue(server.log_on(USER, words))
                self.assertEqual(self.change(f"\\\\{server.name}", words, fresh()), 0)

    def test_password_of_more_than_256_characters_is_2245(self):
        first = self.network.server.first_password
        self.assertEqual(self.change("\\\\SERVER1", first, "x" * 257), 2245)
        self.assertEqual(self.change("\\\\SERVER1", first, "x" * 256), 0)

    def test_record_has_each_call_and_no_password(self):
        self.change("\\\\SERVER1", self.network.server.first_password, fresh())
        self.change(ABSENT, "Hidden-word-4", "Second-word-2")
        call = {"call": "NetUserChangePassword", "username": None}
        self.assertEqual(
            self.bridge.record,
            [{**call, "domainname": "\\\\SERVER1", "code": 0}, {**call, "domainname": ABSENT, "code": 53}],
        )


class Lookups(BridgeCase):
    def user_info(self, name, user=USER):
        return self.send("NetUserGetInfo", servername=name, username=user, level=3)

    def modals(self, name):
        return self.send("NetUserModalsGet", servername=name, level=0)

    def test_own_name_computer_and_workgroup(self):
        user = self.send("NetWkstaUserGetInfo", reserved=None, level=0)
        self.assertEqual(user, {"code": 0, "username": "user"})
        workstation = self.send("NetWkstaGetInfo", servername=None, level=100)
        self.assertEqual(workstation, {"code": 0, "computername": "DESK1", "langroup": "WORKGROUP"})

    def test_short_domain_name_finds_the_controller_and_another_is_2453(self):
        found = self.send("NetGetDCName", servername=None, domainname="practice")
        self.assertEqual(found, {"code": 0, "name": "\\\\DC1"})
        for other in ("OTHER", "practice.test", "", None):
            with self.subTest(other):
                self.assertEqual(self.send("NetGetDCName", servername=None, domainname=other), {"code": 2453})

    def test_either_domain_name_finds_the_dns_controller_and_another_is_1355(self):
        for name in ("PRACTICE", "practice.test"):
            with self.subTest(name):
                found = self.send("DsGetDcNameW", domainname=name, flags=0x40000080)
                self.assertEqual((found["code"], found["name"]), (0, "\\\\dc1.practice.test"))
        self.assertEqual(self.send("DsGetDcNameW", domainname="other.test", flags=0), {"code": 1355})

    def test_policies_are_the_servers_own(self):
        controller, server = self.modals("\\\\DC1"), self.modals("\\\\SERVER1")
        self.assertEqual((controller["min_passwd_len"], controller["max_passwd_age"]), (7, 42 * 86400))
        self.assertEqual((server["min_passwd_len"], server["max_passwd_age"]), (5, 0xFFFFFFFF))

    def test_changed_policy_is_read(self):
        server = self.network.server
        self.addCleanup(server.set_policy, min_length=5, max_age=None)
        server.set_policy(min_length=9, max_age=30)
        modals = self.modals("\\\\SERVER1")
        self.assertEqual((modals["min_passwd_len"], modals["max_passwd_age"]), (9, 30 * 86400))

    def test_fresh_account_is_young_and_in_order(self):
        for server in self.network.servers:
            with self.subTest(server.name):
                info = self.user_info(f"\\\\{server.name}")
                self.assertEqual((info["code"], info["flags"], info["password_expired"]), (0, 0x201, 0))
                self.assertLess(info["password_age"], 300)

    def test_password_that_must_be_changed_is_told_as_expired(self):
        for server in (self.network.controller, self.network.server):
            with self.subTest(server.name):
                server.require_change(USER)
                self.assertEqual(self.user_info(f"\\\\{server.name}"), {"code": 1907})

    def test_unknown_user_is_2221(self):
        self.assertEqual(self.user_info("\\\\SERVER1", "nobody-here"), {"code": 2221})

    def test_session_that_no_longer_logs_on_is_1326(self):
        self.network.server.set_password(USER, "Set-by-another-6")
        self.assertEqual(self.user_info("\\\\SERVER1"), {"code": 1326})

    def test_session_follows_a_change_over_the_bridge(self):
        first = self.network.server.first_password
        self.assertEqual(self.change("\\\\SERVER1", first, fresh()), 0)
        self.assertEqual(self.user_info("\\\\SERVER1")["code"], 0)

    def test_no_server_name_means_the_own_computer(self):
        self.assertEqual(self.modals(None)["min_passwd_len"], 5)
        self.network.desk.set_password(USER, "Set-by-another-6")
        self.assertEqual(self.modals(None), {"code": 1326})

    def test_unknown_server_is_53(self):
        self.assertEqual(self.user_info(ABSENT), {"code": 53})
        self.assertEqual(self.modals(ABSENT), {"code": 53})

    def test_server_whose_programs_have_ended_is_53(self):
        server = self.network.server
        server.stop_service()
        try:
            self.assertEqual(self.modals("\\\\SERVER1"), {"code": 53})
            self.assertEqual(self.change("\\\\SERVER1", server.first_password, fresh()), 53)
        finally:
            server.start_service()
        self.assertEqual(self.modals("\\\\SERVER1")["code"], 0)

    def test_other_levels_are_124_and_other_calls_50(self):
        self.assertEqual(self.send("NetUserModalsGet", servername=None, level=1), {"code": 124})
        self.assertEqual(self.send("NetUserDel"), {"code": 50})


class TakenDown(unittest.TestCase):
    def test_room_and_its_programs_vanish_with_the_process_that_made_them(self):
        mark = str(86400 + os.getpid())
        folder = str(Path(__file__).parent)
        script = (
            f"import sys, time; sys.path.insert(0, {folder!r}); from enclosure import Enclosure\n"
            f"room = Enclosure(['/run']); room.spawn(['sleep', '{mark}'])\n"
            "print('made', flush=True); time.sleep(600)\n"
        )
        maker = subprocess.Popen([sys.executable, "-c", script], stdout=subprocess.PIPE, text=True)
        self.assertEqual(maker.stdout.readline(), "made\n")
        self._await(lambda: sleepers(mark), "the program started")
        maker.send_signal(signal.SIGKILL)
        maker.wait()
        maker.stdout.close()
        self._await(lambda: not sleepers(mark), "the program ended")

    def test_room_has_its_own_files_and_leaves_none(self):
        room = Enclosure(["/run"])
        self.addCleanup(room.close)
        room.run(["touch", f"/run/kestrelmoor-{os.getpid()}"])
        self.assertIn(f"kestrelmoor-{os.getpid()}", room.run(["ls", "/run"]).stdout)
        self.assertFalse(Path(f"/run/kestrelmoor-{os.getpid()}").exists())

    def _await(self, condition, what):
        deadline = time.monotonic() + 10
        while not condition():
            self.assertLess(time.monotonic(), deadline, what)
            time.sleep(0.05)


def sleepers(mark):
    """The ids of the processes that sleep for so many seconds."""
    found = []
    for entry in Path("/proc").glob("[0-9]*/cmdline"):
        try:
            if entry.read_bytes() == f"sleep\0{mark}\0".encode():
                found.append(entry.parent.name)
        except OSError:
            continue
    return found


if __name__ == "__main__":
    unittest.main()
