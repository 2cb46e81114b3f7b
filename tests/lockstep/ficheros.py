"""Random evaluation files: plausible ones, odd ones and broken ones."""

from numeros import TextoDoble
from registro import EvaluacionRecord, SECUENCIA, escribir

NOMBRES = (
    "tolueno", "xileno", "etilbenceno", "acetona", "n-hexano", "benceno", "óxido de etileno",
    "plomo (Pb)", "ácido nítrico", "Cr VI", "2-butanona", "sílice 1/2", "polvo < 10 µm",
)  # fmt: skip
UNIDADES = ("mg/m3", "ppm", "mg/m3", "ppm", "mg/m3", "ppm", "f/cc", "µg/m3", "")
LIMITES = (192.0, 384.0, 221.0, 442.0, 884.0, 50.0, 100.0, 1.0, 2.0, 10.0, 5.0, 20.0, 0.5, 12.75)

CELDAS_RARAS = (
    "-5", "1E400", "1E5", "1e-3", " 3", "1,5", "abc", ".", "5.", "1.2.3", "0", "0.0", "-", "-0",
    ".5", "1E+20", "+4", "3 4", "1E-400", "99999999999999999999", "30", "15", "2", "6", "20",
)  # fmt: skip
FILAS_RARAS = (
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
ENTEROS_RAROS = (
    "abc", '"3"', "", " 3 ", "2.5", "3.5", "2.4", "40000", "-40000", "32767.4", "32767.5", "-1",
    ".5", "5.", "1,5", "7", "4", "-2", "0", "3 4", "- 2", "--1", "1.2.3",
)  # fmt: skip
DOBLES_RAROS = (
    "abc", '"3"', "", "  8.5  ", "0.5", ".5", "5.", "1,5", "-8", "0", "1E400", "3 4", "-.25",
    "123456789012345678", "0.000012345678901234567", "1.2.3", "--1",
)  # fmt: skip


def _elegir_distribucion(azar, n):
    treinta = azar.randint(0, n)
    return treinta, n - treinta


def limite(azar, separador):
    """A limit value; where the point is no separator, mostly one that reads back whole."""
    return azar.choice(LIMITES[: 12 if separador == "," and azar.random() < 0.9 else None])


def plan(azar, separador):
    """A record whose plan and contaminants are valid."""
    r = EvaluacionRecord()
    for i in range(1, 20):
        r.DatosEmpresa[i] = azar.choice(("---", "Pinturas Ñandú, S.L.", "12", "Avda. Única 3 €"))
    r.NumJornadas = azar.choice((1, 3, 3))
    r.NumTareas = azar.randint(1, 3)
    for t in range(1, r.NumTareas + 1):
        n = azar.randint(1, 6)
        r.NumContaminantes[t] = n
        for d in range(1, r.NumJornadas + 1):
            r.TiempoExposicion[d, t] = float(azar.randint(1, 14))
            total = n if azar.random() < 0.96 else azar.randint(0, 6)
            r.Muestras30[d, t], r.Muestras15[d, t] = _elegir_distribucion(azar, total)
        marcas = marcas_aditivas(azar, t)
        if azar.random() < 0.15:  # numbers that only a file can bring
            alto = azar.choice((10, 12, 13, 18, 19, 20, 21))
            marcas = [azar.choice((0, alto, alto)) for _ in range(6)]
        for c in range(1, 7 if azar.random() < 0.1 else n + 1):
            r.NombreContaminante[t, c] = azar.choice(NOMBRES)
            r.VlaEd[t, c] = limite(azar, separador)
            r.VlaEc[t, c] = azar.choice((0.0, r.VlaEd[t, c] * 2, limite(azar, separador)))
            if r.VlaEc[t, c] and azar.random() < 0.06:
                r.VlaEd[t, c] = 0.0
            r.TiempoMuestreo[t, c] = azar.choice((15, 30))
            r.Aditivo[t, c] = marcas[c - 1]
            r.Unidades[t, c] = azar.choice(UNIDADES)
    return r


def marcas_aditivas(azar, t):
    """Six additive marks of task t: none, one group, or anything a digit can be."""
    modo = azar.random()
    if modo < 0.35:
        return [0] * 6
    if modo < 0.8:
        grupo = azar.choice((1, 1, 2, 3, 6 * (t - 1) + 1 if t == 1 else azar.randint(1, 9)))
        return [azar.choice((0, grupo)) for _ in range(6)]
    return [azar.randint(0, 9) for _ in range(6)]


def _raros_en_el_plan(azar, r):
    for _ in range(azar.choice((1, 1, 2, 3))):
        d, t, c = azar.randint(1, 3), azar.randint(1, 3), azar.randint(1, 6)
        caso = azar.randint(0, 8)
        if caso == 0:
            r.NumJornadas = azar.choice((0, 2, 4, -1, 7, 200))
        elif caso == 1:
            r.NumTareas = azar.choice((0, 0, 4, 4, -1, 5, 200))
        elif caso == 2:
            r.Muestras30[d, t] = azar.choice((7, 7, 6, -2, 12, 2000, 30000))
        elif caso == 3:
            r.Muestras15[d, t] = azar.choice((7, 6, -2, 5, 20000))
        elif caso == 4:
            r.NumContaminantes[t] = azar.choice((7, 0, -1, 6, 8, 19, 7000))
        elif caso == 5:
            r.VlaEd[t, c] = azar.choice((0.0, -5.0, 1e300, 1e308, 1e-7, 0.3))
        elif caso == 6:
            r.TiempoExposicion[d, t] = azar.choice((0.0, -8.0, 1e308, 7.5))
        elif caso == 7:
            r.Aditivo[t, c] = azar.choice((7, 19, 20, 21, -1, 13, 18))
        else:
            r.TiempoMuestreo[t, c] = azar.choice((0, 10, 15, 30, -15))


def _texto(azar, valor, separador):
    return TextoDoble(float("%.3g" % valor), separador)


def _hoja(azar, r, d, separador, raras):
    """The texts of a day as the sheet would have left them, some cells odd."""
    hoja = r.hoja(d)
    for t in range(1, 4):
        filas = r.Muestras30[d, t] + r.Muestras15[d, t] if t <= r.NumTareas else 0
        for c in range(1, min(max(filas, 0), 6) + 1):
            fila = 6 * (t - 1) + c - 1
            textos = [
                str(c), r.NombreContaminante[t, c], TextoDoble(r.VlaEd[t, c], separador),
                TextoDoble(r.VlaEc[t, c], separador), r.Unidades[t, c],
                str(r.TiempoMuestreo[t, c]), str(r.Aditivo[t, c]),
            ]  # fmt: skip
            escala = (r.VlaEd[t, c] or 1.0) * 10 ** azar.uniform(-2, 0.6)
            muestras = azar.randint(2, 6)
            textos += [
                ("%.3g" % (abs(escala) * azar.uniform(0.5, 2))) if m < muestras else ""
                for m in range(6)
            ]
            textos += [_texto(azar, azar.uniform(0, 2), separador) for _ in range(5)]
            for columna, texto in enumerate(textos):
                if azar.random() < raras:
                    texto = azar.choice(CELDAS_RARAS)
                hoja[fila * 18 + columna + 1] = texto
            for columna in range(4):
                texto = _texto(azar, azar.choice((0.001, 0.5, 5, 50)), separador)
                hoja[325 + fila * 4 + columna] = azar.choice((texto, texto, ""))
    if raras and azar.random() < 0.5:
        fila = azar.choice((0, 0, 1, 2, 6, 12))
        for columna, texto in zip(range(7, 13), azar.choice(FILAS_RARAS)):
            hoja[fila * 18 + columna + 1] = texto
    if azar.random() < 0.5:
        for entrada, texto in zip(range(397, 402), ("0.5", "0.001", "uno", " dos", "NO")):
            hoja[entrada] = texto


def _romper(azar, datos):
    lineas = datos.split(b"\r\n")[:-1]
    for _ in range(azar.choice((1, 2, 5, 20))):
        i = azar.randrange(min(len(lineas), azar.choice((25, 160, 1524))))
        clase = SECUENCIA[i][2]
        if clase == "entero":
            lineas[i] = azar.choice(ENTEROS_RAROS).encode()
        elif clase == "doble":
            lineas[i] = azar.choice(DOBLES_RAROS).encode()
        else:
            dentro = lineas[i].strip(b'"') or b"7.5"
            lineas[i] = azar.choice(
                (
                    b'"' + dentro,
                    dentro + b'"',
                    dentro,
                    b"  " + dentro + b" ",
                    b'x"' + dentro + b'" y',
                    b'"' + dentro[:1] + b'"' + dentro[1:] + b'"',
                    b"",
                    b'"',
                    b'"\x81\x8d\x80\xff\xa0"',
                    b"12",
                    b'"' + dentro + b'\t\x00."',
                    b'"' + dentro * (2 if azar.random() < 0.9 else 12000) + b'"',
                )
            )
    if azar.random() < 0.2:
        lineas = lineas[: azar.randrange(len(lineas) + 1)]
    if azar.random() < 0.1:
        lineas += [b'"sobra"', b"9"]
    fin = b"\n" if azar.random() < 0.25 else b"\r\n"
    roto = b"".join(linea + fin for linea in lineas)
    if azar.random() < 0.15:
        roto = roto[: azar.randrange(len(roto) + 1)]
    return roto


def fichero(azar, separador):
    """The bytes of an evaluation file."""
    r = plan(azar, separador)
    if azar.random() < 0.2:
        _raros_en_el_plan(azar, r)
    raras = azar.choice((0, 0, 0.01, 0.01, 0.08))
    for d in (1, 2, 3):
        if azar.random() < 0.6:
            _hoja(azar, r, d, separador, raras)
    if azar.random() < 0.5:
        for fila in range(1, 19):
            r.HojaFinal[fila, 2] = azar.choice(NOMBRES)
            for columna in (3, 4, 5, 6, 7, 8, 9):
                texto = _texto(azar, azar.uniform(0, 2), separador)
                if azar.random() < raras:
                    texto = azar.choice(CELDAS_RARAS)
                r.HojaFinal[fila, columna] = azar.choice((texto, texto, texto, ""))
    datos = escribir(r)
    suerte = azar.random()
    if suerte < 0.2:
        return _romper(azar, datos)
    if suerte < 0.21:
        return b""
    if suerte < 0.22:
        return bytes(b for b in azar.randbytes(3000) if b not in (0, 13, 26))
    return datos
