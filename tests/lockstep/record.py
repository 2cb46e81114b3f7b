"""The record of the evaluation and its file of 1524 lines."""

from itertools import product

from arithmetic import ErrorEjecucion, plain_decimal, read_double, read_integer


class Table:
    """An array whose subscripts start at 1; one outside its bounds is a run-time error."""

    def __init__(self, sizes: tuple[int, ...], initial):
        self.sizes = sizes
        self.elements = dict.fromkeys(product(*(range(1, m + 1) for m in sizes)), initial)

    def _key(self, index):
        key = index if isinstance(index, tuple) else (index,)
        if key not in self.elements:
            raise ErrorEjecucion("subscript")
        return key

    def __getitem__(self, index):
        return self.elements[self._key(index)]

    def __setitem__(self, index, value):
        self.elements[self._key(index)] = value


class EvaluacionRecord:
    def __init__(self):
        self.DatosEmpresa = Table((19,), "")
        self.NumJornadas = 0
        self.NumTareas = 0
        self.TiempoExposicion = Table((3, 3), 0.0)
        self.Muestras30 = Table((3, 3), 0)
        self.Muestras15 = Table((3, 3), 0)
        self.NumContaminantes = Table((3,), 0)
        self.NombreContaminante = Table((3, 6), "")
        self.VlaEd = Table((3, 6), 0.0)
        self.VlaEc = Table((3, 6), 0.0)
        self.TiempoMuestreo = Table((3, 6), 0)
        self.Aditivo = Table((3, 6), 0)
        self.Unidades = Table((3, 6), "")
        self.MG = Table((3, 3, 6), 0.0)
        self.GSD = Table((3, 3, 6), 0.0)
        self.MGmas = Table((3, 3, 6), 0.0)
        self.GSDmas = Table((3, 3, 6), 0.0)
        self.HojaPrimerDia = Table((401,), "")
        self.HojaSegundoDia = Table((401,), "")
        self.HojaTercerDia = Table((401,), "")
        self.HojaFinal = Table((18, 9), "")

    def sheet(self, day: int) -> Table:
        return (self.HojaPrimerDia, self.HojaSegundoDia, self.HojaTercerDia)[day - 1]


def _sequence():
    """(field, subscript or None, kind) of every line, in the order of the file."""
    for i in range(1, 20):
        yield "DatosEmpresa", i, "string"
    yield "NumJornadas", None, "integer"
    yield "NumTareas", None, "integer"
    for day, task in product(range(1, 4), range(1, 4)):
        yield "TiempoExposicion", (day, task), "double"
        yield "Muestras30", (day, task), "integer"
        yield "Muestras15", (day, task), "integer"
    for task in range(1, 4):
        yield "NumContaminantes", task, "integer"
    for subscript in product(range(1, 4), range(1, 7)):
        yield "NombreContaminante", subscript, "string"
        yield "VlaEd", subscript, "double"
        yield "VlaEc", subscript, "double"
        yield "TiempoMuestreo", subscript, "integer"
        yield "Aditivo", subscript, "integer"
        yield "Unidades", subscript, "string"
    for entry in range(1, 402):
        for sheet in ("HojaPrimerDia", "HojaSegundoDia", "HojaTercerDia"):
            yield sheet, entry, "string"
    for subscript in product(range(1, 19), range(1, 10)):
        yield "HojaFinal", subscript, "string"


SEQUENCE = tuple(_sequence())
assert len(SEQUENCE) == 1524

# The five bytes without a character of their own stand for the control characters.
_WITHOUT_CHARACTER = {0x81, 0x8D, 0x8F, 0x90, 0x9D}
_TO_TEXT = [chr(b) if b in _WITHOUT_CHARACTER else bytes([b]).decode("cp1252") for b in range(256)]
_TO_BYTE = {character: byte for byte, character in enumerate(_TO_TEXT)}


def encode(text: str) -> bytes:
    return bytes(_TO_BYTE.get(c, 0x3F) for c in text)


def decode(data: bytes) -> str:
    return "".join(_TO_TEXT[b] for b in data)


def write_evaluation(record: EvaluacionRecord) -> bytes:
    lines = []
    for field, subscript, kind in SEQUENCE:
        value = getattr(record, field) if subscript is None else getattr(record, field)[subscript]
        if kind == "string":
            lines.append('"' + value + '"')
        else:
            lines.append(str(value) if kind == "integer" else plain_decimal(value))
    return encode("".join(line + "\r\n" for line in lines))


# What the reader keeps of a line: 64 KiB or, once the lines have come to a MiB, 256 bytes.
_LONGEST_LINE, _ALWAYS_KEPT, _ALLOWANCE = 65536, 256, 1 << 20


def split_lines(data: bytes) -> list[str]:
    lines, allowance, start = [], _ALLOWANCE, 0
    while start < len(data):
        end = data.find(b"\n", start)
        following = end + 1 if end >= 0 else len(data)
        whole = data[start : end if end >= 0 else len(data)]
        line = whole[: min(_LONGEST_LINE, max(_ALWAYS_KEPT, allowance))]
        if line == whole:
            allowance -= following - start
            line = line.removesuffix(b"\r")
        else:
            allowance -= len(line)
        lines.append(decode(line))
        start = following
    return lines


def _string(line: str) -> str:
    opening = line.find('"')
    if opening < 0:
        return line.strip(" \t")
    closing = line.find('"', opening + 1)
    return line[opening + 1 :] if closing < 0 else line[opening + 1 : closing]


_READERS = {"string": _string, "integer": read_integer, "double": read_double}


def read_evaluation(record: EvaluacionRecord, data: bytes) -> None:
    """Each line feeds its field; a line that gives no value leaves the field as it was."""
    for line, (field, subscript, kind) in zip(split_lines(data), SEQUENCE):
        value = _READERS[kind](line)
        if value is None:
            continue
        if subscript is None:
            setattr(record, field, value)
        else:
            getattr(record, field)[subscript] = value
