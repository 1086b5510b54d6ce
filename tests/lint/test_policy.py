"""The presets for administrators: all files carry the same values, in the types that the program reads."""

import re
import unittest
import xml.etree.ElementTree as ElementTree

from sources import ROOT

POLICY = ROOT / "installer" / "policy"
SETTINGS = "Software\\Orvane\\Kestrelmoor"
RUN = "Software\\Microsoft\\Windows\\CurrentVersion\\Run"
PRESETS = {
    (SETTINGS, "Servers"): ("REG_MULTI_SZ", ["\\\\FILESERVER", "CORP"]),
    (SETTINGS, "Active"): ("REG_BINARY", b"\x03"),
    (SETTINGS, "ReminderTime"): ("REG_DWORD", 1814400),
    (RUN, "Kestrelmoor"): ("REG_SZ", "C:\\Program Files (x86)\\Kestrelmoor\\Moorlink.exe"),
}
NAMES = {"p": "http://schemas.microsoft.com/GroupPolicy/2006/07/PolicyDefinitions"}


def from_reg(data):
    """(type, value) of what stands behind the equals sign."""
    if data.startswith("hex(7):"):
        text = bytes.fromhex(data[7:].replace(",", "")).decode("utf-16-le")
        if not text.endswith("\0\0"):
            raise ValueError("a list without its end: %s" % data)
        return "REG_MULTI_SZ", text[:-2].split("\0")
    if data.startswith("hex:"):
        return "REG_BINARY", bytes.fromhex(data[4:].replace(",", ""))
    if data.startswith("dword:"):
        return "REG_DWORD", int(data[6:], 16)
    return "REG_SZ", data[1:-1].replace("\\\\", "\\")


def from_preference(properties):
    kind, value = properties.get("type"), properties.get("value")
    if kind == "REG_MULTI_SZ":
        return kind, [entry.text for entry in properties.findall("Values/Value")]
    if kind == "REG_BINARY":
        return kind, bytes.fromhex(value)
    return kind, int(value, 16) if kind == "REG_DWORD" else value


class Presets(unittest.TestCase):
    def test_the_file_for_the_registry_editor(self):
        content = (POLICY / "kestrelmoor.reg").read_bytes()
        # In a file of bytes the registry editor takes a list for bytes too.
        self.assertEqual(b"\xff\xfe", content[:2])
        lines = content.decode("utf-16").split("\r\n")
        self.assertEqual("Windows Registry Editor Version 5.00", lines[0])
        found, key = {}, None
        for line in lines:
            if line.startswith("["):
                key = line.strip("[]").removeprefix("HKEY_CURRENT_USER\\")
            elif line.startswith('"'):
                name, _, data = line.partition("=")
                found[key, name.strip('"')] = from_reg(data)
        self.assertEqual(PRESETS, found)

    def test_the_preferences(self):
        root = ElementTree.parse(POLICY / "Registry.xml").getroot()
        entries = [entry.find("Properties") for entry in root.findall("Registry")]
        self.assertEqual({"HKEY_CURRENT_USER"}, {entry.get("hive") for entry in entries})
        self.assertEqual(PRESETS, {(e.get("key"), e.get("name")): from_preference(e) for e in entries})
        self.assertEqual(len(entries), len({entry.get("uid") for entry in root.findall("Registry")}))

    def test_the_template_sets_all_but_the_targets_and_their_marks(self):
        kinds = {"multiText": "REG_MULTI_SZ", "decimal": "REG_DWORD", "text": "REG_SZ"}
        found = {}
        template = ElementTree.parse(POLICY / "kestrelmoor.admx").getroot()
        for policy in template.findall("p:policies/p:policy", NAMES):
            self.assertEqual("User", policy.get("class"))
            zero = policy.find("p:enabledValue/p:decimal", NAMES)
            if zero is not None and zero.get("value") == "0":
                found[policy.get("key"), policy.get("valueName")] = "REG_DWORD"
            for element in policy.findall("p:elements/*", NAMES):
                kind = kinds[re.sub("{.*}", "", element.tag)]
                found[policy.get("key"), element.get("valueName")] = kind
        expected = {key: kind for key, (kind, _) in PRESETS.items() if key[1] not in ("Servers", "Active")}
        self.assertEqual({**expected, (SETTINGS, "Options"): "REG_DWORD"}, found)

    def test_every_word_of_the_template_stands_in_its_language(self):
        template = (POLICY / "kestrelmoor.admx").read_text(encoding="utf-8")
        words = ElementTree.parse(POLICY / "en-US" / "kestrelmoor.adml").getroot()
        for kind, place in (("string", "p:resources/p:stringTable/p:string"),
                            ("presentation", "p:resources/p:presentationTable/p:presentation")):
            given = {entry.get("id") for entry in words.findall(place, NAMES)}
            self.assertEqual(set(re.findall(r"\$\(%s\.(\w+)\)" % kind, template)), given)
        shown = {box.get("refId") for box in words.findall(".//p:presentation/*", NAMES)}
        self.assertEqual(set(re.findall(r'<(?:multiText|decimal|text) id="(\w+)"', template)), shown)

    def test_the_defaults_of_the_template_are_the_presets(self):
        words = ElementTree.parse(POLICY / "en-US" / "kestrelmoor.adml").getroot()
        seconds = words.find(".//p:decimalTextBox", NAMES).get("defaultValue")
        self.assertEqual(PRESETS[SETTINGS, "ReminderTime"][1], int(seconds))
        self.assertEqual(PRESETS[RUN, "Kestrelmoor"][1], words.find(".//p:textBox/p:defaultValue", NAMES).text)


if __name__ == "__main__":
    unittest.main()
