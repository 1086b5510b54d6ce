"""The set-up program and the package for fleets, as files: what they say, and that they can be made again."""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
INSTALLER = ROOT / "installer"
sys.path.insert(0, str(INSTALLER))

import product  # noqa: E402

LARGEST = 1200000
LANGUAGES = {"English", "German", "French", "Italian", "Spanish", "PortugueseBR", "Dutch", "Polish", "Czech",
             "Russian", "Ukrainian", "Turkish", "Japanese", "SimpChinese", "Korean"}


def build(program, out, *before, version="1.02.0084", **variables):
    """Returns {ending: path} of the two."""
    command = [*before, "/usr/bin/python3", "-B", INSTALLER / "build.py", "--program", program, "--out", out,
               "--version", version]
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, env={**os.environ, **variables})
    return {path.suffix: path for path in pathlib.Path(out).iterdir()}


def told(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


def table(package, name):
    """The rows of a package's table."""
    return [line.split("\t") for line in told("msiinfo", "export", package, name).splitlines()[3:]]


def package_code(package):
    return re.search(r"\{[-0-9A-F]{36}\}", told("msiinfo", "suminfo", package)).group()


class InstallerCase(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.program = self.folder / "program"
        shutil.copytree(ROOT / "out" / "program", self.program)
        shutil.copyfile(self.program / "default.loc", self.program / "1035.loc")


class Content(InstallerCase):
    def test_the_set_up_program_is_small(self):
        made = build(ROOT / "out" / "program", self.folder / "out")
        self.assertLessEqual(made[".exe"].stat().st_size, LARGEST)
        self.assertEqual("Kestrelmoor-1.02.0084-setup.exe", made[".exe"].name)

    def test_the_set_up_program_asks_for_an_administrator(self):
        program = build(self.program, self.folder / "out")[".exe"].read_bytes()
        self.assertEqual({b'level="requireAdministrator"'}, set(re.findall(rb'\blevel="\w+"', program)))

    def test_a_package_removes_an_older_one_ahead_of_its_own_files(self):
        package = build(self.program, self.folder / "out")[".msi"]
        order = {row[0]: int(row[2]) for row in table(package, "InstallExecuteSequence")}
        steps = ["InstallInitialize", "RemoveExistingProducts", "RemoveSetup", "RemoveFiles", "InstallFiles"]
        self.assertEqual(sorted(order[step] for step in steps), [order[step] for step in steps])

    def test_the_executable_in_a_package_bears_its_version(self):
        package = build(self.program, self.folder / "out", version="1.02.0085")[".msi"]
        versions = {row[2]: row[4] for row in table(package, "File")}
        self.assertEqual("1.2.0.85", versions["Moorlink.exe"])
        self.assertEqual("", versions["default.loc"])

    def test_a_package_hides_its_own_entry_and_is_for_all_users(self):
        properties = dict(table(build(self.program, self.folder / "out")[".msi"], "Property"))
        self.assertEqual(("1", "1"), (properties["ARPSYSTEMCOMPONENT"], properties["ALLUSERS"]))
        self.assertEqual("1.2.84", properties["ProductVersion"])

    def test_the_uninstaller_to_run_is_looked_for_with_the_rights_of_the_installation_alone(self):
        package = build(self.program, self.folder / "out")[".msi"]
        self.assertNotIn("AppSearch", [row[0] for row in table(package, "InstallUISequence")])
        self.assertNotIn("SETUPUNINSTALLER", dict(table(package, "Property"))["SecureCustomProperties"])

    def test_files_keep_the_rights_of_their_folder(self):
        package = build(self.program, self.folder / "out")[".msi"]
        self.assertEqual([], [name for name in told("msiinfo", "tables", package).split() if "Permission" in name])
        self.assertEqual(["RemoveSetup"], [row[0] for row in table(package, "CustomAction")])
        script = (INSTALLER / "setup" / "kestrelmoor.nsi").read_text(encoding="utf-8")
        self.assertEqual({"System", "UserInfo"}, set(re.findall(r"^ *(\w+)::", script, re.MULTILINE)))
        called = re.findall(r"^ *(?:Exec\w*|System::\w+) ['\"]+([$\w\\.:]+)", script, re.MULTILINE)
        self.assertEqual(["msi::MsiEnumRelatedProductsW", "$SYSDIR\\msiexec.exe", "$1"], called)

    def test_the_fifteen_languages_have_both_texts(self):
        script = (INSTALLER / "setup" / "texts.nsh").read_text(encoding="utf-8")
        found = re.findall(r'^!insertmacro LANGUAGE (\w+) \\\n  "([^"]+)" \\\n  "([^"]+)"$', script, re.MULTILINE)
        self.assertEqual(LANGUAGES, {name for name, *_ in found})
        self.assertEqual(2 * len(LANGUAGES), len({text for _, *texts in found for text in texts}))


class MachineLanguages(InstallerCase):
    def test_the_first_entry_of_the_list_is_the_automatic_choice(self):
        (self.program / "1029.loc").touch()
        values = product.Program(self.program).language_values()
        self.assertEqual([("0", "default.loc"), ("1029", "1029.loc"), ("1035", "1035.loc")],
                         [pair for pair in values.items() if pair[0] in ("0", "1029", "1035")])
        self.assertEqual("0", next(iter(values)))

    def test_without_a_library_beside_the_default_one_there_is_no_list(self):
        for path in self.program.glob("[0-9]*.loc"):
            path.unlink()
        self.assertEqual({}, product.Program(self.program).language_values())
        keys = [row[2] for row in table(build(self.program, self.folder / "out")[".msi"], "Registry")]
        self.assertNotIn(product.LANGUAGES_KEY, keys)
        self.assertIn(product.RECORD_KEY, keys)


class MadeAgain(InstallerCase):
    def test_on_another_day_in_another_folder_the_bytes_are_the_same(self):
        one = build(self.program, self.folder / "out")
        moved = self.folder / "somewhere" / "else"
        shutil.copytree(self.program, moved)
        for path in moved.iterdir():
            os.utime(path, (1000000000, 1000000000))
        other = build(moved, self.folder / "other", "faketime", "-f", "+400d")
        for ending in (".exe", ".msi"):
            self.assertTrue(one[ending].read_bytes() == other[ending].read_bytes(), ending)

    def test_other_content_makes_another_package_of_the_same_product(self):
        one = build(self.program, self.folder / "out")[".msi"]
        (self.program / "1035.loc").write_bytes(b"other")
        other = build(self.program, self.folder / "other")[".msi"]
        self.assertNotEqual(package_code(one), package_code(other))
        product_code = dict(table(one, "Property"))["ProductCode"]
        self.assertEqual(product_code, dict(table(other, "Property"))["ProductCode"])
        newer = build(self.program, self.folder / "newer", version="1.02.0085")[".msi"]
        self.assertNotEqual(product_code, dict(table(newer, "Property"))["ProductCode"])


class Signing(InstallerCase):
    def setUp(self):
        super().setUp()
        self.certificate, self.key = self.folder / "certificate.pem", self.folder / "key.pem"
        subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "3650",
                        "-subj", "/CN=Test", "-addext", "extendedKeyUsage=codeSigning",
                        "-keyout", self.key, "-out", self.certificate], check=True, stderr=subprocess.DEVNULL)
        self.variables = {"KESTRELMOOR_SIGNING_CERTIFICATE": str(self.certificate),
                          "KESTRELMOOR_SIGNING_KEY": str(self.key)}

    def sign(self, path):
        subprocess.run([ROOT / "tools" / "sign.sh", path], check=True, env={**os.environ, **self.variables})

    def is_signed(self, path):
        verified = subprocess.run(["osslsigncode", "verify", "-CAfile", self.certificate, "-in", path],
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return verified.returncode == 0

    def test_program_set_up_program_and_package_can_be_signed(self):
        made = build(self.program, self.folder / "out")
        for path in (self.program / "Moorlink.exe", made[".exe"], made[".msi"]):
            self.assertFalse(self.is_signed(path))
            self.sign(path)
            self.assertTrue(self.is_signed(path), path)

    def test_the_uninstaller_is_signed_before_it_is_packed(self):
        kept, script = self.folder / "uninstall.exe", self.folder / "sign.sh"
        script.write_text('#!/bin/sh\n"%s" "$1" && cp "$1" "%s"\n' % (ROOT / "tools" / "sign.sh", kept))
        script.chmod(0o755)
        build(self.program, self.folder / "out", SIGN_COMMAND=str(script), **self.variables)
        self.assertTrue(self.is_signed(kept))
        made = next((self.folder / "out").glob("*.exe"))
        self.assertNotEqual(kept.read_bytes(), made.read_bytes(), "that is the set-up program")


if __name__ == "__main__":
    unittest.main()
