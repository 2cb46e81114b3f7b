#!/usr/bin/env python3
"""Changes one thing at a time in the rooms without Qt and sees whether a test notices.

    scripts/mutants.py --sample 10 --seed 7           ten of each room, by chance
    scripts/mutants.py --rooms sheet stats            two rooms
    scripts/mutants.py --files src/sheet/day_slots.cpp
    scripts/mutants.py                                all of them, which takes very long
    scripts/mutants.py --check                        is what docs/mutants.md explains still there?

Every number, letter, text and truth value, every comparison, arithmetic and logical operator and
every subscript is changed, one at a time, in a copy of the tree under build/mutants. The copy is
built, and the tests of the room run; those of the other rooms, too, when these notice nothing. The
table goes to build/mutants/table.tsv. Ends with status 1 when a mutant survives that
docs/mutants.md doesn't explain. What faults of the window are noticed: scripts/planted.sh.
"""

import argparse
import collections
import concurrent.futures
import dataclasses
import decimal
import pathlib
import queue
import random
import re
import resource
import shutil
import subprocess
import sys

TREE = pathlib.Path(__file__).resolve().parent.parent
WORK = TREE / "build/mutants"
PAGE = TREE / "docs/mutants.md"
# Qt, and what is for Windows. Of app, the screens alone are built without Qt.
WITHOUT_TESTS_HERE = (
    "src/qt/", "src/app/main.cpp", "src/app/informe.cpp", "src/app/program", "src/app/report_",
    "src/windows/", "src/store/path_windows",
)  # fmt: skip
SUITES = (  # the longest last
    "runtime", "stats", "core", "capture", "final", "report", "report_output", "sheet", "store",
)  # fmt: skip
CPU_SECONDS = 120  # of a run of tests; a mutant may loop for ever

TOKEN = re.compile(
    r"""
    (?P<skip>\s+|//[^\n]*|/\*.*?\*/|^\#[^\n]*) |
    (?P<string>"(?:[^"\\\n]|\\.)*") | (?P<char>'(?:[^'\\\n]|\\.)+') |
    (?P<number>(?:0[xX][0-9a-fA-F]+|\d+\.?\d*(?:[eE][+-]?\d+)?|\.\d+)[uUlLfF]*) |
    (?P<word>[A-Za-z_]\w*) |
    (?P<punct><=>|<<=|>>=|\.\.\.|->\*|->|::|<<|>>|<=|>=|==|!=|&&|\|\||\+\+|--|[-+*/%&|^]=|.)
    """,
    re.X | re.S | re.M,
)
# What an operator between blanks becomes; a bracket of a template has none.
OPERATORS = {
    "<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"), "==": ("!=",),
    "!=": ("==",), "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("*",), "&": ("|",),
    "|": ("&",), "&&": ("||",), "||": ("&&",), "+=": ("-=", "="), "-=": ("+=", "="),
}  # fmt: skip
PREFIXES = {"!": ("",), "++": ("--",), "--": ("++",)}
WORDS = {"true": ("false",), "false": ("true",)}


@dataclasses.dataclass
class Mutant:
    file: str
    line: int
    at: int
    length: int
    text: str  # in place of what stood there
    key: str  # tells it from all others, without line numbers
    verdict: str = ""  # the test that noticed; empty when none did


def nudged(number):
    """A literal with its last digit one up and one down."""
    digits, exponent, suffix = re.fullmatch(
        r"(0[xX][0-9a-fA-F]+|[\d.]+)((?:[eE][+-]?\d+)?)([uUlLfF]*)", number
    ).groups()
    if digits[:2] in ("0x", "0X"):
        value = int(digits, 16)
        return [f"0x{value + 1:X}{suffix}", f"0x{value - 1:X}{suffix}" if value else f"-1{suffix}"]
    value = decimal.Decimal(digits)
    step = decimal.Decimal(1).scaleb(value.as_tuple().exponent)
    return [f"{value + step}{exponent}{suffix}", f"({value - step}{exponent}{suffix})"]


def changes_of(kind, text, spaced):
    if kind == "number":
        return nudged(text)
    if kind == "char":
        return [f"({text} + 1)", f"({text} - 1)"]
    if kind == "string":
        return [text[:-1] + 'x"']
    if kind == "word":
        return WORDS.get(text, ())
    return OPERATORS.get(text, ()) if spaced else PREFIXES.get(text, ())


def place_of(lines, number):
    """The name of what a line stands in: the last thing that begins at a margin above it."""
    for line in reversed(lines[:number]):
        if not line[:1].isalpha() or re.match(r"namespace|public:|protected:|private:", line):
            continue
        if named := re.search(r"(\w+)\s*(?:[({=;]|:(?!:)|$)", line):
            return named[1]
    return "?"


def arrays(sources):
    """The names that are declared as arrays, taken with round brackets."""
    return set(re.findall(r"Array<[^;(]*> (\w+)[;{]", "".join(sources)))


def subscripts(source, names):
    """(place, text) of what stands in the brackets behind an array's name."""
    for opening in re.finditer(rf"\b(?:{'|'.join(sorted(names))})\(", source):
        depth, start = 1, opening.end()
        for i in range(start, len(source)):
            depth += {"(": 1, ")": -1}.get(source[i], 0)
            if depth == 0 or (depth == 1 and source[i] == ","):
                inner = source[start:i].strip()
                if inner and not inner.isdigit() and "\n" not in inner:
                    yield source.index(inner, start), inner
                start = i + 1
            if depth == 0:
                break


def edits_of(source, names):
    """(place, length, new text, what is said of it) of every change to a source."""
    for found in TOKEN.finditer(source):
        kind, text = found.lastgroup, found.group()
        spaced = source[found.start() - 1 : found.start()].isspace() and (
            source[found.end() : found.end() + 1].isspace()
        )
        for change in () if kind == "skip" else changes_of(kind, text, spaced):
            yield found.start(), len(text), change, f"{text} -> {change or '(nothing)'}"
    for at, inner in subscripts(source, names):
        for step in ("+ 1", "- 1"):
            yield at, len(inner), f"({inner}) {step}", f"({inner}) -> ({inner} {step})"


def mutants_of(path, names):
    source = path.read_text()
    lines, known = source.split("\n"), collections.Counter()
    name = str(path.relative_to(TREE))
    for at, length, text, what in edits_of(source, names):
        line = source.count("\n", 0, at) + 1
        key = f"{name}, {place_of(lines, line)}: {what}"
        known[key] += 1
        again = f" #{known[key]}" if known[key] > 1 else ""
        yield Mutant(name, line, at, length, text, key + again)


class Copy:
    """A copy of the tree, in which one mutant at a time stands."""

    def __init__(self, folder):
        self.folder = folder
        folder.mkdir(parents=True, exist_ok=True)
        files = subprocess.run(
            ["git", "ls-files", "-z"], cwd=TREE, capture_output=True, check=True, text=True
        ).stdout
        for name in files.split("\0")[:-1]:
            self.take(name)
        ccache = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
        quiet = {"stdout": subprocess.DEVNULL, "check": True, "cwd": folder}
        flags = ["-DCMAKE_CXX_FLAGS=-w", "-DCMAKE_CXX_FLAGS_DEBUG="]  # nobody steps through it
        subprocess.run(["cmake", "--preset", "core", *flags, *ccache], **quiet)
        for suite in SUITES:
            if not self.build(suite) or self.run(suite):
                sys.exit(f"test_{suite} doesn't pass as it stands")

    def take(self, name):
        """Copies a file that differs, so that it is newer than what a mutant of it was built to."""
        bytes_now, copy = (TREE / name).read_bytes(), self.folder / name
        if copy.exists() and copy.read_bytes() == bytes_now:
            return
        copy.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(TREE / name, copy)

    def build(self, suite):
        command = ["cmake", "--build", "build/core", "--target", f"test_{suite}", "-j2"]
        return subprocess.run(command, cwd=self.folder, capture_output=True).returncode == 0

    def run(self, suite):
        """The first test that fails, "" when all pass."""

        def limit():
            resource.setrlimit(resource.RLIMIT_CPU, (CPU_SECONDS, CPU_SECONDS))
            resource.setrlimit(resource.RLIMIT_AS, (4 << 30, 4 << 30))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

        command = [f"build/core/tests/test_{suite}", "--gtest_fail_fast", "--gtest_color=no"]
        try:
            done = subprocess.run(
                command, cwd=self.folder, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                preexec_fn=limit, timeout=20 * CPU_SECONDS,
            )  # fmt: skip
        except subprocess.TimeoutExpired:
            return f"test_{suite} (without end)"
        if done.returncode == 0:
            return ""
        failed = re.findall(rb"^\[  FAILED  \] (\S+)|^\[ RUN      \] (\S+)", done.stdout, re.M)
        named = [a or b for a, b in failed]
        return named[-1].decode() if named else f"test_{suite} (crash)"

    def judge(self, mutant):
        """The test that notices, "" for none, "(no program)" for what doesn't compile."""
        path = self.folder / mutant.file
        source = path.read_text()
        path.write_text(source[: mutant.at] + mutant.text + source[mutant.at + mutant.length :])
        room = mutant.file.split("/")[1]
        try:
            for suite in sorted(SUITES, key=lambda suite: not suite.startswith(room)):
                if not self.build(suite):
                    return "(no program)"
                if noticed := self.run(suite):
                    return noticed
            return ""
        finally:
            path.write_text(source)


def chosen(options):
    paths = [p for p in (TREE / "src").rglob("*") if p.suffix in (".h", ".cpp")]
    names = arrays(p.read_text() for p in paths)
    rooms = collections.defaultdict(list)
    for path in sorted(paths):
        name = str(path.relative_to(TREE))
        room = name.split("/")[1]
        wanted = name in (options.files or [name]) and room in (options.rooms or [room])
        if wanted and not name.startswith(WITHOUT_TESTS_HERE):
            rooms[room] += mutants_of(path, names)
    if options.sample:
        chance = random.Random(options.seed)
        rooms = {r: chance.sample(m, min(options.sample, len(m))) for r, m in rooms.items()}
    return [mutant for mutants in rooms.values() for mutant in mutants]


def explained_changes():
    return set(re.findall(r"^- `(src/.+)`$", PAGE.read_text(), re.M))


def check_page(mutants):
    """Whether each change that docs/mutants.md explains can still be made; names the others."""
    gone = explained_changes() - {mutant.key for mutant in mutants}
    for key in sorted(gone):
        print(f"docs/mutants.md explains what can't be changed any more: {key}")
    return not gone


def report(mutants):
    """Prints the rooms and what survived; whether all of that is explained."""
    explained = explained_changes()
    rooms = collections.defaultdict(collections.Counter)
    for mutant in mutants:
        kind = "survived" if not mutant.verdict else "noticed"
        if mutant.verdict == "(no program)":
            kind = "no program"
        elif not mutant.verdict and mutant.key in explained:
            kind = "explained"
        rooms[mutant.file.split("/")[1]][kind] += 1
        if kind == "survived":
            print(f"SURVIVED line {mutant.line} of {mutant.key}")
    kinds = ("noticed", "explained", "survived", "no program")
    for room, counts in sorted(rooms.items()):
        print(f"{room:8}", *(f"{counts[kind]:5} {kind}" for kind in kinds))
    return not any(counts["survived"] for counts in rooms.values())


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("--files", nargs="+", help="only these files of the tree")
    parser.add_argument("--rooms", nargs="+", help="only these rooms")
    parser.add_argument("--sample", type=int, help="only so many of each room, picked by chance")
    parser.add_argument("--seed", type=int, default=1, help="of the choice")
    parser.add_argument("--jobs", type=int, default=1, help="so many copies at a time")
    parser.add_argument("--list", action="store_true", help="say what would be changed, and stop")
    parser.add_argument("--check", action="store_true", help="only look over docs/mutants.md")
    options = parser.parse_args()
    mutants = chosen(options)
    if options.check:
        return 0 if check_page(mutants) else 1
    if options.list:
        print(*(mutant.key for mutant in mutants), sep="\n")
        return 0

    copies = queue.Queue()
    for job in range(options.jobs):
        copies.put(Copy(WORK / f"tree{job}"))

    def judge(mutant):
        copy = copies.get()
        try:
            mutant.verdict = copy.judge(mutant)
        finally:
            copies.put(copy)
        print(f"{mutant.verdict or 'SURVIVED'}\t{mutant.key}", file=table, flush=True)

    with open(WORK / "table.tsv", "w", encoding="utf-8") as table:
        with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
            list(pool.map(judge, mutants))
    return 0 if report(mutants) else 1


if __name__ == "__main__":
    sys.exit(main())
