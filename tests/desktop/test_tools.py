"""The desktop tools themselves, tried on a small program of their own (driver/test_window.cpp)."""

import os
import subprocess
import sys
import tempfile
import unittest

from desktop import OUT, Desktop, wait_until
from desktop_case import PICTURES, DesktopCase
from driver_pipe import DriverError
from wine_desktop import WINE_ROOT
import windows_registry

PROGRAM = OUT / "desktop" / "test_window.exe"
NAME, PASSWORD, GREET, ASK, ROWS, COLOUR, LABEL, PENS = range(100, 108)
LB_SETCURSEL, LB_FINDSTRING = 0x0186, 0x018F


def png_size(path):
    with open(path, "rb") as file:
        head = file.read(24)
    assert head[:8] == b"\x89PNG\r\n\x1a\n", "no PNG"
    return int.from_bytes(head[16:20], "big"), int.from_bytes(head[20:24], "big")


class WindowTools(DesktopCase):
    def setUp(self):
        self.program = self.desktop.start(PROGRAM)
        self.window = self.desktop.wait_window(class_name="frmTest", pid=self.program.pid)
        # A key that is pressed earlier goes to nobody.
        wait_until(lambda: self.desktop.input_state(self.window).focus, "the window with the focus")

    def control(self, identifier):
        return self.desktop.child(self.window, identifier)

    def test_window_is_listed_with_title_place_and_state(self):
        self.assertEqual(self.window.title, "Test window")
        self.assertEqual((self.window.place.left, self.window.place.top), (200, 150))
        self.assertTrue(self.window.visible and self.window.enabled)
        self.assertEqual(self.desktop.client_area(self.window).width, 280)

    def test_children_are_listed_in_window_order_with_their_places(self):
        children = self.desktop.children(self.window)
        self.assertEqual([c.id for c in children], [LABEL, NAME, PASSWORD, GREET, ASK, PENS, ROWS, COLOUR])
        self.assertEqual(tuple(children[1].place), (110, 10, 270, 30))
        self.assertEqual([c.text for c in children if c.class_name == "Button"], ["&Greet", "&Ask", "&Pens"])
        self.assertEqual({c.id: c.password for c in children if c.password}, {PASSWORD: "\u2022"})

    def test_child_that_is_not_there_is_an_error(self):
        with self.assertRaises(LookupError):
            self.desktop.child(self.window, 999)

    def test_typed_text_arrives_whole_also_beyond_the_keyboard(self):
        text = "aB1!\"\\ €ßж語"
        self.desktop.type(text)
        self.desktop.wait_text(self.control(NAME), text)

    def test_surrogate_pairs_arrive_whole(self):
        self.desktop.type("a\U0001F600b")
        self.desktop.wait_text(self.control(NAME), "a\U0001F600b")

    def test_text_with_tab_line_break_and_backslash_passes_unchanged(self):
        text = "a\tb\\n"
        self.desktop.send_text(self.control(NAME), 0x000C, 0, text)
        self.assertEqual(self.desktop.text(self.control(NAME)), text)

    def test_click_moves_the_focus(self):
        self.desktop.wait_focus(self.window, NAME)
        self.desktop.click(self.control(PASSWORD))
        self.desktop.wait_focus(self.window, PASSWORD)

    def test_tab_and_shift_tab_move_the_focus(self):
        self.desktop.wait_focus(self.window, NAME)
        self.desktop.press("Tab")
        self.desktop.wait_focus(self.window, PASSWORD)
        self.desktop.press("Shift+Tab")
        self.desktop.wait_focus(self.window, NAME)

    def test_box_shows_what_was_typed_and_is_answered_by_a_click(self):
        self.desktop.type("user")
        self.desktop.click(self.control(PASSWORD))
        self.desktop.type("secret")
        self.desktop.click(self.control(GREET))
        box = self.desktop.box()
        self.picture("tools_box")
        self.assertEqual((box.title, box.text), ("Greeting", "Hello user\r\nsecret"))
        self.assertEqual((box.buttons, box.default, box.icon), (["OK"], "OK", "information"))
        self.assertFalse(self.desktop.window(self.window).enabled)
        box.answer("OK")
        self.assertTrue(self.desktop.window(self.window).enabled)

    def test_box_tells_its_default_button_and_question_icon(self):
        self.desktop.press("Alt+A")
        box = self.desktop.box("Question")
        self.assertEqual((box.buttons, box.default, box.icon), (["Yes", "No"], "No", "question"))
        box.answer("Yes")
        self.desktop.wait_text(self.control(NAME), "It is so.")

    def test_box_is_answered_by_a_key(self):
        self.desktop.press("Alt+A")
        self.desktop.box("Question").press("Enter")
        self.assertEqual(self.desktop.text(self.control(NAME)), "")

    def test_no_click_is_lost_in_a_row_of_boxes(self):
        for _ in range(10):
            self.desktop.click(self.control(GREET))
            self.desktop.box().answer("OK")

    def test_rows_of_list_and_drop_down_list(self):
        self.assertEqual(self.desktop.rows(self.control(ROWS)),
                         [("first", False, 0), ("second", True, 0), ("third", False, 0)])
        self.assertEqual(self.desktop.rows(self.control(COLOUR)), [("red", True, 0), ("green", False, 0)])
        self.assertEqual(self.desktop.list_state(self.control(ROWS)), (1, 0))

    def test_click_at_a_place_selects_that_row(self):
        self.desktop.click(self.control(ROWS), at=(20, 5))
        wait_until(lambda: self.desktop.list_state(self.control(ROWS))[0] == 0, "the first row selected")

    def test_messages_give_their_results(self):
        self.assertEqual(self.desktop.send_text(self.control(ROWS), LB_FINDSTRING, -1, "thi"), 2)
        self.assertEqual(self.desktop.send(self.control(ROWS), LB_SETCURSEL, 77), -1)

    def test_closed_window_ends_the_program_with_its_code(self):
        self.assertIsNone(self.program.exit_code())
        self.desktop.close_window(self.window)
        self.assertEqual(self.program.wait_exit(), 7)
        self.assertIsNone(self.desktop.window(self.window))

    def test_program_that_stays_is_told_from_one_that_ended(self):
        with self.assertRaises(TimeoutError):
            self.program.wait_exit(0.05)

    def test_window_that_never_comes_is_a_timeout(self):
        with self.assertRaises(TimeoutError):
            self.desktop.wait_window("no such title", timeout=0.1)

    def test_sound_layout_has_no_faults(self):
        self.assertEqual(self.desktop.layout_faults(self.window), [])

    def test_loaded_libraries_are_listed(self):
        modules = self.desktop.modules(self.program)
        self.assertIn("user32.dll", modules)
        self.assertEqual(modules["test_window.exe"], self.desktop.windows_path(PROGRAM))
        self.assertNotIn("comdlg32.dll", modules)

    def test_made_gdi_objects_are_counted(self):
        self.desktop.click(self.control(PENS))
        wait_until(lambda: self.desktop.focus(self.window).id == PENS, "the first pens")
        before = self.desktop.handles(self.program)
        self.desktop.press("Alt+P")
        wait_until(lambda: self.desktop.handles(self.program)["gdi"] == before["gdi"] + 25, "25 pens more")
        self.assertGreaterEqual(before["windows"], 9)
        self.assertGreater(before["kernel"], 0)

    def test_pictures_have_the_size_of_screen_and_window(self):
        self.picture("tools_screen")
        self.picture("tools_window", self.window)
        self.assertEqual(png_size(PICTURES / "tools_screen.png"), (1280, 960))
        self.assertEqual(png_size(PICTURES / "tools_window.png"),
                         (self.window.place.width, self.window.place.height))


class SlowWindow(DesktopCase):
    def test_key_waits_until_the_window_looks_at_its_messages(self):
        program = self.desktop.start(PROGRAM, "/slow")
        window = self.desktop.wait_window(class_name="frmTest", pid=program.pid)
        wait_until(lambda: self.desktop.input_state(window).focus == window.handle, "the focus on the window")
        self.desktop.press("Alt+A")
        self.assertNotEqual(self.desktop.input_state(window).focus, window.handle)
        self.desktop.box("Question").press("Enter")


class ProgramTools(DesktopCase):
    options = {
        "registry": {"HKCU\\Software\\Kestrelmoor test": {"text": 'a "b" \\ ß', "number": 7, "": "unnamed",
                                                          "raw": (3, b"\x00\xff"), "odd": (1, b"ab\x00")}},
        "variables": {"TEST_WINDOW_TITLE": "from the desktop"},
    }
    KEY = "HKCU\\Software\\Kestrelmoor test"

    def test_variables_reach_the_program(self):
        self.desktop.start(PROGRAM)
        self.desktop.wait_window("from the desktop", "frmTest")

    def test_variables_of_one_start_hold_for_it_alone(self):
        self.desktop.start(PROGRAM, variables={"TEST_WINDOW_OTHER": "x", "TEST_WINDOW_TITLE": "of one start"})
        self.desktop.wait_window("of one start", "frmTest")
        self.desktop.start(PROGRAM)
        self.desktop.wait_window("from the desktop", "frmTest")

    def test_layout_faults_are_found_each(self):
        program = self.desktop.start(PROGRAM, "/bad")
        window = self.desktop.wait_window(class_name="frmTest", pid=program.pid)
        self.picture("tools_layout_faults", window)
        faults = self.desktop.layout_faults(window)
        self.assertEqual(sorted((kind, one.id, other and other.id) for kind, one, other, _ in faults),
                         [("high", 111, None), ("outside", 114, None), ("overlap", 112, 113),
                          ("wide", 110, None)])
        allowed = self.desktop.layout_faults(window, allow=[(113, 112)])
        self.assertNotIn("overlap", [kind for kind, *_ in allowed])

    def test_registry_entries_are_there_from_the_start(self):
        self.assertEqual(self.desktop.registry_value(self.KEY, "text"), 'a "b" \\ ß')
        self.assertEqual(self.desktop.registry_value(self.KEY, "number"), 7)
        self.assertEqual(self.desktop.registry_value(self.KEY, ""), "unnamed")
        self.assertEqual(self.desktop.read_registry(self.KEY, "raw"), (3, b"\x00\xff"))
        self.assertEqual(self.desktop.read_registry(self.KEY, "odd"), (1, b"ab\x00"))

    def test_registry_is_written_listed_and_deleted(self):
        key = "HKCU\\Software\\Kestrelmoor other"
        self.assertIsNone(self.desktop.read_registry(key, "x"))
        self.desktop.write_registry(key, "x", "text")
        self.desktop.write_registry(key + "\\below", "n", 5)
        self.assertEqual(self.desktop.read_registry(key, "x"), (1, "text\0".encode("utf-16-le")))
        self.assertEqual(self.desktop.list_registry(key), (["below"], ["x"]))
        self.desktop.delete_registry(key, "x")
        self.assertIsNone(self.desktop.read_registry(key, "x"))
        self.desktop.delete_registry(key)
        self.assertEqual(self.desktop.list_registry(key), ([], []))

    def test_end_of_the_session_is_refused_and_counted(self):
        bystander = self.desktop.start(PROGRAM)
        self.desktop.wait_window(class_name="frmTest", pid=bystander.pid)
        self.desktop.guard_session()
        self.assertEqual(self.desktop.session_endings(), 0)
        self.assertEqual(self.desktop.start(PROGRAM, "/end").wait_exit(), 3)
        wait_until(lambda: self.desktop.session_endings() == 1, "the session's end asked for once")
        self.assertIsNone(bystander.exit_code())

    def test_program_that_can_not_be_started_is_an_error(self):
        with self.assertRaisesRegex(DriverError, "code 2"):
            self.desktop.start(OUT / "desktop" / "no_such.exe")

    def test_folder_out_of_sight_is_an_error(self):
        with self.assertRaises(ValueError):
            self.desktop.windows_path("/usr")

    def test_work_folder_is_shared_both_ways(self):
        (self.desktop.work / "in.txt").write_text("content")
        copy = self.desktop.start("C:\\windows\\system32\\cmd.exe", "/c copy in.txt out.txt",
                                  cwd=self.desktop.work)
        self.assertEqual(copy.wait_exit(), 0)
        self.assertEqual((self.desktop.work / "out.txt").read_text(), "content")

    def test_output_of_a_program_is_kept(self):
        first, second = [self.desktop.start("C:\\windows\\system32\\cmd.exe", "/c " + command)
                         for command in ("echo one", "dir no_such_file")]
        self.assertEqual((first.wait_exit(), second.wait_exit()), (0, 1))
        self.assertEqual(first.output().strip(), "one")
        self.assertIn("not found", second.output())


class Resolution(unittest.TestCase):
    def test_dots_per_inch_reach_the_programs(self):
        with Desktop(dpi=192) as desktop:
            self.assertEqual(desktop.screen(), (1280, 960, 192))


class ReplacedLibrary(unittest.TestCase):
    def load(self, desktop):
        return desktop.start(PROGRAM, "/load netapi32.dll").wait_exit()

    def test_library_put_into_the_system_folder_is_used_in_place_of_wines_own(self):
        # A file that is no library shows which of the two is taken.
        broken = OUT / "desktop" / "broken.dll"
        broken.write_bytes(b"no library")
        with Desktop(dlls={"netapi32.dll": broken}) as desktop:
            self.assertEqual(self.load(desktop), 1)
        with Desktop() as desktop:
            self.assertEqual(self.load(desktop), 0)


class NoWineToBeHad(unittest.TestCase):
    def test_without_root_rights_one_line_names_the_remedy(self):
        with tempfile.TemporaryDirectory() as cache:
            os.chmod(cache, 0o777)
            made = subprocess.run(["setpriv", "--reuid", "65534", "--clear-groups", str(WINE_ROOT), "make"],
                                  env={"PATH": "/usr/bin:/bin", "HOME": "/", "KESTRELMOOR_CACHE": cache},
                                  capture_output=True, text=True)
        self.assertEqual((made.returncode, made.stdout), (77, ""))
        self.assertEqual(made.stderr,
                         "No Wine for 32-bit programs: install wine32, or run as root once.\n")


class Ending(unittest.TestCase):
    def descendants(self):
        """Command lines of all processes that bear this test's mark in their environment."""
        found = []
        for entry in os.listdir("/proc"):
            try:
                with open("/proc/%s/environ" % entry, "rb") as environment:
                    if ("KESTRELMOOR_MARK=%d" % os.getpid()).encode() in environment.read():
                        with open("/proc/%s/cmdline" % entry, "rb") as line:
                            found.append(line.read().replace(b"\0", b" ").decode())
            except OSError:
                continue
        return found

    def test_nothing_is_left_after_the_driver_was_killed(self):
        with Desktop(variables={"KESTRELMOOR_MARK": str(os.getpid())}) as desktop:
            desktop.start(PROGRAM)
            self.assertGreater(len(self.descendants()), 4)
            desktop.driver._process.kill()
            wait_until(lambda: not self.descendants(), "all processes ended")
            with self.assertRaises((DriverError, BrokenPipeError)):
                desktop.windows()

    def test_nothing_is_left_after_the_test_runner_was_killed(self):
        script = ("import sys, time; from desktop import Desktop\n"
                  "desktop = Desktop(variables={'KESTRELMOOR_MARK': '%d'})\n"
                  "desktop.__enter__(); desktop.windows()\n"
                  "print(desktop._base, desktop._screen.pid, flush=True); time.sleep(60)\n") % os.getpid()
        runner = subprocess.Popen([sys.executable, "-B", "-c", script], stdout=subprocess.PIPE, text=True,
                                  env={**os.environ, "KESTRELMOOR_MARK": str(os.getpid())},
                                  cwd=os.path.dirname(os.path.abspath(__file__)))
        folder, screen = runner.stdout.readline().split()
        self.addCleanup(subprocess.run, ["rm", "-rf", folder])
        self.assertGreater(len(self.descendants()), 3)
        runner.kill()
        runner.wait()
        runner.stdout.close()
        wait_until(lambda: not self.descendants() and not os.path.exists("/proc/" + screen),
                   "all processes ended")
        with open("/proc/mounts") as mounts:
            self.assertNotIn("kestrelmoor", mounts.read())


class RegistryFiles(unittest.TestCase):
    def test_values_become_the_bytes_of_their_types(self):
        self.assertEqual(windows_registry.to_bytes("ab"), (1, b"a\0b\0\0\0"))
        self.assertEqual(windows_registry.to_bytes(258), (4, b"\x02\x01\0\0"))
        self.assertEqual(windows_registry.to_bytes(-1), (4, b"\xff\xff\xff\xff"))
        self.assertEqual(windows_registry.to_bytes(b"\x01"), (3, b"\x01"))
        self.assertEqual(windows_registry.from_bytes(7, b"\0\0"), b"\0\0")


if __name__ == "__main__":
    unittest.main()
