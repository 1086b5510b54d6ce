"""The set-up program and the package for fleets on a real desktop: in, over an older version, out again."""

import unittest

from desktop import OUT
from desktop_case import DesktopCase
from installed_program import FOLDER, LANGUAGES, RECORD, Installation, make_installers, setup_of
from password_window import SETTINGS, STAND_INS, PasswordWindow, targets
from practice_network import OLD as OLD_PASSWORD
from practice_network import PracticeNetwork
from settings_window import LANGUAGES as LANGUAGE_LIST
from settings_window import SettingsWindow
from waiting import wait_until

UNINSTALLER = "Kestrelmoor-uninstall.exe"

OLDER, NEWER = "1.02.0083", "1.02.0085"
PROGRAM = FOLDER + "\\Moorlink.exe"
REAL = OUT / "installer"
BROKEN_OFF, NO_ADMINISTRATOR, IN_USE = 2, 5, 32
FINNISH, NORWEGIAN = "1035.loc", "1044.loc"
LARGEST = 1200000


def setUpModule():
    global older, newer
    older = make_installers(OLDER, [FINNISH, NORWEGIAN, "Help-1044.html"])
    newer = make_installers(NEWER, [FINNISH, "Help-1033.html"])


def built_names():
    """Of the files of the newer version."""
    return sorted(path.name for path in (newer.parent / "program").iterdir())


class SetupCase(DesktopCase):
    options = {"dlls": STAND_INS, "registry": targets(["\\\\ARCHIVE"])}

    def setUp(self):
        self.installation = Installation(self.desktop)
        self.desktop.guard_session()
        self.addCleanup(self.clean)
        self.registry_before = self.installation.all_registry()
        self.files_before = self.installation.all_files()

    def clean(self):
        self.desktop.end_programs()
        if self.installation.recorded():
            self.installation.remove_as_recorded()

    def assert_nothing_left(self):
        self.assertEqual(self.installation.all_files(), self.files_before)
        self.assertEqual(self.installation.all_registry(), self.registry_before)
        self.assertNotEqual(self.desktop.list_registry(SETTINGS), ([], []))

    def assert_version(self, version):
        self.assertEqual(self.installation.record("DisplayVersion"), version)
        self.assertEqual(self.installation.listed(), [RECORD])


class SetupProgram(SetupCase):
    def test_it_brings_every_file_of_the_program_and_takes_every_trace_along(self):
        self.assertEqual(self.installation.set_up(newer), 0)
        built = {path.name: path.read_bytes() for path in (newer.parent / "program").iterdir()}
        installed = {path.name: path.read_bytes() for path in self.installation.path().iterdir()}
        self.assertIsNotNone(installed.pop(UNINSTALLER, None))
        self.assertEqual(installed, built)
        self.installation.remove_as_recorded()
        self.assert_nothing_left()

    def test_without_an_administrators_rights_it_says_so_and_changes_nothing(self):
        self.assertEqual(self.installation.set_up(newer, as_user=True), NO_ADMINISTRATOR)
        self.assert_nothing_left()
        process = self.desktop.start(setup_of(newer), as_user=True)
        box = self.desktop.box(pid=process.pid)
        self.assertIn("Only an administrator can install", box.text)
        box.answer("OK")
        self.assertEqual(process.wait_exit(), NO_ADMINISTRATOR)
        self.assert_nothing_left()

    def test_only_an_administrator_can_remove_it(self):
        self.assertEqual(self.installation.set_up(newer), 0)
        uninstaller = FOLDER + "\\" + UNINSTALLER
        removal = self.desktop.start(uninstaller, "/S _?=" + FOLDER, as_user=True)
        self.assertEqual(removal.wait_exit(), NO_ADMINISTRATOR)
        self.assert_version(NEWER)

    def test_the_record_tells_the_list_of_installed_programs_what_it_asks_for(self):
        self.assertEqual(self.installation.set_up(newer), 0)
        self.assert_version(NEWER)
        told = {name: self.installation.record(name) for name in self.desktop.list_registry(RECORD)[1]}
        size = told.pop("EstimatedSize")
        self.assertEqual(told, {
            "DisplayName": "Kestrelmoor",
            "DisplayVersion": NEWER,
            "DisplayIcon": PROGRAM + ",0",
            "Publisher": "Orvane",
            "UrlInfoAbout": "https://kestrelmoor.example/",
            "InstallLocation": FOLDER,
            "UninstallString": '"%s\\%s"' % (FOLDER, UNINSTALLER),
            "QuietUninstallString": '"%s\\%s" /S' % (FOLDER, UNINSTALLER),
            "SetupUninstaller": FOLDER + "\\" + UNINSTALLER,
            "NoModify": 1,
            "NoRepair": 1,
        })
        whole = sum(path.stat().st_size for path in (newer.parent / "program").iterdir())
        self.assertEqual(size, -(-whole // 1024))

    def test_the_start_menu_opens_the_window_from_the_programs_folder(self):
        self.assertEqual(self.installation.set_up(newer), 0)
        links = self.installation.menu()
        self.assertEqual(sorted(links), ["Kestrelmoor Help.lnk", "Kestrelmoor.lnk"])
        self.assertIn(FOLDER.encode("utf-16-le"), links["Kestrelmoor.lnk"])
        self.assertIn("/f".encode("utf-16-le"), links["Kestrelmoor.lnk"])
        link = "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs\\Kestrelmoor\\Kestrelmoor.lnk"
        network = PracticeNetwork(self.desktop)
        self.desktop.start("C:\\windows\\system32\\start.exe", [link], variables=network.variables)
        window = self.desktop.wait_window(class_name="frmPass")
        self.desktop.close_window(window)
        self.desktop.wait_no_window(class_name="frmPass")

    def test_every_language_is_listed_wherever_the_program_was_started(self):
        self.assertEqual(self.installation.set_up(newer), 0)
        settings = SettingsWindow(self.desktop, PROGRAM, "C:\\windows")
        listed = [row.text for row in self.desktop.rows(settings.control(LANGUAGE_LIST))]
        self.assertTrue([name for name in listed if name.startswith("Finnish")], listed)

    def test_the_list_of_languages_has_an_entry_ahead_that_may_be_skipped(self):
        self.assertEqual(self.installation.set_up(newer), 0)
        names = self.desktop.list_registry(LANGUAGES)[1]
        self.assertEqual(names[0], "0")
        self.assertEqual(self.desktop.registry_value(LANGUAGES, "1035"), FINNISH)

    def test_over_an_older_version_what_is_no_longer_part_goes(self):
        elsewhere = "C:\\Password Tools"
        self.assertEqual(self.installation.set_up(older, "/D=" + elsewhere), 0)
        self.assertIn(NORWEGIAN, self.installation.files(elsewhere))
        self.assertEqual(self.installation.set_up(newer), 0)
        self.assert_version(NEWER)
        self.assertFalse(self.installation.path().exists())
        self.assertEqual(self.installation.files(elsewhere), sorted([*built_names(), UNINSTALLER]))
        self.assertNotIn("1044", self.desktop.list_registry(LANGUAGES)[1])
        self.desktop.start(elsewhere + "\\" + UNINSTALLER, "/S _?=" + elsewhere).wait_exit()
        self.assertEqual(self.installation.files(elsewhere), [UNINSTALLER])
        self.installation.command('rmdir /s /q "%s"' % elsewhere)
        self.assert_nothing_left()

    def test_while_the_program_runs_nothing_changes_and_the_exit_code_tells(self):
        self.assertEqual(self.installation.set_up(older), 0)
        before, registry = self.installation.files(), self.installation.all_registry()
        network = PracticeNetwork(self.desktop)
        window = PasswordWindow(self.desktop, program=PROGRAM, variables=network.variables)
        self.assertEqual(self.installation.set_up(newer), IN_USE)
        uninstaller = self.desktop.start(FOLDER + "\\" + UNINSTALLER, "/S _?=" + FOLDER)
        self.assertEqual(uninstaller.wait_exit(), IN_USE)
        self.assertEqual(self.installation.files(), before)
        self.assertEqual(self.installation.all_registry(), registry)
        window.close()
        self.assertEqual(self.installation.set_up(newer), 0)
        self.assert_version(NEWER)

    def test_a_file_that_somebody_put_beside_the_program_stays(self):
        self.assertEqual(self.installation.set_up(newer), 0)
        self.installation.command('copy C:\\windows\\win.ini "%s\\notes.txt"' % FOLDER)
        self.desktop.start(FOLDER + "\\" + UNINSTALLER, "/S _?=" + FOLDER).wait_exit()
        self.assertEqual(self.installation.files(), [UNINSTALLER, "notes.txt"])
        self.installation.command('rmdir /s /q "%s"' % FOLDER)

    def test_an_uninstaller_of_another_program_stays(self):
        elsewhere = "C:\\Tools"
        self.installation.command('mkdir "%s"' % elsewhere)
        self.installation.command('copy C:\\windows\\win.ini "%s\\uninstall.exe"' % elsewhere)
        self.assertEqual(self.installation.set_up(newer, "/D=" + elsewhere), 0)
        self.desktop.start(elsewhere + "\\" + UNINSTALLER, "/S _?=" + elsewhere).wait_exit()
        self.assertEqual(self.installation.files(elsewhere), [UNINSTALLER, "uninstall.exe"])
        self.installation.command('rmdir /s /q "%s"' % elsewhere)

    def test_a_file_that_cannot_be_written_breaks_it_off_and_the_exit_code_tells(self):
        self.installation.command('mkdir "%s\\default.loc\\in the way"' % FOLDER)
        self.assertEqual(self.installation.set_up(newer), BROKEN_OFF)
        self.assertFalse(self.installation.recorded())
        self.installation.command('rmdir /s /q "%s"' % FOLDER)

    def test_the_list_of_languages_stays_sound_where_somebody_else_has_an_entry(self):
        self.assertEqual(self.installation.set_up(newer), 0)
        self.desktop.write_registry(LANGUAGES, "1061", "C:\\Languages\\1061.loc")
        self.installation.remove_as_recorded()
        self.assertEqual(sorted(self.desktop.list_registry(LANGUAGES)[1]), ["0", "1061"])
        self.desktop.delete_registry(LANGUAGES.partition("\\Kestrelmoor")[0])


class Pages(SetupCase):
    """The windows of the set-up program, in two languages."""

    def open(self, language, *folder):
        self.process = self.desktop.start(setup_of(newer), ["/LANG=%d" % language, *folder])
        return self.desktop.wait_window(class_name="#32770", pid=self.process.pid)

    def press_first_button(self, window):
        self.desktop.click(self.desktop.child(window, 1))

    def walk(self, language, install, done):
        window = self.open(language)
        self.assertEqual(self.desktop.child(window, 1).text, install)
        self.picture("setup-%d-folder" % language, window)
        self.press_first_button(window)
        wait_until(lambda: done in [control.text for control in self.desktop.children(window)], done)
        self.picture("setup-%d-done" % language, window)
        self.press_first_button(window)
        self.assertEqual(self.process.wait_exit(), 0)
        self.assert_version(NEWER)
        self.assertEqual(self.installation.record("InstallLocation"), FOLDER)

    def test_in_english(self):
        self.walk(1033, "&Install", "Installation Complete")

    def test_in_german(self):
        self.walk(1031, "&Installieren", "Die Installation ist vollständig")

    def test_while_the_program_runs_a_box_asks_for_its_end_and_goes_on_then(self):
        self.assertEqual(self.installation.set_up(older), 0)
        network = PracticeNetwork(self.desktop)
        running = PasswordWindow(self.desktop, program=PROGRAM, variables=network.variables)
        window = self.open(1031)
        self.press_first_button(window)
        box = self.desktop.box("Installation von Kestrelmoor", self.process.pid)
        self.assertIn("Kestrelmoor läuft noch", box.text)
        self.assertEqual((len(box.buttons), box.icon), (2, "warning"))
        self.desktop.close_window(running.window)
        running.process.wait_exit()
        box.answer(box.buttons[0])
        wait_until(lambda: self.installation.record("DisplayVersion") == NEWER, "the newer version")
        wait_until(lambda: self.desktop.child(window, 1).enabled, "the way out")
        self.press_first_button(window)
        self.assertEqual(self.process.wait_exit(), 0)


class Package(SetupCase):
    def test_it_brings_the_same_files_and_takes_every_trace_along(self):
        self.assertEqual(self.installation.install_package(newer), 0)
        built = {path.name: path.read_bytes() for path in (newer.parent / "program").iterdir()}
        self.assertEqual({path.name: path.read_bytes() for path in self.installation.path().iterdir()}, built)
        self.assert_version(NEWER)
        self.assertEqual(sorted(self.installation.menu()), ["Kestrelmoor Help.lnk", "Kestrelmoor.lnk"])
        self.assertEqual(self.desktop.list_registry(LANGUAGES)[1][0], "0")
        self.assertEqual(self.installation.remove_package(newer), 0)
        self.assert_nothing_left()

    def test_over_an_older_package_what_is_no_longer_part_goes(self):
        self.assertEqual(self.installation.install_package(older), 0)
        self.assertIn(NORWEGIAN, self.installation.files())
        self.assertEqual(self.installation.install_package(newer), 0)
        self.assert_version(NEWER)
        self.assertEqual(self.installation.files(), built_names())
        self.installation.remove_as_recorded()
        self.assert_nothing_left()

    def test_another_folder_is_kept_by_the_next_version(self):
        elsewhere = "C:\\Password Tools"
        self.assertEqual(self.installation.install_package(older, "INSTALLDIR=" + elsewhere), 0)
        self.assertIn(NORWEGIAN, self.installation.files(elsewhere))
        self.assertEqual(self.installation.install_package(newer), 0)
        self.assertEqual(self.installation.files(elsewhere),
                         built_names())
        self.assertFalse(self.installation.path().exists())
        self.installation.remove_as_recorded()
        self.assert_nothing_left()

    def test_an_older_package_does_not_go_over_a_newer_one(self):
        self.assertEqual(self.installation.install_package(newer), 0)
        self.assertNotEqual(self.installation.install_package(older), 0)
        self.assert_version(NEWER)


class BothWays(SetupCase):
    def test_the_set_up_program_takes_the_place_of_the_package(self):
        self.assertEqual(self.installation.install_package(older), 0)
        self.assertEqual(self.installation.set_up(newer), 0)
        self.assert_version(NEWER)
        self.assertNotIn(NORWEGIAN, self.installation.files())
        self.assertIn(UNINSTALLER, self.installation.files())
        self.installation.remove_as_recorded()
        self.assert_nothing_left()

    def test_the_package_takes_the_place_of_the_set_up_program(self):
        self.assertEqual(self.installation.set_up(older), 0)
        self.assertEqual(self.installation.install_package(newer), 0)
        self.assert_version(NEWER)
        self.assertEqual(self.installation.files(), built_names())
        self.assertIsNone(self.installation.record("SetupUninstaller"))
        self.installation.remove_as_recorded()
        self.assert_nothing_left()


    def run_program(self):
        return PasswordWindow(self.desktop, program=PROGRAM, variables=PracticeNetwork(self.desktop).variables)

    def test_while_the_program_runs_the_set_up_program_leaves_the_package_alone(self):
        self.assertEqual(self.installation.install_package(older), 0)
        before, registry = self.installation.files(), self.installation.all_registry()
        self.run_program()
        self.assertEqual(self.installation.set_up(newer), IN_USE)
        self.assertEqual(self.installation.files(), before)
        self.assertEqual(self.installation.all_registry(), registry)

    def test_while_the_program_runs_the_package_fails_and_the_set_up_program_goes_on(self):
        self.assertEqual(self.installation.set_up(older), 0)
        running = self.run_program()
        self.assertNotEqual(self.installation.install_package(newer), 0)
        # What the package has not come to Wine takes back all the same, so other files are not looked at.
        self.assertLessEqual({"Moorlink.exe", UNINSTALLER, NORWEGIAN}, set(self.installation.files()))
        running.close()
        self.assertEqual(self.installation.set_up(newer), 0)
        self.assert_version(NEWER)
        self.assertNotIn(NORWEGIAN, self.installation.files())


class WholeRoad(SetupCase):
    def test_set_up_change_a_password_and_remove(self):
        self.assertLessEqual(setup_of(REAL).stat().st_size, LARGEST)
        self.assertEqual(self.installation.set_up(REAL), 0)
        network = PracticeNetwork(self.desktop)
        window = PasswordWindow(self.desktop, program=PROGRAM, variables=network.variables)
        window.change(OLD_PASSWORD, "New-Password-2")
        self.assertEqual(network.passwords()["ARCHIVE"], "New-Password-2")
        self.assertEqual(window.close(), 0)
        self.installation.remove_as_recorded()
        self.assert_nothing_left()


if __name__ == "__main__":
    unittest.main()
