"""Random evaluation files: plausible ones, odd ones and broken ones."""

from arithmetic import TextoDoble
from record import SEQUENCE, EvaluacionRecord, write_evaluation

NAMES = (
    "tolueno", "xileno", "etilbenceno", "acetona", "n-hexano", "benceno", "óxido de etileno",
    "plomo (Pb)", "ácido nítrico", "Cr VI", "2-butanona", "sílice 1/2", "polvo < 10 µm",
)  # fmt: skip
UNITS = ("mg/m3", "ppm", "mg/m3", "ppm", "mg/m3", "ppm", "f/cc", "µg/m3", "")
LIMITS = (192.0, 384.0, 221.0, 442.0, 884.0, 50.0, 100.0, 1.0, 2.0, 10.0, 5.0, 20.0, 0.5, 12.75)

ODD_CELLS = (
    "-5", "1E400", "1E5", "1e-3", " 3", "1,5", "abc", ".", "5.", "1.2.3", "0", "0.0", "-", "-0",
    ".5", "1E+20", "+4", "3 4", "1E-400", "99999999999999999999", "30", "15", "2", "6", "20",
)  # fmt: skip
ODD_ROWS = (
    ("-5", "2", "", "", "", ""),
    ("2", "3", "-4", "", "", ""),
    ("1E300", "1E-300", "", "", "", ""),
    ("1E3", "1E-3", "1E3", "", "", ""),
    ("2", "0", "", "", "", ""),
    ("2", "3", "1E400", "", "", ""),
    ("1", "1", "1", "1", "1", "1"),
    (" ", "2", "3", "", "", ""),
    ("2", "x", "", "", "", ""),
    ("1E308", "1E308", "", "", "", ""),
    ("3", "3", "3", "4", "", ""),
)
ODD_INTEGERS = (
    "abc", '"3"', "", " 3 ", "2.5", "3.5", "2.4", "40000", "-40000", "32767.4", "32767.5", "-1",
    ".5", "5.", "1,5", "7", "4", "-2", "0", "3 4", "- 2", "--1", "1.2.3",
)  # fmt: skip
ODD_DOUBLES = (
    "abc", '"3"', "", "  8.5  ", "0.5", ".5", "5.", "1,5", "-8", "0", "1E400", "3 4", "-.25",
    "123456789012345678", "0.000012345678901234567", "1.2.3", "--1",
)  # fmt: skip


def _split(dice, n):
    thirty = dice.randint(0, n)
    return thirty, n - thirty


def limit(dice, separator):
    """A limit value; where the point is no separator, mostly one that reads back whole."""
    return dice.choice(LIMITS[: 12 if separator == "," and dice.random() < 0.9 else None])


def plan(dice, separator):
    """A record whose plan and contaminants are valid."""
    r = EvaluacionRecord()
    for i in range(1, 20):
        r.DatosEmpresa[i] = dice.choice(("---", "Pinturas Ñandú, S.L.", "12", "Avda. Única 3 €"))
    r.NumJornadas = dice.choice((1, 3, 3))
    r.NumTareas = dice.randint(1, 3)
    for t in range(1, r.NumTareas + 1):
        n = dice.randint(1, 6)
        r.NumContaminantes[t] = n
        for d in range(1, r.NumJornadas + 1):
            r.TiempoExposicion[d, t] = float(dice.randint(1, 14))
            total = n if dice.random() < 0.96 else dice.randint(0, 6)
            r.Muestras30[d, t], r.Muestras15[d, t] = _split(dice, total)
        marks = additive_marks(dice, t)
        if dice.random() < 0.15:  # numbers that only a file can bring
            high = dice.choice((10, 12, 13, 18, 19, 20, 21))
            marks = [dice.choice((0, high, high)) for _ in range(6)]
        for c in range(1, 7 if dice.random() < 0.1 else n + 1):
            r.NombreContaminante[t, c] = dice.choice(NAMES)
            r.VlaEd[t, c] = limit(dice, separator)
            r.VlaEc[t, c] = dice.choice((0.0, r.VlaEd[t, c] * 2, limit(dice, separator)))
            if r.VlaEc[t, c] and dice.random() < 0.06:
                r.VlaEd[t, c] = 0.0
            r.TiempoMuestreo[t, c] = dice.choice((15, 30))
            r.Aditivo[t, c] = marks[c - 1]
            r.Unidades[t, c] = dice.choice(UNITS)
    return r


def additive_marks(dice, t):
    """Six additive marks of task t: none, one group, or anything a digit can be."""
    mode = dice.random()
    if mode < 0.35:
        return [0] * 6
    if mode < 0.8:
        group = dice.choice((1, 1, 2, 3, 6 * (t - 1) + 1 if t == 1 else dice.randint(1, 9)))
        return [dice.choice((0, group)) for _ in range(6)]
    return [dice.randint(0, 9) for _ in range(6)]


def _make_plan_odd(dice, r):
    for _ in range(dice.choice((1, 1, 2, 3))):
        d, t, c = dice.randint(1, 3), dice.randint(1, 3), dice.randint(1, 6)
        which = dice.randint(0, 8)
        if which == 0:
            r.NumJornadas = dice.choice((0, 2, 4, -1, 7, 200))
        elif which == 1:
            r.NumTareas = dice.choice((0, 0, 4, 4, -1, 5, 200))
        elif which == 2:
            r.Muestras30[d, t] = dice.choice((7, 7, 6, -2, 12, 2000, 30000))
        elif which == 3:
            r.Muestras15[d, t] = dice.choice((7, 6, -2, 5, 20000))
        elif which == 4:
            r.NumContaminantes[t] = dice.choice((7, 0, -1, 6, 8, 19, 7000))
        elif which == 5:
            r.VlaEd[t, c] = dice.choice((0.0, -5.0, 1e300, 1e308, 1e-7, 0.3))
        elif which == 6:
            r.TiempoExposicion[d, t] = dice.choice((0.0, -8.0, 1e308, 7.5))
        elif which == 7:
            r.Aditivo[t, c] = dice.choice((7, 19, 20, 21, -1, 13, 18))
        else:
            r.TiempoMuestreo[t, c] = dice.choice((0, 10, 15, 30, -15))


def _text(dice, value, separator):
    return TextoDoble(float("%.3g" % value), separator)


def _fill_sheet(dice, r, d, separator, odd_share):
    """The texts of a day as the sheet would have left them, some cells odd."""
    sheet = r.sheet(d)
    for t in range(1, 4):
        rows = r.Muestras30[d, t] + r.Muestras15[d, t] if t <= r.NumTareas else 0
        for c in range(1, min(max(rows, 0), 6) + 1):
            row = 6 * (t - 1) + c - 1
            texts = [
                str(c), r.NombreContaminante[t, c], TextoDoble(r.VlaEd[t, c], separator),
                TextoDoble(r.VlaEc[t, c], separator), r.Unidades[t, c],
                str(r.TiempoMuestreo[t, c]), str(r.Aditivo[t, c]),
            ]  # fmt: skip
            scale = (r.VlaEd[t, c] or 1.0) * 10 ** dice.uniform(-2, 0.6)
            samples = dice.randint(2, 6)
            texts += [
                ("%.3g" % (abs(scale) * dice.uniform(0.5, 2))) if m < samples else ""
                for m in range(6)
            ]
            texts += [_text(dice, dice.uniform(0, 2), separator) for _ in range(5)]
            for column, text in enumerate(texts):
                if dice.random() < odd_share:
                    text = dice.choice(ODD_CELLS)
                sheet[row * 18 + column + 1] = text
            for column in range(4):
                text = _text(dice, dice.choice((0.001, 0.5, 5, 50)), separator)
                sheet[325 + row * 4 + column] = dice.choice((text, text, ""))
    if odd_share and dice.random() < 0.5:
        row = dice.choice((0, 0, 1, 2, 6, 12))
        for column, text in zip(range(7, 13), dice.choice(ODD_ROWS)):
            sheet[row * 18 + column + 1] = text
    if dice.random() < 0.5:
        for entry, text in zip(range(397, 402), ("0.5", "0.001", "uno", " dos", "NO")):
            sheet[entry] = text


def _damage(dice, data):
    lines = data.split(b"\r\n")[:-1]
    for _ in range(dice.choice((1, 2, 5, 20))):
        i = dice.randrange(min(len(lines), dice.choice((25, 160, 1524))))
        kind = SEQUENCE[i][2]
        if kind == "integer":
            lines[i] = dice.choice(ODD_INTEGERS).encode()
        elif kind == "double":
            lines[i] = dice.choice(ODD_DOUBLES).encode()
        else:
            inside = lines[i].strip(b'"') or b"7.5"
            lines[i] = dice.choice(
                (
                    b'"' + inside,
                    inside + b'"',
                    inside,
                    b"  " + inside + b" ",
                    b'x"' + inside + b'" y',
                    b'"' + inside[:1] + b'"' + inside[1:] + b'"',
                    b"",
                    b'"',
                    b'"\x81\x8d\x80\xff\xa0"',
                    b"12",
                    b'"' + inside + b'\t\x00."',
                    b'"' + inside * (2 if dice.random() < 0.9 else 12000) + b'"',
                )
            )
    if dice.random() < 0.2:
        lines = lines[: dice.randrange(len(lines) + 1)]
    if dice.random() < 0.1:
        lines += [b'"sobra"', b"9"]
    end = b"\n" if dice.random() < 0.25 else b"\r\n"
    damaged = b"".join(line + end for line in lines)
    if dice.random() < 0.15:
        damaged = damaged[: dice.randrange(len(damaged) + 1)]
    return damaged


def evaluation_file(dice, separator):
    """The bytes of an evaluation file."""
    r = plan(dice, separator)
    if dice.random() < 0.2:
        _make_plan_odd(dice, r)
    odd_share = dice.choice((0, 0, 0.01, 0.01, 0.08))
    for d in (1, 2, 3):
        if dice.random() < 0.6:
            _fill_sheet(dice, r, d, separator, odd_share)
    if dice.random() < 0.5:
        for row in range(1, 19):
            r.HojaFinal[row, 2] = dice.choice(NAMES)
            for column in (3, 4, 5, 6, 7, 8, 9):
                text = _text(dice, dice.uniform(0, 2), separator)
                if dice.random() < odd_share:
                    text = dice.choice(ODD_CELLS)
                r.HojaFinal[row, column] = dice.choice((text, text, text, ""))
    data = write_evaluation(r)
    luck = dice.random()
    if luck < 0.2:
        return _damage(dice, data)
    if luck < 0.21:
        return b""
    if luck < 0.22:
        return bytes(b for b in dice.randbytes(3000) if b not in (0, 13, 26))
    return data
