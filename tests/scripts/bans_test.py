#!/usr/bin/env python3
"""scripts/bans.py finds what it is there for, src is free of it, and the commit hook asks it."""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))
import bans

# A file, a line that it may not hold, and one like it that it may.
LINES = [
    ("src/qt/window.cpp", "text = std::to_string(3);", "text = TextoEntero(3);"),
    ("src/app/main.cpp", "std::snprintf(text, 9, format);", "Print(text);"),
    ("src/sheet/form5.cpp", "const Doble x = std::pow(y, 2);", "const Doble x = Power(y, 2.0);"),
    ("src/sheet/form5.cpp", "double sum = 0;", "Doble sum = 0;"),
    ("src/capture/form4.cpp", "Text1[3].Text.clear();", "Text1(3).Text.clear();"),
    ("src/qt/canvas.cpp", "if (id == ScreenId::Form1) return;", "if (name.isEmpty()) return;"),
    ("src/sheet/form5.cpp", '#include "../final/form6.h"', '#include "core/grid.h"'),
    ("src/sheet/form5.cpp", '#include "final/form6.h"', '#include "stats/statistics.h"'),
    ("src/core/chain.cpp", "i = stoi(text);", "i = 3;  // no stoi(text)"),
    ("src/final/form6.cpp", "float x = 1;", "float x = 1;  // plain: why"),
]


class BansTest(unittest.TestCase):
    def test_a_banned_line_is_found_and_one_like_it_is_not(self):
        for name, bad, good in LINES:
            with self.subTest(bad):
                self.assertEqual(len(list(bans.findings(name, f"{good}\n{bad}\n"))), 1)
                self.assertEqual(list(bans.findings(name, good)), [])

    def test_the_sources_hold_none(self):
        done = subprocess.run([sys.executable, "-B", ROOT / "scripts/bans.py"], text=True,
                              capture_output=True)
        self.assertEqual((done.returncode, done.stderr), (0, ""))


@unittest.skipUnless(shutil.which("clang-format") and shutil.which("git"), "needs clang-format, git")
class HookTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tree = pathlib.Path(folder.name)
        for file in (".clang-format", "scripts/arrows.py", "scripts/bans.py",
                     "scripts/hooks/pre-commit"):
            (self.tree / file).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / file, self.tree / file)
        self.git("init", "-q")
        self.git("add", ".")

    def git(self, *words):
        return subprocess.run(
            ["git", "-c", "core.hooksPath=scripts/hooks", "-c", "user.name=t",
             "-c", "user.email=t@example.org", *words],
            cwd=self.tree, text=True, capture_output=True)

    def commit(self, text, then_in_folder=None):
        source = self.tree / "src/sheet/form5.cpp"
        source.parent.mkdir(parents=True, exist_ok=True)
        source.write_text(text)
        self.git("add", ".")
        if then_in_folder is not None:
            source.write_text(then_in_folder)
        return self.git("commit", "-qm", "One").returncode

    def test_what_is_clean_is_committed_whatever_lies_in_the_folder(self):
        self.assertEqual(self.commit("int a = 1;\n", then_in_folder="int  a=1;\n"), 0)

    def test_what_breaks_the_format_a_ban_or_an_arrow_is_not(self):
        for text in ("int  a=1;\n", "double a = 1;\n", '#include "final/form6.h"\n'):
            with self.subTest(text):
                self.assertNotEqual(self.commit(text, then_in_folder="int a = 1;\n"), 0)


if __name__ == "__main__":
    unittest.main()
