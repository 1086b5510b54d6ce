"""With which rights Moorlink.exe asks to run."""

import unittest
import xml.etree.ElementTree

import pefile

from imports import PROGRAM

KIND = "{urn:schemas-microsoft-com:asm.v3}requestedExecutionLevel"


def manifest(program):
    """The one manifest that a program holds."""
    image = pefile.PE(str(program), fast_load=True)
    image.parse_data_directories([pefile.DIRECTORY_ENTRY["IMAGE_DIRECTORY_ENTRY_RESOURCE"]])
    wanted = pefile.RESOURCE_TYPE["RT_MANIFEST"]
    kind, = [entry for entry in image.DIRECTORY_ENTRY_RESOURCE.entries if entry.id == wanted]
    data, = [language.data.struct for name in kind.directory.entries for language in name.directory.entries]
    return xml.etree.ElementTree.fromstring(image.get_data(data.OffsetToData, data.Size))


@unittest.skipUnless(PROGRAM.exists(), "Moorlink.exe has not been built")
class Rights(unittest.TestCase):
    def test_the_program_asks_for_no_more_than_its_user_has(self):
        found = [(level.get("level"), level.get("uiAccess")) for level in manifest(PROGRAM).iter(KIND)]
        self.assertEqual([("asInvoker", "false")], found)


if __name__ == "__main__":
    unittest.main()
