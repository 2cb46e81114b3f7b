"""The record of the evaluation and its file of 1524 lines."""

from itertools import product

from numeros import ErrorEjecucion, TextoArchivo, leer_doble_archivo, leer_entero_archivo


class Tabla:
    """An array whose subscripts start at 1; one outside its bounds is a run-time error."""

    def __init__(self, medidas: tuple[int, ...], inicial):
        self.medidas = medidas
        self.valores = dict.fromkeys(product(*(range(1, m + 1) for m in medidas)), inicial)

    def _clave(self, indice):
        clave = indice if isinstance(indice, tuple) else (indice,)
        if clave not in self.valores:
            raise ErrorEjecucion("subindice")
        return clave

    def __getitem__(self, indice):
        return self.valores[self._clave(indice)]

    def __setitem__(self, indice, valor):
        self.valores[self._clave(indice)] = valor


class EvaluacionRecord:
    def __init__(self):
        self.DatosEmpresa = Tabla((19,), "")
        self.NumJornadas = 0
        self.NumTareas = 0
        self.TiempoExposicion = Tabla((3, 3), 0.0)
        self.Muestras30 = Tabla((3, 3), 0)
        self.Muestras15 = Tabla((3, 3), 0)
        self.NumContaminantes = Tabla((3,), 0)
        self.NombreContaminante = Tabla((3, 6), "")
        self.VlaEd = Tabla((3, 6), 0.0)
        self.VlaEc = Tabla((3, 6), 0.0)
        self.TiempoMuestreo = Tabla((3, 6), 0)
        self.Aditivo = Tabla((3, 6), 0)
        self.Unidades = Tabla((3, 6), "")
        self.MG = Tabla((3, 3, 6), 0.0)
        self.GSD = Tabla((3, 3, 6), 0.0)
        self.MGmas = Tabla((3, 3, 6), 0.0)
        self.GSDmas = Tabla((3, 3, 6), 0.0)
        self.HojaPrimerDia = Tabla((401,), "")
        self.HojaSegundoDia = Tabla((401,), "")
        self.HojaTercerDia = Tabla((401,), "")
        self.HojaFinal = Tabla((18, 9), "")

    def hoja(self, dia: int) -> Tabla:
        return (self.HojaPrimerDia, self.HojaSegundoDia, self.HojaTercerDia)[dia - 1]


def _secuencia():
    """(field, subscript or None, kind) of every line, in the order of the file."""
    for i in range(1, 20):
        yield "DatosEmpresa", i, "cadena"
    yield "NumJornadas", None, "entero"
    yield "NumTareas", None, "entero"
    for dia, tarea in product(range(1, 4), range(1, 4)):
        yield "TiempoExposicion", (dia, tarea), "doble"
        yield "Muestras30", (dia, tarea), "entero"
        yield "Muestras15", (dia, tarea), "entero"
    for tarea in range(1, 4):
        yield "NumContaminantes", tarea, "entero"
    for lugar in product(range(1, 4), range(1, 7)):
        yield "NombreContaminante", lugar, "cadena"
        yield "VlaEd", lugar, "doble"
        yield "VlaEc", lugar, "doble"
        yield "TiempoMuestreo", lugar, "entero"
        yield "Aditivo", lugar, "entero"
        yield "Unidades", lugar, "cadena"
    for entrada in range(1, 402):
        for hoja in ("HojaPrimerDia", "HojaSegundoDia", "HojaTercerDia"):
            yield hoja, entrada, "cadena"
    for lugar in product(range(1, 19), range(1, 10)):
        yield "HojaFinal", lugar, "cadena"


SECUENCIA = tuple(_secuencia())
assert len(SECUENCIA) == 1524

# The five bytes without a character of their own stand for the control characters.
_SIN_CARACTER = {0x81, 0x8D, 0x8F, 0x90, 0x9D}
_A_TEXTO = [chr(b) if b in _SIN_CARACTER else bytes([b]).decode("cp1252") for b in range(256)]
_A_BYTE = {caracter: byte for byte, caracter in enumerate(_A_TEXTO)}


def codificar(texto: str) -> bytes:
    return bytes(_A_BYTE.get(c, 0x3F) for c in texto)


def decodificar(datos: bytes) -> str:
    return "".join(_A_TEXTO[b] for b in datos)


def escribir(registro: EvaluacionRecord) -> bytes:
    lineas = []
    for campo, lugar, clase in SECUENCIA:
        valor = getattr(registro, campo) if lugar is None else getattr(registro, campo)[lugar]
        if clase == "cadena":
            lineas.append('"' + valor + '"')
        else:
            lineas.append(str(valor) if clase == "entero" else TextoArchivo(valor))
    return codificar("".join(linea + "\r\n" for linea in lineas))


# What the reader keeps of a line: 64 KiB or, once the lines have come to a MiB, 256 bytes.
_LINEA, _LINEA_DESPUES, _HOLGURA = 65536, 256, 1 << 20


def partir_lineas(datos: bytes) -> list[str]:
    lineas, holgura, desde = [], _HOLGURA, 0
    while desde < len(datos):
        hasta = datos.find(b"\n", desde)
        siguiente = hasta + 1 if hasta >= 0 else len(datos)
        entera = datos[desde : hasta if hasta >= 0 else len(datos)]
        linea = entera[: min(_LINEA, max(_LINEA_DESPUES, holgura))]
        if linea == entera:
            holgura -= siguiente - desde
            linea = linea.removesuffix(b"\r")
        else:
            holgura -= len(linea)
        lineas.append(decodificar(linea))
        desde = siguiente
    return lineas


def _cadena(linea: str) -> str:
    abre = linea.find('"')
    if abre < 0:
        return linea.strip(" \t")
    cierra = linea.find('"', abre + 1)
    return linea[abre + 1 :] if cierra < 0 else linea[abre + 1 : cierra]


_LECTORES = {"cadena": _cadena, "entero": leer_entero_archivo, "doble": leer_doble_archivo}


def leer(registro: EvaluacionRecord, datos: bytes) -> None:
    """Each line feeds its field; a line that gives no value leaves the field as it was."""
    for linea, (campo, lugar, clase) in zip(partir_lineas(datos), SECUENCIA):
        valor = _LECTORES[clase](linea)
        if valor is None:
            continue
        if lugar is None:
            setattr(registro, campo, valor)
        else:
            getattr(registro, campo)[lugar] = valor
