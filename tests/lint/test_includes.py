"""The floors of the house: who may include whom."""

import re
import unittest

from sources import ROOT, relative, tracked

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
PLATFORM_HEADERS = re.compile(
    r"^(windows|win\w*|lm|lm\w+|ntsecapi|dsgetdc|winsock2?|commctrl|shlobj|objbase|oleauto|imm|tlhelp32"
    r"|unistd|dlfcn|fcntl|sys/.*)\.h$"
)
STREAMS = {"iostream", "fstream", "sstream", "filesystem", "locale", "regex"}


def includes(path):
    return INCLUDE.findall(path.read_text(encoding="utf-8"))


class Floors(unittest.TestCase):
    def setUp(self):
        self.sources = [
            path for path in tracked(".h", ".cpp", ".c") if path.is_relative_to(ROOT / "src")
        ]
        self.assertGreater(len(self.sources), 50)

    def offenders(self, below, forbidden):
        found = []
        for path in self.sources:
            if not path.is_relative_to(ROOT / "src" / below) and below:
                continue
            found += [
                "%s includes %s" % (relative(path), name)
                for bracket, name in includes(path)
                if forbidden(path, bracket, name)
            ]
        return found

    def test_logic_includes_no_header_of_a_platform(self):
        def forbidden(path, bracket, name):
            return "platform" not in path.parts and bracket == "<" and PLATFORM_HEADERS.match(name)

        self.assertEqual([], self.offenders("", forbidden))

    def test_platform_headers_know_only_the_run_time(self):
        def forbidden(path, bracket, name):
            return (
                path.parent.name == "platform"
                and bracket == '"'
                and not name.startswith(("runtime/", "platform/"))
            )

        self.assertEqual([], self.offenders("platform", forbidden))

    def test_the_run_time_knows_only_itself(self):
        self.assertEqual(
            [],
            self.offenders(
                "runtime", lambda _, bracket, name: bracket == '"' and not name.startswith("runtime/")
            ),
        )

    def test_the_account_services_know_no_form(self):
        self.assertEqual([], self.offenders("account", lambda _, bracket, name: name.startswith("forms/")))

    def test_nothing_that_the_oldest_system_or_the_size_forbids(self):
        def forbidden(path, bracket, name):
            return "practice" not in path.parts and bracket == "<" and name in STREAMS

        self.assertEqual([], self.offenders("", forbidden))

    def test_no_two_headers_include_each_other(self):
        graph = {}
        for path in self.sources:
            if path.suffix == ".h":
                graph[str(path.relative_to(ROOT / "src"))] = [
                    name for bracket, name in includes(path) if bracket == '"'
                ]
        finished = set()

        def cycle_from(header, trail):
            if header in trail:
                return trail[trail.index(header) :] + [header]
            if header in finished:
                return None
            for name in graph.get(header, []):
                found = cycle_from(name, trail + [header])
                if found:
                    return found
            finished.add(header)
            return None

        self.assertEqual([], [cycle for cycle in (cycle_from(header, []) for header in graph) if cycle])


class PlatformConditions(unittest.TestCase):
    def test_no_condition_on_the_platform_outside_its_folder(self):
        condition = re.compile(r"^\s*#\s*(if|ifdef|ifndef|elif).*(_WIN32|WIN32|__linux__|__unix__)", re.MULTILINE)
        found = [
            relative(path)
            for path in tracked(".h", ".cpp")
            if path.is_relative_to(ROOT / "src")
            and "platform" not in path.parts
            and condition.search(path.read_text(encoding="utf-8"))
        ]
        self.assertEqual([], found)
