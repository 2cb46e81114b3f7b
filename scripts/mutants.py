#!/usr/bin/env python3
"""Changes one thing at a time in the rooms of the calculation and sees whether a test notices.

    scripts/mutants.py                                  all of src/sheet, stats, store and core
    scripts/mutants.py --files src/sheet/day_slots.cpp  some files
    scripts/mutants.py --rerun                          only those that nothing killed the last time

Every number, letter, text and truth value, every comparison, arithmetic and logical operator and
every subscript is changed, one at a time. What is computed while the program runs is compiled once
with all of its changes inside and picked by the environment variable VELMORA_MUTANT; the rest
(array sizes, case labels, && and ||, ++ and +=, bit operators) is compiled anew, file by file.

Works on a copy in a scratch folder (--work) and never writes into the tree. The table goes to
table.tsv there: number, place, change, what killed it. Ends with status 1 when a mutant survives
that docs/mutants.md doesn't explain.
"""

import argparse
import collections
import concurrent.futures
import dataclasses
import decimal
import json
import os
import pathlib
import re
import resource
import shutil
import signal
import subprocess
import sys
import threading
import time

TREE = pathlib.Path(__file__).resolve().parent.parent
ROOMS = ("sheet", "stats", "store", "core")
SUITES = ("runtime", "stats", "core", "store", "capture", "final", "sheet")
OPEN = ("", "?", "(never reached)")
# Tests that may see a table that is filled before any test runs.
TABLES_SEEN_BY = {
    "sheet": ("sheet", "core"),
    "stats": ("stats", "sheet"),
    "store": ("store", "core"),
    "core": ("core", "sheet", "capture", "final"),
}
# Of those, the tests that see where the controls stand and what they look like.
LAYOUT = {"src/sheet/form5.cpp": re.compile(r"Sheet(Layout)?Test\.|ScreensTest\.|ControlsTest\.")}
# Tests that take longer come last, and only those of the mutant's own room: they read the same
# lines thousands of times.
SLOW_MS = 600
FLAGS = ["-std=c++20", "-O0", "-ffp-contract=off", "-w", "-Wno-narrowing"]

MUTANT_H = r"""
#pragma once
#include <cstdlib>
#include <type_traits>

namespace mm {

extern int active;
extern bool* hit;
[[noreturn]] void NotApplicable();

/// Which of the changes of a place is active: 0 for none.
inline int Which(int id, int changes) {
    hit[id] = true;
    return active >= id && active < id + changes ? active - id + 1 : 0;
}

template <class T>
T Pick(int id, T a, std::type_identity_t<T> b, std::type_identity_t<T> c) {
    const int w = Which(id, 2);
    return w == 0 ? a : w == 1 ? b : c;
}
inline const char* Text(int id, const char* a, const char* b) { return Which(id, 1) == 0 ? a : b; }
inline bool Truth(int id, bool a) { return (Which(id, 1) == 0) == a; }

template <class T>
auto Idx(int id, const T& i) {
    const int w = Which(id, 2);
    using D = std::decay_t<T>;
    return w == 0 ? D(i) : w == 1 ? D(i + D(1)) : D(i - D(1));
}

struct Not { int id; };
template <class T>
bool operator*(Not n, const T& x) { return static_cast<bool>(x) == (Which(n.id, 1) != 0); }

struct Neg { int id; };
template <class T>
auto operator*(Neg n, const T& x) { return Which(n.id, 1) == 0 ? -x : +x; }

/// The mutants of an array's bounds, for an array that stands in a record by its own name.
struct Place { int id; };

// An operator becomes two of the same rank with one of these between them.
struct Rel { int id; char op; };  // l < , L <= , g > , G >=
template <class A> struct RelL { const A& a; Rel r; };
template <class A>
RelL<A> operator<=(const A& a, Rel r) { return {a, r}; }
template <class A, class B>
bool operator<=(const RelL<A>& l, const B& b) {
    const int w = Which(l.r.id, 2);
    switch (l.r.op) {
        case 'l': return w == 0 ? l.a < b : w == 1 ? l.a <= b : l.a >= b;
        case 'L': return w == 0 ? l.a <= b : w == 1 ? l.a < b : l.a > b;
        case 'g': return w == 0 ? l.a > b : w == 1 ? l.a >= b : l.a <= b;
        default: return w == 0 ? l.a >= b : w == 1 ? l.a > b : l.a < b;
    }
}

struct Eq { int id; bool equal; };
template <class A> struct EqL { const A& a; Eq r; };
template <class A>
EqL<A> operator==(const A& a, Eq r) { return {a, r}; }
template <class A, class B>
bool operator==(const EqL<A>& l, const B& b) {
    return ((Which(l.r.id, 1) == 0) == l.r.equal) == static_cast<bool>(l.a == b);
}

struct Add { int id; char op; };
template <class A> struct AddL { const A& a; Add r; };
template <class A>
AddL<A> operator+(const A& a, Add r) { return {a, r}; }
template <class A, class B>
auto operator+(const AddL<A>& l, const B& b) {
    const bool plus = (Which(l.r.id, 1) == 0) == (l.r.op == '+');
    if constexpr (requires { l.a + b; } && requires { l.a - b; }) {
        if constexpr (std::is_same_v<decltype(l.a + b), decltype(l.a - b)>) {
            return plus ? l.a + b : l.a - b;
        } else if constexpr (std::is_pointer_v<std::decay_t<A>>) {
            if (!plus) NotApplicable();
            return l.a + b;
        }
    } else if constexpr (requires { l.a + b; }) {
        if (!plus) NotApplicable();
        return l.a + b;
    } else {
        if (plus) NotApplicable();
        return l.a - b;
    }
}

struct Mul { int id; char op; };
template <class A> struct MulL { const A& a; Mul r; };
template <class A>
MulL<A> operator*(const A& a, Mul r) { return {a, r}; }
template <class A, class B>
auto operator*(const MulL<A>& l, const B& b) {
    const bool changed = Which(l.r.id, 1) != 0;
    if constexpr (requires { l.a % b; }) {
        if (l.r.op == '%') return changed ? l.a * b : l.a % b;
    }
    if constexpr (requires { l.a / b; }) {
        if (l.r.op == '*') return changed ? l.a / b : l.a * b;
        return changed ? l.a * b : l.a / b;
    } else {
        if (changed) NotApplicable();
        return l.a * b;
    }
}

}  // namespace mm
"""

MUTANT_CPP = r"""
#include <gtest/gtest.h>

#include <cstdio>

#include "mutant.h"

namespace mm {

namespace {
constexpr int kMost = 20000;
bool hits[kMost];
}  // namespace

bool* hit = hits;
int active = 0;

// Ahead of the tables, which are filled before main runs.
__attribute__((constructor(101))) void ReadMutant() {
    if (const char* id = std::getenv("VELMORA_MUTANT")) active = std::atoi(id);
}

void NotApplicable() { std::_Exit(77); }

namespace {

// Tells for each test which places it ran through, and how long it took.
class Tracer : public testing::EmptyTestEventListener {
public:
    explicit Tracer(const char* path) : out_(std::fopen(path, "w")) { Say("", 0); }
    void OnTestEnd(const testing::TestInfo& test) override {
        Say(std::string(test.test_suite_name()) + "." + test.name(),
            test.result()->elapsed_time());
    }
    void OnTestProgramEnd(const testing::UnitTest&) override { std::fclose(out_); }

private:
    void Say(const std::string& name, long long ms) {
        std::fprintf(out_, "%s\t%lld\t", name.c_str(), ms);
        for (int i = 0; i < kMost; ++i) {
            if (hits[i]) std::fprintf(out_, "%d ", i);
            hits[i] = false;
        }
        std::fprintf(out_, "\n");
    }
    std::FILE* out_;
};

}  // namespace
}  // namespace mm

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (const char* path = std::getenv("VELMORA_TRACE")) {
        testing::UnitTest::GetInstance()->listeners().Append(new mm::Tracer(path));
    }
    return RUN_ALL_TESTS();
}
"""

# The array of the record, with bounds that a mutant may move; room for one more at either end.
ARRAY_H = r"""
#pragma once

#include <array>
#include <cstddef>

#include "mutant.h"
#include "runtime/entero.h"
#include "runtime/error.h"

namespace velmora {

template <class T, int First, int Last, int Mut = 0>
class Array {
    static int First_(int id) {
        return id == 0 ? First : mm::Pick(id, First, First + 1, First - 1);
    }
    static int Last_(int id) {
        return id == 0 ? Last : mm::Pick(id + 2, Last, Last + 1, Last - 1);
    }
    struct BoundF { operator int() const { return First_(Mut); } };
    struct BoundL { operator int() const { return Last_(Mut); } };
    int F() const { return First_(id_); }
    int L() const { return Last_(id_); }

public:
    Array() = default;
    explicit Array(mm::Place place) : id_(place.id) {}

    static constexpr BoundF kFirst{};
    static constexpr BoundL kLast{};

    T& operator()(int i) { return elements_[Place(i)]; }
    const T& operator()(int i) const { return elements_[Place(i)]; }
    T& operator()(Entero i) { return (*this)(i.Valor()); }
    const T& operator()(Entero i) const { return (*this)(i.Valor()); }
    template <class I, class J, class... Rest>
    auto& operator()(I i, J j, Rest... rest) {
        return (*this)(i)(j, rest...);
    }
    template <class I, class J, class... Rest>
    const auto& operator()(I i, J j, Rest... rest) const {
        return (*this)(i)(j, rest...);
    }

    auto begin() { return elements_.begin() + 1 + (F() - First); }
    auto end() { return elements_.begin() + 2 + (L() - First); }
    auto begin() const { return elements_.begin() + 1 + (F() - First); }
    auto end() const { return elements_.begin() + 2 + (L() - First); }

    friend bool operator==(const Array&, const Array&) = default;

private:
    std::size_t Place(int i) const {
        if (i < F() || i > L()) throw ErrorEjecucion(TipoError::SubindiceFueraDeRango);
        return static_cast<std::size_t>(i - First + 1);
    }
    int id_ = Mut;  ///< first of the four mutants of its bounds, 0 for none
    std::array<T, static_cast<std::size_t>(Last - First + 3)> elements_{};
};

}  // namespace velmora
"""

# What is taken with round brackets and a subscript.
ARRAYS = {
    "Text1", "Text3", "Label3", "Label7", "muestras", "fila7", "hoja_guardada", "celdas",
    "DatosEmpresa", "TiempoExposicion", "Muestras30", "Muestras15", "NumContaminantes",
    "NombreContaminante", "VlaEd", "VlaEc", "TiempoMuestreo", "Aditivo", "Unidades", "MG", "GSD",
    "MGmas", "GSDmas", "HojaPrimerDia", "HojaSegundoDia", "HojaTercerDia", "HojaFinal", "at",
}

TOKEN = re.compile(
    r"""
    (?P<space>\s+) | (?P<comment>//[^\n]*|/\*.*?\*/) | (?P<pre>^\#[^\n]*) |
    (?P<string>"(?:[^"\\\n]|\\.)*") | (?P<char>'(?:[^'\\\n]|\\.)+') |
    (?P<number>(?:0[xX][0-9a-fA-F]+|\d+\.?\d*(?:[eE][+-]?\d+)?|\.\d+)[uUlLfF]*) |
    (?P<word>[A-Za-z_]\w*) |
    (?P<punct><=>|<<=|>>=|\.\.\.|->\*|->|::|<<|>>|<=|>=|==|!=|&&|\|\||\+\+|--|[-+*/%&|^]=|.)
    """,
    re.X | re.S | re.M,
)


@dataclasses.dataclass
class Token:
    kind: str
    text: str
    at: int
    line: int
    before: bool = False  # a blank stands ahead of it
    after: bool = False
    angle: int = 0  # how many template brackets it stands in
    case: bool = False  # part of a case label

    @property
    def end(self):
        return self.at + len(self.text)


@dataclasses.dataclass
class Mutant:
    id: int
    file: str
    line: int
    what: str
    text: str  # the line of the source, for the table
    edit: tuple = ()  # (place, length, new text) where it is compiled anew
    place: int = 0  # the first number of its place, by which the tests that pass it are known
    key: str = ""  # tells it from all others and outlives changes elsewhere in the file
    killed_by: str = ""


def tokens_of(source):
    tokens, line, blank, comment = [], 1, True, False
    for match in TOKEN.finditer(source):
        kind, text = match.lastgroup, match.group()
        if kind in ("space", "comment", "pre"):
            blank = True
            if tokens:
                tokens[-1].after = True
        else:
            tokens.append(Token(kind, text, match.start(), line, blank))
            blank = False
        line += text.count("\n")
    angles, case = [], False
    for i, token in enumerate(tokens):
        previous = tokens[i - 1].text if i else ""
        token.case = case
        if token.text == "case":
            case = True
        elif token.text == ":" and case:
            case = token.case = False
        if token.text == "<" and (not token.before or previous == "template"):
            angles.append(token)
        elif token.text in (">", ">>") and angles and not token.before:
            del angles[-len(token.text):]
        token.angle = len(angles)
    return tokens


def nudged(number):
    """A numeric literal with its last digit one up and one down."""
    match = re.fullmatch(r"(0[xX][0-9a-fA-F]+|[\d.]+)((?:[eE][+-]?\d+)?)([uUlLfF]*)", number)
    digits, exponent, suffix = match.groups()
    if digits[:2] in ("0x", "0X"):
        value = int(digits, 16)
        return [f"0x{value + 1:X}{suffix}", f"0x{value - 1:X}{suffix}" if value else f"-1{suffix}"]
    value = decimal.Decimal(digits)
    step = decimal.Decimal(1).scaleb(value.as_tuple().exponent)
    return [f"{value + step}{exponent}{suffix}", f"({value - step}{exponent}{suffix})"]


class Numbers:
    def __init__(self):
        self.next = 1

    def take(self, n):
        first = self.next
        self.next += n
        return first


class Source:
    """A file of the rooms: its mutants, and its text with all of them inside."""

    def __init__(self, path, numbers, constants):
        self.path = path
        self.name = str(path.relative_to(TREE))
        self.header = path.suffix == ".h"
        self.source = path.read_text()
        self.tokens = tokens_of(self.source)
        self.lines = self.source.split("\n")
        self.numbers = numbers
        self.constants = constants
        self.edits = []  # (place, length, new text)
        self.inserts = []  # (place, order, text)
        self.mutants = []
        self.known = collections.Counter()
        self.find()

    def add(self, token, what, place, k=0, edit=()):
        text = self.lines[token.line - 1].strip()
        mutant = Mutant(place + k, self.name, token.line, what, text, edit, place)
        self.known[f"{self.name}: {text} | {what}"] += 1
        n = self.known[f"{self.name}: {text} | {what}"]
        mutant.key = f"{self.name}: {text} | {what}" + (f" #{n}" if n > 1 else "")
        self.mutants.append(mutant)

    def replace(self, token, text):
        self.edits.append((token.at, len(token.text), text))

    def inside(self, token, changes, text):
        """A place that is computed while the program runs; `text` is made from its first number."""
        first = self.numbers.take(len(changes))
        for k, change in enumerate(changes):
            self.add(token, f"{token.text} -> {change}", first, k)
        self.replace(token, text(first))

    def anew(self, token, *changes):
        for change in changes:
            self.add(token, f"{token.text} -> {change}", self.numbers.take(1),
                     edit=(token.at, len(token.text), change))

    def find(self):
        for i, token in enumerate(self.tokens):
            previous = self.tokens[i - 1] if i else Token("", "", 0, 0)
            following = self.tokens[i + 1] if i + 1 < len(self.tokens) else Token("", "", 0, 0)
            self.constant(i, token, previous, following)
            self.operator(i, token, previous, following)
            self.subscript(i, token, previous)

    def constant(self, i, token, previous, following):
        if token.text == "constexpr":
            if previous.text != "if":
                self.replace(token, constness(self.tokens, i))
            return
        if token.kind == "word" and token.angle and token.text in self.constants:
            start = token
            if previous.text == "::":
                start = self.tokens[i - 2]
            self.edits.append((start.at, token.end - start.at, self.constants[token.text]))
            return
        if token.kind == "number":
            if token.angle:
                self.bound(i, token)
            elif token.case or self.macro_like(i):
                self.anew(token, *nudged(token.text))
            else:
                up, down = nudged(token.text)
                self.inside(token, [up, down],
                            lambda n: f"mm::Pick({n}, {token.text}, {up}, {down})")
        elif token.kind == "char":
            changes = [f"({token.text} + 1)", f"({token.text} - 1)"]
            if token.case:
                self.anew(token, *changes)
            else:
                self.inside(token, changes,
                            lambda n: f"mm::Pick<char>({n}, {token.text}, {token.text} + 1, "
                                      f"{token.text} - 1)")
        elif token.kind == "string" and "string" not in (previous.kind, following.kind):
            change = token.text[:-1] + 'x"'
            self.inside(token, [change], lambda n: f"mm::Text({n}, {token.text}, {change})")
        elif token.text in ("true", "false"):
            self.inside(token, ["false" if token.text == "true" else "true"],
                        lambda n: f"mm::Truth({n}, {token.text})")

    def macro_like(self, i):
        return any(t.text == "static_assert" for t in self.tokens[max(0, i - 12):i])

    def bound(self, i, token):
        """A number between template brackets: an array's bound, or something compiled anew."""
        opened, j = 0, i
        while True:
            j -= 1
            text = self.tokens[j].text
            if text in (">", ">>"):
                opened += len(text)
            elif text == "<":
                if opened == 0:
                    break
                opened -= 1
        if self.tokens[j - 1].text != "Array":
            self.anew(token, *nudged(token.text))
            return
        if self.tokens[i + 1].text == ",":  # the first bound; the last one takes its numbers along
            last = self.tokens[i + 2]
            first_id = self.numbers.take(4)
            for k, (which, change) in enumerate(
                    [(token, c) for c in nudged(token.text)] +
                    [(last, c) for c in nudged(last.text)]):
                self.add(which, f"bound {which.text} -> {change}", first_id + k // 2 * 2, k % 2)
            name, end = self.tokens[i + 4:i + 6]
            if name.kind == "word" and end.text == ";":
                self.edits.append((name.end, 0, f"{{mm::Place{{{first_id}}}}}"))
            else:
                self.edits.append((last.end, 0, f", {first_id}"))

    def operator(self, i, token, previous, following):
        if token.kind != "punct" or previous.text == "operator":
            return
        binary = token.before and token.after
        text = token.text
        if text in ("<", "<=", ">", ">=") and binary and not token.angle:
            changes = {"<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"]}
            letter = {"<": "l", "<=": "L", ">": "g", ">=": "G"}[text]
            self.inside(token, changes[text], lambda n: f"<= mm::Rel{{{n}, '{letter}'}} <=")
        elif text in ("==", "!="):
            self.inside(token, ["!=" if text == "==" else "=="],
                        lambda n: f"== mm::Eq{{{n}, {'true' if text == '==' else 'false'}}} ==")
        elif text in ("+", "-") and binary:
            self.inside(token, ["-" if text == "+" else "+"],
                        lambda n: f"+ mm::Add{{{n}, '{text}'}} +")
        elif text in ("*", "/", "%") and binary:
            self.inside(token, ["/" if text == "*" else "*"],
                        lambda n: f"* mm::Mul{{{n}, '{text}'}} *")
        elif text == "!" and not token.after:
            self.inside(token, ["(nothing)"], lambda n: f"mm::Not{{{n}}} * ")
        elif text == "-" and not token.after and (
                previous.kind == "punct" and previous.text not in (")", "]") or
                previous.text == "return"):
            self.inside(token, ["+"], lambda n: f"mm::Neg{{{n}}} * ")
        elif text in ("&&", "||") and binary:
            self.anew(token, "||" if text == "&&" else "&&")
        elif text in ("++", "--"):
            self.anew(token, "--" if text == "++" else "++")
            if self.tokens[i + 2].text != ")":  # a loop without its step would never end
                self.anew(token, "")
        elif text in ("+=", "-="):
            self.anew(token, "-=" if text == "+=" else "+=", "=")
        elif text in ("&", "|") and binary:
            self.anew(token, "|" if text == "&" else "&")
        elif text in ("<<", ">>") and binary and (following.kind == "number"):
            self.anew(token, ">>" if text == "<<" else "<<")
        elif text == "~":
            self.anew(token, "")

    def subscript(self, i, token, previous):
        if token.text not in ("(", "[") or token.before or previous.angle:
            return
        if token.text == "(":
            known = previous.text in ARRAYS or (
                previous.text == ")" and self.tokens[i - 3].text == "*" and
                self.tokens[i - 4].text == "(")
            if not known:
                return
        elif previous.kind != "word" and previous.text not in (")", "]"):
            return
        depth, start, parts = 0, i + 1, []
        j = i
        while True:
            text = self.tokens[j].text
            if text in ("(", "[", "{"):
                depth += 1
            elif text in (")", "]", "}"):
                depth -= 1
            if (text == "," and depth == 1) or depth == 0:
                parts.append((start, j))
                start = j + 1
            if depth == 0:
                break
            j += 1
        for start, end in parts:
            inner = self.tokens[start:end]
            if not inner or len(inner) == 1 and inner[0].kind == "number":
                continue
            first = self.numbers.take(2)
            shown = self.source[inner[0].at:inner[-1].end].replace("\n", " ")
            for k, change in enumerate(("+ 1", "- 1")):
                self.add(inner[0], f"subscript {shown} -> {shown} {change}", first, k)
            self.inserts.append((inner[0].at, -inner[-1].end, f"mm::Idx({first}, "))
            self.inserts.append((inner[-1].end, 10**9 - inner[0].at, ")"))

    def with_all(self):
        """The text with all mutants that are picked while it runs."""
        return apply(self.source, self.edits, self.inserts)

    def with_one(self, mutant):
        """The text with one mutant that is compiled anew."""
        edits = [e for e in self.edits if "constexpr" in self.source[e[0]:e[0] + e[1]]]
        edits += [e for e in self.edits if e[1] > 0 and e[2].isdigit()]  # bounds by name
        if mutant.edit[0] not in [e[0] for e in edits]:
            edits.append(mutant.edit)
        return apply(self.source, edits, [])


def constness(tokens, i):
    """What stands for `constexpr` where tables are filled as the program starts."""
    for token in tokens[i + 1:]:
        if token.text == "(" and not token.angle:
            return "inline"
        if token.text in ("=", "{", ";"):
            break
    return "inline const" if in_class(tokens, i) else "const"


def in_class(tokens, i):
    """Whether the innermost brace around a token is that of a class."""
    depth = 0
    while i > 0 and depth <= 0:
        i -= 1
        depth += {"{": 1, "}": -1}.get(tokens[i].text, 0)
    while i > 0 and tokens[i - 1].text not in (";", "{", "}"):
        i -= 1
        if tokens[i].text in ("class", "struct"):
            return depth > 0
    return False


def apply(source, edits, inserts):
    places = [(at, 1, 0, length, text) for at, length, text in edits]
    places += [(at, 0 if text != ")" else -1, order, 0, text) for at, order, text in inserts]
    out, last = [], 0
    for at, _, _, length, text in sorted(places):
        out += [source[last:at], text]
        last = at + length
    return "".join(out) + source[last:]


def without_constexpr(source):
    tokens = tokens_of(source)
    edits = [(t.at, len(t.text), constness(tokens, i)) for i, t in enumerate(tokens)
             if t.text == "constexpr" and tokens[i - 1].text != "if"]
    return apply(source, edits, [])


class Build:
    """The copy of the tree with all mutants inside, and its test programs."""

    def __init__(self, work, sources, jobs):
        self.work, self.sources, self.jobs = work, sources, jobs
        self.copy = work / "tree"
        self.libraries = []  # object files of src
        self.tests = {}  # room -> object files of its tests

    def write(self, path, text):
        path.parent.mkdir(parents=True, exist_ok=True)
        if not path.exists() or path.read_text() != text:
            path.write_text(text)

    def make(self, changed=None):
        """Writes the copy and builds it; `changed` gives some files another text."""
        mutated = {source.name: source for source in self.sources}
        for path in sorted((TREE / "src").rglob("*")):
            name = str(path.relative_to(TREE))
            if path.suffix not in (".h", ".cpp") or name.startswith("src/qt/"):
                continue
            if name == "src/runtime/array.h":
                text = ARRAY_H
            elif name in mutated:
                text = '#include "mutant.h"\n' + mutated[name].with_all()
                text = text.replace("#pragma once\n", "", 1)
                if path.suffix == ".h":
                    text = "#pragma once\n" + text
            elif name.split("/")[1] in ("capture", "final"):
                text = without_constexpr(path.read_text())
            else:
                text = path.read_text()
            self.write(self.copy / name, (changed or {}).get(name, text))
        self.write(self.copy / "src/mutant.h", MUTANT_H)
        self.write(self.copy / "src/mutant.cpp", MUTANT_CPP)
        for path in sorted((TREE / "tests").rglob("*")):
            part = path.relative_to(TREE / "tests").parts[0]
            if path.suffix in (".h", ".cpp") and part in SUITES + ("support",):
                self.write(self.copy / path.relative_to(TREE), path.read_text())
        self.ninja()

    def ninja(self):
        lines = [
            "rule cc",
            f"  command = {' '.join(COMPILER)} {' '.join(FLAGS)} -MMD -MF $out.d "
            f"-I{self.copy}/src -I{self.copy}/tests -c $in -o $out",
            "  depfile = $out.d",
            "  deps = gcc",
            "rule link",
            "  command = g++ $in -lgmock -lgtest -lpthread -o $out",
        ]
        for path in sorted((self.copy / "src").rglob("*.cpp")):
            if path.name in ("main.cpp",) or "qt" in path.parts:
                continue
            if path.parent.name == "app" and path.name != "screens.cpp":
                continue
            self.libraries.append(self.object_of(path))
            lines.append(f"build {self.object_of(path)}: cc {path}")
        for room in SUITES:
            objects = []
            for path in sorted((self.copy / "tests" / room).glob("*.cpp")):
                if not (TREE / path.relative_to(self.copy)).exists():
                    continue
                objects.append(self.object_of(path))
                lines.append(f"build {self.object_of(path)}: cc {path}")
            self.tests[room] = objects
            lines.append(f"build {self.program(room)}: link "
                         f"{' '.join(map(str, objects + self.libraries))}")
        self.write(self.work / "build.ninja", "\n".join(lines) + "\n")
        subprocess.run(["ninja", "-C", str(self.work), "-j", str(self.jobs), "--quiet"], check=True)

    def object_of(self, path):
        return self.work / "objects" / (str(path.relative_to(self.copy)).replace("/", "_") + ".o")

    def program(self, room):
        return self.work / f"test_{room}"

    def one_program(self, source, mutant, folder, rooms):
        """Builds the tests of some rooms, one by one, with one file compiled anew; nothing if it
        doesn't compile."""
        folder.mkdir(parents=True, exist_ok=True)
        changed = folder / pathlib.Path(mutant.file).name
        changed.write_text('#include "mutant.h"\n' + source.with_one(mutant))
        object_file = folder / "changed.o"
        compiled = subprocess.run(
            [*COMPILER, *FLAGS, f"-I{self.copy}/src", "-c", str(changed), "-o", str(object_file)],
            capture_output=True)
        if compiled.returncode != 0:
            return
        replaced = self.object_of(self.copy / mutant.file)
        for room in rooms:
            objects = [o for o in self.tests[room] + self.libraries if o != replaced]
            program = folder / f"test_{room}"
            subprocess.run(["g++", *map(str, objects), str(object_file), "-lgmock", "-lgtest",
                            "-lpthread", "-o", str(program)], check=True)
            yield room, program


COMPILER = (["ccache"] if shutil.which("ccache") else []) + ["g++"]


def limits(seconds):
    """Of a run of tests: processor time, which doesn't depend on what else runs, and memory."""
    resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds))
    resource.setrlimit(resource.RLIMIT_AS, (3 << 30, 3 << 30))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    os.nice(3)


FAILED = re.compile(rb"^\[  FAILED  \] ([\w/.]+)", re.M)
RUNNING = re.compile(rb"^\[ RUN      \] ([\w/.]+)", re.M)


class Runner:
    """Runs the tests that pass through a mutant, those that killed its neighbours first."""

    def __init__(self, build, work):
        self.build, self.work = build, work
        self.hits = collections.defaultdict(set)  # mutant -> {(room, test)}
        self.at_start = set()  # mutants that are passed through before any test
        self.quick = collections.defaultdict(list)  # room -> tests
        self.ms = {}  # (room, test) -> how long it takes
        self.slow = collections.defaultdict(list)
        self.slow_hits = collections.defaultdict(set)
        self.killers = collections.defaultdict(list)  # file -> tests, the latest first
        self.lock = threading.Lock()

    def trace(self):
        for room in SUITES:
            path = self.work / f"trace_{room}"
            done = self.run(room, self.build.program(room), 0, None,
                            {"VELMORA_TRACE": str(path)}, fail_fast=False)
            if done:
                sys.exit(f"test_{room} fails without any mutant: {done}")
            for line in path.read_text().splitlines():
                name, ms, ids = line.split("\t")
                ids = {int(n) for n in ids.split()}
                if not name:
                    self.at_start |= ids
                    continue
                self.ms[room, name] = int(ms)
                slow = int(ms) > SLOW_MS
                (self.slow if slow else self.quick)[room].append(name)
                for n in ids:
                    (self.slow_hits if slow else self.hits)[n].add((room, name))

    def run(self, room, program, mutant, tests, more=None, fail_fast=True):
        """The name of the test that fails, "" when all pass."""
        usual = sum(self.ms.get((room, test), 0) for test in tests or ()) / 1000
        limit = int(5 + 4 * usual) if tests else 300
        name = threading.current_thread().name.replace(" ", "_")
        scratch = self.work / "scratch" / name
        scratch.mkdir(parents=True, exist_ok=True)
        environment = {**os.environ, "VELMORA_MUTANT": str(mutant), "TMPDIR": str(scratch),
                       **(more or {})}
        command = [str(program), "--gtest_color=no"] + (["--gtest_fail_fast"] if fail_fast else [])
        if tests is not None:
            flags = scratch / "flags"
            flags.write_text("--gtest_filter=" + ":".join(tests) + "\n")
            command.append(f"--gtest_flagfile={flags}")
        try:
            done = subprocess.run(command, env=environment, cwd=scratch, stdout=subprocess.PIPE,
                                  stderr=subprocess.DEVNULL, timeout=20 * limit,
                                  preexec_fn=lambda: limits(limit))
        except subprocess.TimeoutExpired as late:
            running = RUNNING.findall(late.stdout or b"")
            return (running[-1].decode() if running else "start") + " (time-out)"
        if done.returncode in (-signal.SIGXCPU, -signal.SIGKILL):
            return (RUNNING.findall(done.stdout) or [b"start"])[-1].decode() + " (time-out)"
        if done.returncode == 77:
            return "(not applicable)"
        if done.returncode == 0:
            return ""
        failed = FAILED.findall(done.stdout)
        if failed:
            return failed[0].decode()
        running = RUNNING.findall(done.stdout)
        return (running[-1].decode() if running else "start") + " (crash)"

    def order(self, room_of_file):
        return sorted(SUITES, key=lambda room: room != room_of_file)

    def judge(self, mutant):
        room = mutant.file.split("/")[1]
        if mutant.place in self.at_start:
            wanted = {(r, t) for r in TABLES_SEEN_BY[room] for t in self.quick[r]
                      if mutant.file not in LAYOUT or LAYOUT[mutant.file].match(t)}
        else:
            wanted = self.hits.get(mutant.place, set())
        with self.lock:
            likely = [k for k in self.killers[mutant.file] if k in wanted][:25]
        for r in self.order(room):
            names = [t for k, t in likely if k == r]
            if names and (verdict := self.run(r, self.build.program(r), mutant.id, names)):
                return self.killed(mutant, r, verdict)
        for r in self.order(room):
            names = sorted(t for k, t in wanted if k == r and (k, t) not in likely)
            if names and (verdict := self.run(r, self.build.program(r), mutant.id, names)):
                return self.killed(mutant, r, verdict)
        slow = self.slow_hits.get(mutant.place, set())
        names = sorted(t for k, t in slow if k == room)
        if names and (verdict := self.run(room, self.build.program(room), mutant.id, names)):
            return self.killed(mutant, room, verdict)
        return "" if wanted or slow else "(never reached)"

    def killed(self, mutant, room, verdict):
        test = (room, verdict.split(" ")[0])
        with self.lock:
            known = self.killers[mutant.file]
            if test in known:
                known.remove(test)
            known.insert(0, test)
        return verdict

    def judge_header(self, mutant, source):
        """A header changes all that includes it: everything is built once more."""
        build = Build(self.work / "header", self.build.sources, self.build.jobs)
        text = source.with_one(mutant)
        try:
            build.make({mutant.file: text})
        except subprocess.CalledProcessError:
            return "(does not compile)"
        for room in self.order(mutant.file.split("/")[1]):
            if verdict := self.run(room, build.program(room), 0, self.quick[room]):
                return verdict
        return ""

    def judge_anew(self, mutant, source):
        folder = self.work / "anew" / threading.current_thread().name.replace(" ", "_")
        room = mutant.file.split("/")[1]
        programs = self.build.one_program(source, mutant, folder, self.order(room))
        built = False
        with self.lock:
            likely = self.killers[mutant.file][:25]
        for r, program in programs:
            built = True
            first = [t for k, t in likely if k == r]
            rest = [t for t in self.quick[r] if t not in first]
            for names in (first, rest, self.slow[r] if r == room else []):
                if names and (verdict := self.run(r, program, 0, names)):
                    return self.killed(mutant, r, verdict)
        return "" if built else "(does not compile)"


def constants_of(paths):
    """Named whole numbers, for where they size an array."""
    pattern = re.compile(r"constexpr int (k\w+) = (\d+);")
    return dict(m for path in paths for m in pattern.findall(path.read_text()))


def explained():
    """Survivors that docs/mutants.md explains: `file: change` lines with the text of the place."""
    path = TREE / "docs/mutants.md"
    if not path.exists():
        return set()
    return set(re.findall(r"^- `(src/[^`]+)`", path.read_text(), re.M))


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--files", nargs="+", help="only these files of the tree")
    parser.add_argument("--rerun", action="store_true",
                        help="only what the last table has as surviving")
    parser.add_argument("--work", default=str(TREE / "build/mutants"), help="scratch folder")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--list", action="store_true", help="say what would be changed, and stop")
    arguments = parser.parse_args()
    work = pathlib.Path(arguments.work).resolve()
    work.mkdir(parents=True, exist_ok=True)
    began = time.time()

    paths = sorted(p for room in ROOMS for p in (TREE / "src" / room).iterdir())
    numbers, constants = Numbers(), constants_of(paths)
    sources = [Source(path, numbers, constants) for path in paths]
    by_name = {source.name: source for source in sources}
    mutants = [m for source in sources for m in source.mutants]
    if arguments.files:
        mutants = [m for m in mutants if m.file in arguments.files]
    table = work / "table.json"
    before = json.loads(table.read_text()) if table.exists() else {}
    chosen = mutants
    if arguments.rerun:
        chosen = [m for m in mutants if before.get(m.key, "") in OPEN]
    if arguments.list:
        for m in chosen:
            print(m.id, f"{m.file}:{m.line}", m.what, "(compiled anew)" if m.edit else "", sep="\t")
        return

    build = Build(work, sources, arguments.jobs)
    build.make()
    runner = Runner(build, work)
    runner.trace()
    print(f"{len(chosen)} mutants; {sum(map(len, runner.quick.values()))} tests, "
          f"{sum(map(len, runner.slow.values()))} slow ones; built in {time.time() - began:.0f} s",
          flush=True)

    headers = threading.Lock()

    def judge(mutant):
        if not mutant.edit:
            return runner.judge(mutant)
        if mutant.file.endswith(".h"):
            with headers:
                return runner.judge_header(mutant, by_name[mutant.file])
        return runner.judge_anew(mutant, by_name[mutant.file])

    done = 0
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs, "worker") as pool:
        for mutant, verdict in zip(chosen, pool.map(judge, chosen)):
            mutant.killed_by = verdict
            before[mutant.key] = verdict
            done += 1
            if done % 100 == 0:
                print(f"  {done} of {len(chosen)}, {time.time() - began:.0f} s", flush=True)
                table.write_text(json.dumps(before, indent=0))
    table.write_text(json.dumps(before, indent=0))

    rows = [f"{m.id}\t{m.file}:{m.line}\t{m.what}\t{before.get(m.key, '?')}\t{m.text}"
            for m in mutants]
    (work / "table.tsv").write_text("\n".join(rows) + "\n")
    sys.exit(report(mutants, before, time.time() - began))


def report(mutants, verdicts, seconds):
    known = explained()
    counts = collections.defaultdict(collections.Counter)
    unexplained = []
    for mutant in mutants:
        verdict = verdicts.get(mutant.key, "?")
        if verdict in OPEN:
            kind = "explained" if mutant.key in known else "survived"
            if kind == "survived":
                unexplained.append((mutant, verdict))
        elif verdict in ("(does not compile)", "(not applicable)"):
            kind = "no program"
        else:
            kind = "killed"
        counts[mutant.file.split("/")[1]][kind] += 1
    for key in sorted(known - {m.key for m in mutants if verdicts.get(m.key, "?") in OPEN}):
        if any(key.startswith(m.file) for m in mutants):
            print(f"explained, yet killed or gone: {key}")
    for mutant, verdict in unexplained:
        print(f"survived: {mutant.file}:{mutant.line}: {mutant.what} {verdict}\n    {mutant.text}")
    print(f"{'room':10}{'mutants':>9}{'killed':>9}{'explained':>11}{'survived':>10}"
          f"{'no program':>12}")
    total = collections.Counter()
    for room, count in [*counts.items(), ("all", total)]:
        if room != "all":
            total.update(count)
        print(f"{room:10}{count.total():9}{count['killed']:9}{count['explained']:11}"
              f"{count['survived']:10}{count['no program']:12}")
    print(f"{seconds:.0f} s")
    return 1 if unexplained else 0


if __name__ == "__main__":
    main()
