"""What the hardening flags came to: read off the program with readelf, and off the commands that
compiled it where a flag leaves no trace in a program that calls nothing it would check."""

import os
import subprocess
import sys
import unittest
from pathlib import Path

PROGRAM = os.environ["VELMORA"]
BUILD = Path(os.environ["BUILD"])
ROOT = Path(__file__).resolve().parents[2]
SOURCE = ROOT / "src"

sys.path.insert(0, str(ROOT / "tests/support"))
import compile_commands

FLAGS = ("-fstack-protector-strong", "-D_FORTIFY_SOURCE=2", "-D_GLIBCXX_ASSERTIONS",
         "-Werror=format-security", "-fPI")  # -fPIE or -fPIC


def readelf(option):
    return subprocess.run(["readelf", "--wide", option, PROGRAM], check=True, text=True,
                          capture_output=True, env={**os.environ, "LC_ALL": "C"}).stdout


class Program(unittest.TestCase):
    def test_stands_at_any_address(self):
        self.assertIn("PIE", readelf("--dynamic"))

    def test_has_all_its_relocations_read_only_before_it_starts(self):
        self.assertIn("GNU_RELRO", readelf("--program-headers"))
        self.assertIn("BIND_NOW", readelf("--dynamic"))

    def test_has_a_stack_that_does_not_run(self):
        stack = [line for line in readelf("--program-headers").splitlines() if "GNU_STACK" in line]
        self.assertEqual(len(stack), 1)
        self.assertIn(" RW ", stack[0])

    def test_guards_its_stack_and_the_standard_library_s_subscripts(self):
        symbols = readelf("--dyn-syms")
        self.assertIn("__stack_chk_fail", symbols)
        self.assertIn("__glibcxx_assert_fail", symbols)


class Commands(unittest.TestCase):
    def test_every_source_is_compiled_with_the_flags(self):
        commands = {source: entry["command"] for source, entry in
                    compile_commands.by_source(BUILD / "compile_commands.json")}
        # Those for Windows aren't compiled here.
        sources = sorted(source for source in SOURCE.rglob("*.cpp")
                         if source.parent.name != "windows"
                         and not source.stem.endswith("_windows"))
        self.assertGreater(len(sources), 30)
        for source in sources:
            for flag in FLAGS:
                with self.subTest(source=source.name, flag=flag):
                    self.assertIn(flag, commands[str(source)])


if __name__ == "__main__":
    unittest.main()
