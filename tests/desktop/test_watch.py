"""The watch at logon on a real desktop: Moorlink.exe started without a switch, as the Run key starts it."""

import unittest

import practice_directory
from desktop_case import DesktopCase
from held_network import BridgedDirectory, HeldDirectory
from mapped_windows import MappedWindows
from password_window import OK, OLD, PROGRAM, SAME, SETTINGS, STAND_INS, TARGETS, TITLE, PasswordWindow, targets
from practice_network import OLD as OLD_PASSWORD
from waiting import wait_until
from watched_network import DOMAIN, LOCAL, SERVER, UTC, WatchedNetwork, date, expires_in, places

NEW_PASSWORD = "New-Password-2"
QUESTION = "\r\n\r\nDo you want to change your password now?"
EXPIRING, EXPIRED, APART = "Your Password Is About to Expire", "Your Password Has Expired", "Your Passwords Differ"
PATHS = ["WinNT://%s/user,user" % name for name in (LOCAL, SERVER, DOMAIN)]
ALL_ROWS = [" This computer", "\\\\ARCHIVE", "PRACTICE"]
ON_TOP_OF_ALL = 0x8  # WS_EX_TOPMOST
SMALL, LARGE = 0, 1
LOGON_FAILURE = 0x8007052E

RESTRICTED = [0x8007052F, 0x80070530, 0x80070531, 0x80070533, 0x80070557, 0x80070564, 0x80070569, 0x80070701,
              0x80070775]
OUT_OF_DATE = [0x80070532, 0x80070773, 0x800708C2]
REFUSED = [0x80070056, 0x8007052E, 0x80070005]


def local_expires(world):
    expires_in(world, LOCAL, days=3, hours=7, minutes=30)


def local_must_change(world):
    places(world)[LOCAL]["accounts"][0]["password_expired"] = True


def as_signed(number):
    return number - (number >> 31 << 32)


class WatchCase(DesktopCase):
    options = {"dlls": STAND_INS, "registry": targets(["\\\\ARCHIVE", "PRACTICE"]), "variables": UTC}

    def setUp(self):
        self.desktop.guard_session()

    def network_with(self, *changes):
        self.network = WatchedNetwork(self.desktop, *changes)

    def start(self, *arguments, network=None):
        variables = (network or self.network).variables
        return self.desktop.start(PROGRAM, list(arguments), variables=variables)

    def question(self, process):
        box = self.desktop.box(pid=process.pid)
        self.assertEqual(box.buttons, ["Yes", "No"])
        return box

    def answer_yes(self, process):
        self.question(process).press("Enter")
        return PasswordWindow(self.desktop, process=process)

    def started_with_log(self):
        """The program and the lines of its log, once it has ended or asks."""
        self.log = self.desktop.work / "watch.log"
        self.log.unlink(missing_ok=True)
        return self.start("/d", self.desktop.windows_path(self.log))

    def lines(self):
        return self.log.read_text(encoding="utf-8").splitlines()

    def lines_from_bind(self):
        lines = self.lines()
        return lines[next(at for at, line in enumerate(lines) if "-> GetObject" in line):]


class OneRoad(WatchCase):
    """What holds on either road; each road below says how a server comes to refuse the user."""

    def refuse_on_server(self, world):
        raise NotImplementedError

    def test_a_start_where_all_is_well_shows_nothing_at_all(self):
        self.network_with()
        with MappedWindows(self.desktop.display) as shown:
            self.assertEqual(self.start().wait_exit(), 0)
            self.assertEqual(shown.count(), 0)

    def test_what_is_shown_would_have_been_seen(self):
        self.network_with(local_expires)
        with MappedWindows(self.desktop.display) as shown:
            self.question(self.start()).answer("No")
            self.assertGreater(shown.count(), 0)

    def test_expiring_is_told_with_days_and_hours(self):
        self.network_with(local_expires)
        box = self.question(self.start())
        self.assertEqual((box.title, box.icon, box.default), (EXPIRING, "information", "Yes"))
        self.assertEqual(
            box.text, "Your password for this computer expires in 3 days and 07 hours." + QUESTION)

    def test_one_target_expired_is_told_and_no_one_is_left_out(self):
        self.network_with(local_must_change)
        process = self.start()
        box = self.question(process)
        self.assertEqual(box.title, EXPIRED)
        self.assertEqual(box.text, "Your password for this computer has expired." + QUESTION)
        self.assertEqual(self.answer_yes(process).rows(), ALL_ROWS)

    def test_a_server_that_refuses_the_user_is_all_that_the_window_offers(self):
        self.network_with(self.refuse_on_server)
        process = self.start()
        box = self.question(process)
        self.assertEqual(box.title, APART)
        self.assertIn("ARCHIVE", box.text)
        self.assertTrue(box.text.endswith(QUESTION))
        window = self.answer_yes(process)
        self.assertEqual(window.rows(), ["\\\\ARCHIVE"])
        self.assertEqual(window.close(), 0)
        self.assertEqual(self.desktop.registry_value(SETTINGS, "Active"), b"\x03")
        self.assertIsNone(self.desktop.registry_value(SETTINGS, "Options"))

    def test_passwords_apart_among_others_are_asked_for_one_by_one(self):
        self.network_with(local_must_change, self.refuse_on_server)
        process = self.start()
        box = self.question(process)
        self.assertEqual(box.title, EXPIRED)
        self.assertEqual(box.text.count("\r\n"), 3)
        window = self.answer_yes(process)
        # The window is shown first and switched over then.
        wait_until(lambda: window.control(TARGETS).visible, "the list of old passwords")
        self.picture("watch-apart", window.window)
        self.assertEqual(self.desktop.checked(window.control(SAME)), 0)
        self.assertEqual(window.rows(), ALL_ROWS)
        self.assertEqual(self.desktop.layout_faults(window.window, allow=[(OLD, TARGETS)]), [])


class ByTheNetworkApi(OneRoad):
    def refuse_on_server(self, world):
        # The local computer is asked first, the server second.
        world.setdefault("faults", []).append({"call": "NetUserGetInfo", "code": 1326, "nth": 2})


class ByTheDirectory(OneRoad):
    options = {
        **WatchCase.options,
        "dlls": {**STAND_INS, **practice_directory.LIBRARY},
        "registry": {**WatchCase.options["registry"], **practice_directory.REGISTRATION},
    }

    def network_with(self, *changes):
        super().network_with(practice_directory.install, *changes)

    def refuse_on_server(self, world):
        practice_directory.fail(world, SERVER, "GetObject", LOGON_FAILURE)

    def test_the_network_api_is_not_asked_where_the_directory_answers(self):
        self.network_with(local_expires)
        self.question(self.started_with_log()).answer("No")
        lines = self.lines()
        self.assertEqual([line for line in lines if "-> NetUserGetInfo" in line], [])
        self.assertIn('Information: -> GetObject "WinNT://ARCHIVE/user,user"', lines)
        self.assertIn('Information: -> GetObject "WinNT://PRACTICE/user,user"', lines)

    def test_a_restricted_account_stands_in_the_report_beside_the_others(self):
        self.network_with(local_expires, lambda world: practice_directory.fail(
            world, SERVER, "GetObject", RESTRICTED[0]))
        box = self.question(self.start())
        self.picture("watch-restricted", box.window)
        first, second, _, _ = box.text.split("\r\n")
        self.assertTrue(first.startswith("Your password for this computer expires"))
        self.assertIn("ARCHIVE is disabled, locked or restricted", second)
        self.assertEqual(box.title, EXPIRING)

    def test_a_change_goes_through_the_directory_and_stands_in_the_world(self):
        self.network_with(local_expires)
        process = self.started_with_log()
        window = self.answer_yes(process)
        paragraphs = window.change(OLD_PASSWORD, NEW_PASSWORD)
        self.assertEqual([line.endswith(": The password has been changed.") for line in paragraphs[:3]], [True] * 3)
        self.assertEqual(set(self.network.passwords().values()), {NEW_PASSWORD})
        window.close()
        lines = self.lines()
        self.assertEqual(lines.count("Information: -> IADsUser.ChangePassword"), 3)
        self.assertEqual([line for line in lines if "NetUserChangePassword" in line], [])
        self.assertNotIn(NEW_PASSWORD, self.log.read_text(encoding="utf-8"))

    def test_a_change_that_the_directory_refuses_is_not_tried_elsewhere(self):
        self.network_with(local_expires, lambda world: practice_directory.fail(
            world, SERVER, "ChangePassword", 0x800708C5, "Too short for this server."))
        window = self.answer_yes(self.start())
        paragraphs = window.change(OLD_PASSWORD, NEW_PASSWORD)
        self.assertIn("Error %d: Too short for this server." % as_signed(0x800708C5), paragraphs[1])
        self.assertEqual(self.network.passwords()[SERVER], OLD_PASSWORD)

    def test_a_lead_time_beyond_16_bits_of_hours_ends_the_process_with_its_box(self):
        self.network_with(local_expires)
        self.desktop.write_registry(SETTINGS, "ReminderTime", 32768 * 3600)
        self.addCleanup(self.desktop.delete_registry, SETTINGS, "ReminderTime")
        process = self.start()
        box = self.desktop.box(pid=process.pid)
        self.picture("watch-overflow", box.window)
        self.assertEqual((box.title, box.text, box.icon, box.buttons),
                         ("Kestrelmoor", "Run-time error 6:\n\nOverflow", "error", ["OK"]))
        box.answer("OK")
        self.assertEqual(process.wait_exit(), 1)


class Numbers(WatchCase):
    """Every number of the directory's table, with the local computer as the only target."""

    options = {**ByTheDirectory.options, "registry": practice_directory.REGISTRATION}

    def check(self, number):
        self.network_with(practice_directory.install, lambda world: practice_directory.fail(
            world, LOCAL, "GetObject", number))
        return self.started_with_log()

    def assert_lines(self, number, *behind):
        shown = 70 if number == 0x80070005 else as_signed(number)
        bind, failed, *rest = self.lines_from_bind()
        self.assertEqual(bind, 'Information: -> GetObject "WinNT://WORKBENCH/user,user"')
        head = "Error: GetObject failed with error %d: " % shown
        self.assertEqual(failed[:len(head)], head)
        self.assertGreater(len(failed), len(head), "words of the system")
        self.assertEqual(rest, ["Information: " + line for line in behind])

    def test_a_restricted_number_leads_nowhere_else_and_asks_nothing(self):
        for number in RESTRICTED:
            with self.subTest(hex(number)):
                self.assertEqual(self.check(number).wait_exit(), 0)
                self.assert_lines(number, "Password status = Account disabled, locked or otherwise restricted")

    def test_a_number_of_an_expired_password_is_told_as_expired(self):
        for number in OUT_OF_DATE:
            with self.subTest(hex(number)):
                box = self.question(self.check(number))
                self.assertEqual((box.title, box.text),
                                 (EXPIRED, "Your password for this computer has expired." + QUESTION))
                box.answer("No")
                self.assert_lines(number, "Password status = Expired")

    def test_a_number_of_a_refusal_is_told_as_one(self):
        for number in REFUSED:
            with self.subTest(hex(number)):
                box = self.question(self.check(number))
                self.assertEqual((box.title, box.text), (
                    APART, "The password that you logged on with is not valid for this computer." + QUESTION))
                box.answer("No")
                self.assert_lines(number, "Password status = Invalid")

    def test_any_other_number_leads_to_the_network_api(self):
        for number in (0x80070035, 0x800708AD, 0x80004005, 0x80070052):
            with self.subTest(hex(number)):
                self.assertEqual(self.check(number).wait_exit(), 0)
                self.assertIn('Information: -> NetUserGetInfo "" "user"', self.lines())


class Box(WatchCase):
    def test_it_lies_on_top_of_all_in_front_and_bears_the_icons(self):
        self.network_with(local_expires, local_must_change, lambda world: expires_in(world, DOMAIN, hours=1, minutes=5))
        process = self.start()
        box = self.question(process)
        self.picture("watch-question", box.window)
        window = self.desktop.window(box.window)
        self.assertTrue(window.extended_style & ON_TOP_OF_ALL)
        self.assertEqual(self.desktop.input_state(window).foreground, window.handle)
        self.assertEqual(self.desktop.window_icon(window, SMALL)[1:], (16, 16))
        self.assertEqual(self.desktop.window_icon(window, LARGE)[1:], (32, 32))
        self.assertEqual(self.desktop.layout_faults(window), [])
        self.assertIn("expires in 0 days and 01 hour.\r\n", box.text)

    def test_no_ends_the_program_without_a_window(self):
        self.network_with(local_expires)
        before = self.network.read()
        process = self.start()
        self.question(process).answer("No")
        with MappedWindows(self.desktop.display) as shown:
            self.assertEqual(process.wait_exit(), 0)
            self.assertEqual(shown.count(), 0)
        self.assertEqual(self.network.read(), before)

    def test_yes_by_keyboard_opens_the_window_in_front(self):
        self.network_with(local_expires)
        process = self.start()
        self.question(process).press("Alt+Y")
        window = PasswordWindow(self.desktop, process=process)
        self.assertEqual(window.title(), TITLE)
        self.assertEqual(window.rows(), ALL_ROWS)
        wait_until(lambda: self.desktop.input_state(window.window).foreground == window.window.handle,
                   "the window in front")
        self.assertEqual(window.close(), 0)

    def test_back_from_a_failed_run_watches_again_without_a_question(self):
        def local_password_differs(world):
            places(world)[LOCAL]["accounts"][0]["password"] = "Something-Else-1"

        self.network_with(local_expires, local_password_differs)
        process = self.started_with_log()
        window = self.answer_yes(process)
        window.change(OLD_PASSWORD, NEW_PASSWORD)
        first_window = window.window
        checks = [line for line in self.lines() if "-> NetUserGetInfo" in line]
        self.assertEqual(len(checks), 3)
        window.click(OK)
        wait_until(lambda: self.desktop.window(first_window) is None, "the first window gone")
        again = PasswordWindow(self.desktop, process=process)
        self.assertIsNone(self.desktop.find_box(pid=process.pid))
        self.assertEqual(again.title(), TITLE)
        self.assertEqual(again.rows(), ALL_ROWS)
        self.assertEqual([line for line in self.lines() if "-> NetUserGetInfo" in line], checks * 2)
        self.assertEqual(again.close(), 0)


class SlowDirectory(WatchCase):
    options = ByTheDirectory.options

    def test_it_is_waited_for_in_silence(self):
        with HeldDirectory() as network, MappedWindows(self.desktop.display) as shown:
            process = self.start(network=network)
            for number in (1, 2, 3):
                network.wait_bind(number)
                self.assertIsNone(process.exit_code())
                self.assertEqual(shown.count(), 0)
                network.let_go(LOGON_FAILURE if number == 2 else RESTRICTED[0])
            self.assertEqual(self.question(process).title, APART)
        self.assertEqual(network.binds, PATHS)


class OverTheBridge(WatchCase):
    """The provider in front of servers of the tests' own."""

    options = ByTheDirectory.options

    def test_what_servers_answer_decides_and_the_change_reaches_them(self):
        values = {"UserFlags": 0x201, "PasswordExpired": 0, "PasswordExpirationDate": date(days=2, minutes=5),
                  "PasswordMinimumLength": 4}
        with BridgedDirectory(**values) as network:
            process = self.start(network=network)
            box = self.question(process)
            self.assertEqual(box.text.count("expires in 2 days and 00 hours."), 3)
            window = self.answer_yes(process)
            window.change(OLD_PASSWORD, NEW_PASSWORD)
            changes = [call for call in network.calls if call["call"] == "IADsUser.ChangePassword"]
        self.assertEqual([call["path"] for call in changes], PATHS)
        self.assertEqual({(call["oldpassword"], call["newpassword"]) for call in changes},
                         {(OLD_PASSWORD, NEW_PASSWORD)})
        self.assertEqual(network.changes, [])


del OneRoad

if __name__ == "__main__":
    unittest.main()
