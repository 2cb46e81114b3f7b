"""What Windows reads off the programs before it starts them: manifest, icon and version."""

import os
import pathlib
import re
import unittest
import zipfile
from xml.etree import ElementTree

import pefile

MANIFEST, ICONS = (pefile.RESOURCE_TYPE[f"RT_{kind}"] for kind in ("MANIFEST", "GROUP_ICON"))
TREE = pathlib.Path(__file__).resolve().parents[2]
PROGRAMS = ("velmora.exe", "velmora-informe.exe", "programa/velmora.exe")


def shipped():
    """The programs of the zip, by name."""
    with zipfile.ZipFile(os.environ["VELMORA_ZIP"]) as archive:
        return {name: pefile.PE(data=archive.read(f"Velmora/{name}")) for name in PROGRAMS}


def resource(program, kind):
    """The only resource of its kind."""
    (kind,) = (entry for entry in program.DIRECTORY_ENTRY_RESOURCE.entries if entry.id == kind)
    (named,) = kind.directory.entries
    (in_a_language,) = named.directory.entries
    place = in_a_language.data.struct
    return program.get_data(place.OffsetToData, place.Size)


def manifest(program):
    """Each element's text or, where it has none, attributes, by its name without namespace."""
    elements = ElementTree.fromstring(resource(program, MANIFEST)).iter()
    return {re.sub("{.*}", "", element.tag): (element.text or "").strip() or element.attrib
            for element in elements}


class Resources(unittest.TestCase):
    def test_manifest(self):
        for name, program in shipped().items():
            with self.subTest(name):
                told = manifest(program)
                self.assertEqual(told["requestedExecutionLevel"]["level"], "asInvoker")
                self.assertEqual(told["dpiAware"], "true/pm")
                self.assertEqual(told["dpiAwareness"], "PerMonitorV2, PerMonitor")
                self.assertEqual(told["longPathAware"], "true")
                self.assertEqual(told["activeCodePage"], "UTF-8")
                # The number that Microsoft's pages give for Windows 10 and 11.
                self.assertEqual(told["supportedOS"]["Id"],
                                 "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}")

    def test_the_installer_asks_for_no_administrator(self):
        told = manifest(pefile.PE(os.environ["VELMORA_INSTALLER"]))
        self.assertEqual(told["requestedExecutionLevel"]["level"], "asInvoker")

    def test_icon(self):
        sizes = [16, 24, 32, 48, 64, 128, 0]  # 0 stands for 256
        for name, program in shipped().items():
            with self.subTest(name):
                listed = resource(program, ICONS)[6:]  # the head tells how many there are
                self.assertEqual([listed[place] for place in range(0, len(listed), 14)], sizes)

    def test_version(self):
        version = re.search(r"project\(velmora VERSION (\S+)", (TREE / "CMakeLists.txt").read_text())
        for name, program in shipped().items():
            with self.subTest(name):
                (strings,) = (part for part in program.FileInfo[0] if part.Key == b"StringFileInfo")
                told = strings.StringTable[0].entries
                self.assertEqual(told[b"ProductName"], b"Velmora")
                self.assertEqual(told[b"FileVersion"].decode(), version[1])
                fixed = program.VS_FIXEDFILEINFO[0]
                numbers = [half for pair in (fixed.FileVersionMS, fixed.FileVersionLS)
                           for half in divmod(pair, 0x10000)]
                self.assertEqual(".".join(map(str, numbers)), f"{version[1]}.0")


if __name__ == "__main__":
    unittest.main()
