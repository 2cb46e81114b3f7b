#!/usr/bin/env python3
"""Which rooms a source of src can include from: exactly those that its arrows lead to.

Asks the compiler, with each source's own command, and the plan in the documents:
arrows_test.py COMPILE_COMMANDS SOURCE_FOLDER
"""

import pathlib
import re
import shlex
import subprocess
import sys
import unittest
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "scripts"), str(ROOT / "tests/support")]
from arrows import ARROWS, reached_from, room_of
import compile_commands


class Compiler:
    """One source's compile command, put to other texts."""

    def __init__(self, entry):
        words = shlex.split(entry["command"])
        drop = words.index("-o")
        self.words = [w for i, w in enumerate(words)
                      if i not in (drop, drop + 1) and w not in ("-c", entry["file"], "ccache")]
        self.folder = entry["directory"]

    def run(self, text, *options):
        return subprocess.run([*self.words, "-x", "c++", *options, "-"], input=text, text=True,
                              cwd=self.folder, capture_output=True)

    def found(self, headers):
        """Those of the headers, by name, that an include would find."""
        asked = "".join(f"#if __has_include({spelled})\nfound {name}\n#endif\n"
                        for name, spelled in headers.items())
        answer = self.run(asked, "-E", "-P")
        assert answer.returncode == 0, answer.stderr
        return {line.split()[1] for line in answer.stdout.splitlines() if line.startswith("found ")}


class ArrowsTest(unittest.TestCase):
    def setUp(self):
        commands, source = map(pathlib.Path, sys.argv[1:])
        rooms = [folder for folder in sorted((source / "src").iterdir()) if folder.is_dir()]
        self.headers = {room.name: f'"{room.name}/{header.name}"'
                        for room in rooms for header in sorted(room.glob("*.h"))[:1]}
        self.headers["<Qt>"] = "<QString>"
        self.compilers = {}
        for file, entry in compile_commands.by_source(commands):
            path = pathlib.Path(file)
            if source / "src" in path.parents:
                self.compilers[str(path.relative_to(source / "src"))] = Compiler(entry)
        self.assertGreater(len(self.compilers), 20)

    def test_a_source_finds_the_headers_at_the_end_of_its_arrows_and_no_others(self):
        by_command = {}
        for file, compiler in self.compilers.items():
            by_command.setdefault((room_of(file), tuple(compiler.words)), (file, compiler))
        for file, compiler in by_command.values():
            with self.subTest(file):
                self.assertIn(room_of(file), ARROWS)
                self.assertEqual(compiler.found(self.headers), reached_from(room_of(file)))

    def test_an_include_against_the_arrows_does_not_compile(self):
        for file, header in (("core/chain.cpp", "sheet/form5.h"),
                             ("sheet/form5.cpp", "final/form6.h")):
            with self.subTest(file):
                compiler = self.compilers[file]
                text = pathlib.Path(sys.argv[2], "src", file).read_text()
                self.assertEqual(compiler.run(text, "-fsyntax-only").stderr, "")
                forbidden = compiler.run(f'#include "{header}"\n{text}', "-fsyntax-only")
                self.assertNotEqual(forbidden.returncode, 0)
                self.assertRegex(forbidden.stderr, f"{header}.*(No such file|not found)")


class PlanTest(unittest.TestCase):
    """The drawn plan: each room a group of a box and its name, each arrow a path between two."""

    SVG = "{http://www.w3.org/2000/svg}"
    GAP = 5  # between an arrow's tip and its box, in the plan's units

    def setUp(self):
        plan = xml.etree.ElementTree.parse(ROOT / "docs/images/architecture.svg")
        self.boxes = {}
        for group in plan.iterfind(f"{self.SVG}g"):
            if (box := group.find(f"{self.SVG}rect")) is not None:
                self.boxes[group.find(f"{self.SVG}text").text] = [
                    int(box.get(side)) for side in ("x", "y", "width", "height")]
        self.arrows = [[int(number) for number in re.findall(r"-?\d+", path.get("d"))]
                       for path in plan.iterfind(f"{self.SVG}g/{self.SVG}path")]

    def room_at(self, x, y):
        rooms = [room for room, (left, top, width, height) in self.boxes.items()
                 if -self.GAP <= x - left <= width + self.GAP
                 and -self.GAP <= y - top <= height + self.GAP]
        self.assertEqual(len(rooms), 1, f"{rooms} at {x} {y}")
        return rooms[0]

    @staticmethod
    def drawn_room(name):
        return "app/screens" if name == "app/screens.cpp" else name.split("/")[0]

    def test_it_shows_every_arrow_and_no_other(self):
        drawn = {(self.room_at(*arrow[:2]), self.room_at(*arrow[-2:])) for arrow in self.arrows}
        meant = {(self.drawn_room(room), self.drawn_room(target))
                 for room, targets in ARROWS.items() for target in targets if target != "<Qt>"}
        # The files of app know each other, and its screens its declarations.
        meant -= {("app", "app"), ("app/screens", "app")}
        self.assertEqual(drawn, meant)
        self.assertEqual(len(drawn), len(self.arrows))

    def test_every_arrow_leads_downward(self):
        for arrow in self.arrows:
            heights = arrow[1::2]
            self.assertEqual(heights, sorted(heights), arrow)
            self.assertLess(heights[0], heights[-1], arrow)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
