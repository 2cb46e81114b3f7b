#!/usr/bin/env python3
"""The figures of one sheet row, computed a second time with 60 decimal digits.

    ./reference.py --write     # renews the tables beside this script
    ./reference.py --check     # computes them again and compares; exit status 1 when they differ

Nothing here is taken from the program: geometric mean and deviation, estimated mean, index, texts
with two decimals and class of probability are worked out anew from the method's formulas, in
decimal arithmetic that keeps some forty digits more than the program shows. The random data sets
come from a fixed seed through a generator of our own, so that every Python gives the same tables.
"""

import argparse
import csv
import io
import itertools
import os
import sys
from collections import Counter
from decimal import ROUND_HALF_EVEN, ROUND_HALF_UP, Context, Decimal, localcontext

HERE = os.path.dirname(os.path.abspath(__file__))
SEED = 689
RANDOM_SETS = 1500
DIGITS = 60
NEAR = Decimal("1e-12")  # closer than this to a border, a Double may fall on either side
BEYOND = Decimal("1e10")
LARGEST = Decimal("1.797693134862315e308")  # Double

# n: A, B of the correction factor A x exp(B x GSD) of the estimated mean.
CORRECTIONS = {3: ("0.7969", "0.1964"), 4: ("0.763", "0.228"),
               5: ("0.7593", "0.2393"), 6: ("0.7477", "0.251")}  # fmt: skip

# A, B, class in per cent: the class holds where A x ratio^B is above the deviation.
LADDER = (("1.0026", "0.2357", "0.001"), ("0.994", "0.2722", "0.01"), ("0.9991", "0.3272", "0.1"),
          ("0.9986", "0.4342", "1"), ("1.002", "0.6049", "5"))  # fmt: skip
TOP_CLASS = "50"

RATIOS = ("0.5", "0.99", "0.995", "1", "1.002", "1.01", "1.02", "1.05", "1.1", "1.2", "1.5", "2",
          "3", "5", "10", "30", "100", "1000", "100000")  # fmt: skip

# Name, measurements, printed geometric mean and deviation (empty where the source prints none).
PUBLISHED = (
    # P. Hewett, "Review of lognormal statistics and analyzing small data sets", Exposure
    # Assessment Solutions, 2007: welding fume, mg/m3; it prints gm = 1.06 and gsd = 1.83.
    ("hewett-welding-fume", "0.84 0.98 0.42 1.16 1.36 2.66", "1.06", "1.83"),
    # US EPA, "Statistical Analysis of Ground-Water Monitoring Data at RCRA Facilities", addendum of
    # 1992: nickel, ppb, four wells in five months. The twenty values have the mean 169.52 and the
    # standard deviation 259.72 that the source prints for them (`check_nickel`).
    ("epa-nickel-well-1", "58.8 1.0 262 56 8.7", "", ""),
    ("epa-nickel-well-2", "19 81.5 331 14 64.4", "", ""),
    ("epa-nickel-well-3", "39 151 27 21.4 578", "", ""),
    ("epa-nickel-well-4", "3.1 942 85.6 10 637", "", ""),
)

# Examples worked out once more by hand, with five decimals: GM, GSD and mean.
WORKED = (
    ("2 3", "2.44949", "1.33203", "2.44949"),
    ("2 8", "4", "2.66514", "4"),
    ("1 2 4", "2", "2", "2.36061"),
    ("1 2 4 8", "2.82843", "2.44697", "3.77021"),
    ("0.5 0.7 0.9 1.1 1.3", "0.85257", "1.45837", "0.91771"),
    ("1 2 3 4 5 6", "2.99380", "1.93991", "3.64263"),
    ("5 5 5", "5", "1", "5"),
    ("1 1.1 1.2", "1.09696", "1.09548", "1.09696"),
)

COLUMNS = ("id", "source", "samples", "hours", "ed", "ec", "outcome", "mg", "gsd", "mean",
           "mg_text", "gsd_text", "mmp_text", "index_text", "ec_plus", "mg_plus", "gsd_plus", "prob",
           "raw_class", "tail_percent", "exact_class", "near",
           "printed_mg", "printed_gsd")  # fmt: skip


class Random:
    """A linear congruential generator (MMIX, Knuth): the same numbers on every Python."""

    def __init__(self, seed):
        self.state = seed

    def below(self, n):
        self.state = (self.state * 6364136223846793005 + 1442695040888963407) % (1 << 64)
        return (self.state >> 33) % n

    def of(self, things):
        return things[self.below(len(things))]


# --- The figures.


def mean_of_logs(samples):
    return sum(x.ln() for x in samples) / len(samples)


def statistics(samples):
    """GM, GSD and estimated mean of two to six measurements above zero."""
    m = mean_of_logs(samples)
    q = sum((x.ln() - m) ** 2 for x in samples)
    mg, gsd = m.exp(), (q / (len(samples) - 1)).sqrt().exp()
    factor = Decimal(1)
    if len(samples) in CORRECTIONS:
        a, b = map(Decimal, CORRECTIONS[len(samples)])
        factor = max(a * (b * gsd).exp(), Decimal(1))
    return mg, gsd, mg * factor


def power(base, exponent):
    return (exponent * base.ln()).exp()


def thresholds(ratio):
    return [Decimal(a) * power(ratio, Decimal(b)) for a, b, _ in LADDER]


def ladder(ratio, deviation):
    if ratio <= 0:
        return "0"
    for threshold, (_, _, name) in zip(thresholds(ratio), LADDER):
        if threshold > deviation:
            return name
    return TOP_CLASS


def near_ladder(ratio, deviation):
    return any(abs(t / deviation - 1) < NEAR for t in thresholds(ratio))


# --- The normal tail.


def pi():
    """Machin: 16 arctan(1/5) - 4 arctan(1/239)."""

    def arctan_of_inverse(n):
        term, total, k = Decimal(1) / n, Decimal(0), 0
        while abs(term) > Decimal(10) ** -(DIGITS + 5):
            total += term / (2 * k + 1) * (-1 if k % 2 else 1)
            term /= n * n
            k += 1
        return total

    return 16 * arctan_of_inverse(5) - 4 * arctan_of_inverse(239)


def tail(z):
    """P(Z > z) of the standard normal distribution: a series up to 5, beyond it a continued
    fraction of Laplace's."""
    if z < 0:
        return 1 - tail(-z)
    density = (-z * z / 2).exp() / (2 * pi()).sqrt()
    if z <= 5:
        term = total = z
        k = 1
        while term > Decimal(10) ** -DIGITS:
            term *= z * z / (2 * k + 1)
            total += term
            k += 1
        return Decimal("0.5") - density * total
    fraction = z
    for k in range(400, 0, -1):
        fraction = z + k / fraction
    return density / fraction


def z_of(percent):
    """The z whose tail is so many per cent, by halving."""
    low, high = Decimal(0), Decimal(10)
    for _ in range(120):
        middle = (low + high) / 2
        low, high = (middle, high) if tail(middle) * 100 > percent else (low, middle)
    return low


def exact_tail(ratio, deviation):
    """Per cent of a lognormal population with this deviation that lie above so many times its
    geometric mean. Without deviation all of it is the mean itself."""
    if deviation == 1:
        return Decimal(100 if ratio < 1 else 0)
    return 100 * tail(ratio.ln() / deviation.ln())


def class_of(percent):
    """The ladder's class that an exact per cent falls in."""
    for _, _, name in LADDER:
        if percent < Decimal(name):
            return name
    return TOP_CLASS


# --- The texts.


def fifteen(value):
    return value.normalize(Context(prec=15, rounding=ROUND_HALF_EVEN))


def plain(value):
    text = format(value, "f")
    return text.rstrip("0").rstrip(".") if "." in text else text


def two_decimals(value):
    """At most two decimals of the fifteen digits, halves up, no zero ahead of the point, the point
    always there."""
    digits = fifteen(value)
    if digits < BEYOND:
        digits = digits.quantize(Decimal("0.01"), ROUND_HALF_UP)
    whole, _, decimals = format(digits, "f").partition(".")
    return whole.lstrip("0") + "." + decimals.rstrip("0")


def general(value):
    """Fifteen digits, a leading zero; the tables hold nothing that takes an exponent."""
    assert value == 0 or Decimal("0.0001") <= abs(value) < Decimal("1e15"), value
    return plain(fifteen(value)) if value else "0"


def read(text):
    return Decimal(text) if text.strip(".") else Decimal(0)


def near_text(value):
    """Where a border of the second decimal is near: the text on its other side, or `~` where the
    second decimal lies beyond the twelfth digit, so that a border is near everywhere."""
    if value >= BEYOND:
        return "~"
    floor = value.quantize(Decimal("0.01"), "ROUND_FLOOR")
    border = floor + Decimal("0.005")
    if abs(value / border - 1) >= NEAR:
        return None
    both = {two_decimals(floor), two_decimals(floor + Decimal("0.01"))}
    (other,) = both - {two_decimals(value)}
    return other


# --- One data set.


def row(name, source, texts, hours, ed, ec, printed=("", "")):
    result = dict.fromkeys(COLUMNS, "")
    result.update(id=name, source=source, samples=" ".join(texts), hours=hours, ed=ed, ec=ec,
                  printed_mg=printed[0], printed_gsd=printed[1])  # fmt: skip
    samples = list(itertools.takewhile(bool, map(read, texts)))
    if len(samples) < 2:
        result["outcome"] = "one usable sample"
        return result
    mg, gsd, mean = statistics(samples)
    if mean > LARGEST:
        result["outcome"] = "mean too large"
        return result
    index = Decimal(hours) * mean / (Decimal(ed) * 8) if Decimal(ed) else Decimal(0)
    near = []
    for column, value in (("mg", mg), ("gsd", gsd), ("mmp", mean), ("index", index)):
        result[column + "_text"] = two_decimals(value)
        if value and near_text(value) is not None:
            near.append(f"{column}:{near_text(value)}")
    result.update({k: format(v, ".20g") for k, v in (("mg", mg), ("gsd", gsd), ("mean", mean))})
    limit = Decimal(ec) or 3 * Decimal(ed)
    result["ec_plus"] = general(limit)
    result["raw_class"] = ladder(limit / mg, gsd)
    if near_ladder(limit / mg, gsd):
        near.append("raw_class")
    shown_mg, shown_gsd = read(result["mg_text"]), read(result["gsd_text"])
    result["mg_plus"], result["gsd_plus"] = general(shown_mg), general(shown_gsd)
    if shown_mg == 0:
        result["outcome"] = "mean shown as zero"
    else:
        ratio = limit / shown_mg
        percent = exact_tail(ratio, shown_gsd)
        result.update(outcome="shown", prob=ladder(ratio, shown_gsd), exact_class=class_of(percent),
                      tail_percent=format(percent, ".8e") if percent else "0")  # fmt: skip
        if near_ladder(ratio, shown_gsd):
            near.append("prob")
    result["near"] = "|".join(near)
    return result


# --- The data sets.


def number(random, digits, decimals):
    value = str(random.below(10**digits - 1) + 1)
    if decimals == 0:
        return value
    value = value.rjust(decimals + 1, "0")
    return value[:-decimals] + "." + value[-decimals:]


def measurement(random):
    """As a user types it: digits and at most one point, from thousandths to hundred thousands."""
    digits, decimals = random.of(((1, 0), (2, 0), (3, 0), (4, 0), (6, 0), (2, 1), (3, 1), (4, 1),
                                  (3, 2), (4, 2), (2, 3), (4, 3), (5, 3), (4, 4)))  # fmt: skip
    text = number(random, digits, decimals)
    return text + "." if decimals == 0 and random.below(20) == 0 else text


def scattered(random, n):
    """Measurements around one level, as those of one workplace are."""
    middle = 10 + random.below(99990)
    spread = 1 + random.below(900)
    decimals = random.below(4)
    texts = []
    for _ in range(n):
        value = max(1, middle * (1000 + random.below(2 * spread + 1) - spread) // 1000)
        text = str(value).rjust(decimals + 1, "0")
        texts.append(text if decimals == 0 else text[:-decimals] + "." + text[-decimals:])
    return texts


def equal(random, n):
    """The same measurement n times, half of them with a 5 in the third decimal: its geometric mean
    and estimated mean stand on a border of the second decimal."""
    text = number(random, 5, 3)
    return [text[:-1] + "5" if random.below(2) else text] * n


def samples(random):
    n = 2 + random.below(5)
    kind = random.below(20)
    if kind == 0:
        return equal(random, n)
    if kind == 1 and n < 6:
        return [measurement(random) for _ in range(n)] + ["0"]
    if kind == 2 and random.below(4) == 0:
        return [measurement(random), "0"]
    if kind == 3:
        return ["0.00" + str(1 + random.below(9)) for _ in range(n)]
    if kind < 9:
        return [measurement(random) for _ in range(n)]
    return scattered(random, n)


def limits(random, texts):
    """ED and EC, not both 0: around the measurements or aimed at a number of deviations above their
    mean, so that every class comes up."""
    highest = max(read(t) for t in texts) or Decimal(1)
    factor = Decimal(random.of((3, 5, 8, 10, 15, 20, 30, 60, 100, 300))) / 10
    ed = plain((highest * factor).quantize(Decimal("0.01"), "ROUND_CEILING"))
    ec = random.of(("0", plain(Decimal(ed) * random.of((2, 3, 5))), plain(Decimal(ed) / 2)))
    usable = [read(t) for t in texts if read(t)]
    deviations = Decimal(random.below(500)) / 100
    if random.below(2) and len(usable) > 1:
        mg, gsd, _ = statistics(usable)
        aimed = (mg * power(gsd, deviations)).normalize(Context(prec=5))
        if Decimal("0.001") < aimed < Decimal("1e12"):
            ec = plain(aimed)
    return (ed, ec) if random.below(15) else ("0", plain(Decimal(ed) * 2))


def rows():
    for i, (name, texts, mg, gsd) in enumerate(PUBLISHED):
        yield row(f"p{i + 1}", name, texts.split(), "8", "10", "0", (mg, gsd))
    for i, (texts, *_) in enumerate(WORKED):
        yield row(f"w{i + 1}", "worked", texts.split(), "8", "10", "20")
    random = Random(SEED)
    for i in range(RANDOM_SETS):
        texts = samples(random)
        ed, ec = limits(random, texts)
        yield row(f"r{i + 1}", "random", texts, str(1 + random.below(14)), ed, ec)


# --- The tables.


def table(header, lines):
    text = io.StringIO(newline="")
    writer = csv.writer(text, lineterminator="\n")
    writer.writerow(header)
    writer.writerows(lines)
    return text.getvalue()


def ladder_lines():
    """For each ratio and rung: its threshold, the exact one, what the exact tail is at the
    threshold, and the ladder's class a little below and a little above it."""
    step = Decimal("1e-9")
    zs = [z_of(Decimal(name)) for _, _, name in LADDER]
    for text in RATIOS:
        ratio = Decimal(text)
        for rung, threshold in enumerate(thresholds(ratio)):
            name = LADDER[rung][2]
            exact = power(ratio, 1 / zs[rung])
            percent = exact_tail(ratio, threshold) if threshold > 1 else None
            yield (text, rung + 1, name, format(threshold, ".17g"), format(exact, ".17g"),
                   "" if percent is None else format(percent, ".5e"),
                   ladder(ratio, threshold * (1 - step)),
                   ladder(ratio, threshold * (1 + step)))  # fmt: skip


def difference_lines(results):
    """How many data sets have each pair of the ladder's class and the exact one."""
    counts = Counter((r["prob"], r["exact_class"]) for r in results if r["outcome"] == "shown")
    names = [name for _, _, name in LADDER] + [TOP_CLASS]
    return [(a, b, counts[a, b]) for a in names for b in names]


def markdown(header, lines):
    rule = ["---"] * len(header)
    return "".join("| " + " | ".join(map(str, line)) + " |\n" for line in (header, rule, *lines))


def percent_text(value):
    return plain(Decimal(format(value, ".3g")))


def data_sets_section(results):
    outcomes = Counter(r["outcome"] for r in results)
    sources = Counter("published" if r["id"][0] == "p" else r["source"] for r in results)
    near = Counter(n.partition(":")[0] for r in results for n in r["near"].split("|") if n)
    text = "## The data sets\n\n"
    text += markdown(("Data sets", "Number"), [*sources.items(), ("all", len(results))])
    text += "\n" + markdown(("What the sheet does with them", "Number"), outcomes.items())
    return text + "\n" + markdown(
        ("Within 1e-12 of a border", "Number"),
        [(c, near[c]) for c in ("mg", "gsd", "mmp", "index", "prob", "raw_class")],
    )


def rungs_section():
    text = "\n## The ladder's rungs and the exact normal tail\n\n"
    text += (
        "With the multiplier 1 a curve ratio^B divides the plane at the tail of z = 1/B; the exact\n"
        "exponent of a class is 1/z of its tail.\n\n"
    )
    rungs = []
    for a, b, name in LADDER:
        of_b = 100 * tail(1 / Decimal(b))
        exact = 1 / z_of(Decimal(name))
        z = format(1 / Decimal(b), ".4f")
        rungs.append((name, a, b, format(exact, ".5f"), z, percent_text(of_b)))
    header = ("Class (%)", "A", "B", "exact B", "z = 1/B", "exact tail of that z (%)")
    return text + markdown(header, rungs)


def thresholds_section():
    header = ("Ratio", *(f"class {name}" for _, _, name in LADDER))
    lines = {ratio: [li for li in ladder_lines() if li[0] == ratio] for ratio in RATIOS}
    tails, borders = [], []
    for ratio, of_ratio in lines.items():
        cells = [percent_text(Decimal(li[5])) if li[5] else "" for li in of_ratio]
        tails.append((ratio, *cells))
        both = [(format(Decimal(li[3]), ".4f"), format(Decimal(li[4]), ".4f")) for li in of_ratio]
        borders.append((ratio, *(f"{own} ({exact})" for own, exact in both)))
    return (
        "\nWhat the exact tail is on each rung's own threshold, in per cent (nothing where the\n"
        "threshold is not above 1, as no deviation is):\n\n"
        + markdown(header, tails)
        + "\nThreshold of each rung, and in brackets the deviation with the class's own tail:\n\n"
        + markdown(header, borders)
    )


def differences_section(results):
    shown = [r for r in results if r["outcome"] == "shown"]
    differ = [r for r in shown if r["prob"] != r["exact_class"]]
    names = [name for _, _, name in LADDER] + [TOP_CLASS]
    counts = {(a, b): n for a, b, n in difference_lines(results)}
    text = (
        f"\nOf the {len(shown)} data sets with a class {len(differ)} get another one than the exact"
        " tail gives.\nRows: the ladder's class; columns: the exact one.\n\n"
    )
    text += markdown(
        ("", *names), [(a, *((counts[a, b] or "") for b in names)) for a in names]
    )
    return text + "\n" + markdown(
        ("Data set that differs", "Ratio", "Deviation", "Exact tail (%)", "Ladder", "Exact"),
        [
            (
                r["id"],
                format(Decimal(r["ec_plus"]) / Decimal(r["mg_plus"]), ".5g"),
                r["gsd_plus"],
                percent_text(Decimal(r["tail_percent"])),
                r["prob"],
                r["exact_class"],
            )
            for r in differ
        ],
    )


def report(results):
    return (
        data_sets_section(results)
        + rungs_section()
        + thresholds_section()
        + differences_section(results)
    )


def check_worked(results):
    """The examples worked by hand, to five decimals."""
    for (texts, *figures), r in zip(WORKED, (r for r in results if r["source"] == "worked")):
        for figure, column in zip(figures, ("mg", "gsd", "mean")):
            if abs(Decimal(r[column]) - Decimal(figure)) > Decimal("0.000005"):
                sys.exit(f"{texts}: {column} {r[column]}, described as {figure}")


def check_nickel():
    wells = [texts.split() for name, texts, *_ in PUBLISHED if name.startswith("epa")]
    values = [Decimal(text) for well in wells for text in well]
    mean = sum(values) / len(values)
    deviation = (sum((v - mean) ** 2 for v in values) / (len(values) - 1)).sqrt()
    if (format(mean, ".1f"), format(deviation, ".1f")) != ("169.5", "259.7"):
        sys.exit(f"nickel: mean {mean}, standard deviation {deviation}")


def files():
    with localcontext() as context:
        context.prec = DIGITS
        results = list(rows())
        check_worked(results)
        check_nickel()
        return {
            "data_sets.csv": table(COLUMNS, ([r[c] for c in COLUMNS] for r in results)),
            "ladder.csv": table(
                ("ratio", "rung", "class", "threshold", "exact_threshold", "tail_percent",
                 "class_below", "class_above"),
                ladder_lines(),
            ),
            "differences.csv": table(("ladder", "exact", "data_sets"), difference_lines(results)),
            "tables.md": "# Tables\n\nWritten by `reference.py`.\n\n" + report(results),
        }  # fmt: skip


def main():
    arguments = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    what = arguments.add_mutually_exclusive_group(required=True)
    what.add_argument("--write", action="store_true")
    what.add_argument("--check", action="store_true")
    arguments.add_argument("--folder", default=HERE)
    options = arguments.parse_args()
    status = 0
    for name, text in files().items():
        path = os.path.join(options.folder, name)
        if options.write:
            with open(path, "w", encoding="utf-8", newline="") as file:
                file.write(text)
            continue
        with open(path, encoding="utf-8", newline="") as file:
            kept = file.read()
        same = kept == text
        print(f"{name}: {len(text.splitlines())} lines, {'the same' if same else 'DIFFERENT'}")
        if not same:
            status = 1
            for number, (a, b) in enumerate(zip(kept.splitlines(), text.splitlines()), 1):
                if a != b:
                    print(f"  line {number}\n    kept {a}\n    now  {b}")
                    break
    return status


if __name__ == "__main__":
    sys.exit(main())
