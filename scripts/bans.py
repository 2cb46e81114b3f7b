#!/usr/bin/env python3
"""What the sources may not say or include: bans.py [FILE...], all of src without any.

A line that is meant says why, in a comment behind it or in the line above, starting with "plain:".
"""

import pathlib
import re
import subprocess
import sys

from arrows import ARROWS, reached_from, room_of

SCREENS = r"src/(capture|sheet|final)/"

# Where it holds, where it doesn't, what may not be said, and what to say instead.
BANS = [
    (r"src/", r"src/core/numbers\.cpp",
     r"\b(sto[dfil]|stold|strto\w+|ato[fil]|to_string|\w*printf|isdigit)\b|QString::number",
     "numbers go through core/numbers.h"),
    (SCREENS + r"|src/(core|stats|store)/", r"src/core/numbers\.cpp",
     r"\bstd::(pow|exp|log|log10|sqrt|cbrt)\b", "the operations of runtime/doble.h are checked"),
    (SCREENS + r"|src/stats/\w+\.cpp", None,
     r"^(?!.*\bconstexpr\b)(?!.*\bdouble points\b).*\b(double|float)\b", "a number is a Doble"),
    (SCREENS + r"|src/stats/", None, r"[\w)]\[", "an element is taken from an Array, by ()"),
    (r"src/qt/", None,
     r"\b(Form[1-6]|(Text|Label|Command|Combo)\d+|fondo\d|[a-zA-Z]+_Click)\b|\"salir\"",
     "qt knows no screen by name"),
    (r"src/", None, r"#\s*include\s+\".*\.\./", "a header is included by its room"),
]


def goes_against_the_arrows(name, code):
    """Whether a line of src includes from a room that isn't at the end of its arrows."""
    included = re.match(r'\s*#\s*include\s+"(\w+)/', code)
    if not included or not name.startswith("src/"):
        return False
    room = room_of(name.removeprefix("src/"))
    return room not in ARROWS or included[1] not in reached_from(room)


def findings(name, text):
    """The banned lines of a file of this name, from the root of the tree."""
    meant = False
    for number, line in enumerate(text.splitlines(), 1):
        code, _, comment = line.partition("//")
        plain = bool(re.match(r"[/<\s]*plain:", comment))
        if goes_against_the_arrows(name, code):
            yield f"{name}:{number}: no arrow leads there: {line.strip()}"
        if plain or meant:
            meant = plain and not code.strip()
            continue
        for where, but, banned, instead in BANS:
            holds = re.match(where, name) and not (but and re.match(but, name))
            if holds and re.search(banned, code):
                yield f"{name}:{number}: {instead}: {line.strip()}"


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    files = sys.argv[1:] or subprocess.run(
        ["git", "-C", root, "ls-files", "src/*.h", "src/*.cpp"], check=True, text=True,
        capture_output=True).stdout.split()
    found = [line for name in files for line in findings(name, (root / name).read_text())]
    for line in found:
        print(line, file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
