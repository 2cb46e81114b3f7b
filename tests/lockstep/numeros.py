"""Checked arithmetic, 16-bit Integers and the conversions between numbers and texts.

Every floating-point operation goes through one of the functions below, so that an overflow, an
invalid operation or a division by zero stops the handler exactly where it happens.
"""

import math
import re
from decimal import ROUND_HALF_UP, Context, Decimal

_AMPLIO = Context(prec=800, rounding=ROUND_HALF_UP)
_NUMERO_INICIAL = re.compile(r"-?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eE][+-]?[0-9]+)?")
_NUMERO_ENTERO = re.compile(r"[+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eE][+-]?[0-9]+)?\Z")


class ErrorEjecucion(Exception):
    """A run-time error: it ends the whole program."""


def comprobado(valor: float) -> float:
    if math.isinf(valor):
        raise ErrorEjecucion("desbordamiento")
    if math.isnan(valor):
        raise ErrorEjecucion("operacion no valida")
    return valor


def suma(a: float, b: float) -> float:
    return comprobado(a + b)


def resta(a: float, b: float) -> float:
    return comprobado(a - b)


def producto(a: float, b: float) -> float:
    return comprobado(a * b)


def cociente(a: float, b: float) -> float:
    if b == 0:
        raise ErrorEjecucion("operacion no valida" if a == 0 else "division por cero")
    return comprobado(a / b)


def potencia(a: float, b: float) -> float:
    """The general power, never a product or a square root."""
    try:
        return comprobado(math.pow(a, b))
    except OverflowError:
        raise ErrorEjecucion("desbordamiento") from None
    except ValueError:
        raise ErrorEjecucion("operacion no valida") from None


def exponencial(a: float) -> float:
    try:
        return comprobado(math.exp(a))
    except OverflowError:
        raise ErrorEjecucion("desbordamiento") from None


def logaritmo(a: float) -> float:
    try:
        return comprobado(math.log(a))
    except ValueError:
        raise ErrorEjecucion("argumento no valido") from None


def entero(valor: int) -> int:
    """A whole number that must fit a 16-bit Integer."""
    if not -32768 <= valor <= 32767:
        raise ErrorEjecucion("desbordamiento")
    return valor


def RedondearEntero(valor: float) -> int:
    return entero(round(valor))


def LeerValor(texto: str) -> float:
    """The longest leading number with a point; 0 when there is none."""
    hallado = _NUMERO_INICIAL.match(texto)
    return comprobado(float(hallado.group())) if hallado else 0.0


def ConvertirDoble(texto: str, separador: str) -> float:
    limpio = texto.strip(" ").replace(separador, ".")
    if not _NUMERO_ENTERO.match(limpio):
        raise ErrorEjecucion("tipos")
    return comprobado(float(limpio))


def ConvertirEntero(texto: str, separador: str) -> int:
    return RedondearEntero(ConvertirDoble(texto, separador))


def ConvertirLargo(texto: str, separador: str) -> int:
    valor = round(ConvertirDoble(texto, separador))
    if not -(2**31) <= valor < 2**31:
        raise ErrorEjecucion("desbordamiento")
    return valor


def TextoDoble(valor: float, separador: str) -> str:
    """Fifteen significant digits: fixed from 0.0001 to below 1E+15, with an exponent elsewhere."""
    if valor == 0:
        return "0"
    return ("%.15G" % valor).replace(".", separador)


def TextoEntero(valor: int) -> str:
    return str(valor)


def _quince_cifras(valor: float) -> Decimal:
    return Decimal("%.14e" % valor)


def FormatoDosDecimales(valor: float, separador: str) -> str:
    """The pattern "#.##": halves away from zero on the fifteen significant digits."""
    redondo = _quince_cifras(valor).quantize(Decimal("0.01"), context=_AMPLIO)
    if redondo == 0:
        return separador
    parte_entera, decimales = format(redondo.copy_abs(), "f").split(".")
    signo = "-" if redondo < 0 else ""
    return signo + parte_entera.lstrip("0") + separador + decimales.rstrip("0")


def TextoArchivo(valor: float) -> str:
    """A Double on a line of the evaluation file: plain decimal notation with a point."""
    texto = format(_quince_cifras(valor), "f")
    if "." in texto:
        texto = texto.rstrip("0").rstrip(".")
    return "0" if texto in ("-0", "") else texto


def leer_doble_archivo(linea: str) -> float | None:
    """The Double that a numeric line gives, or None when it gives none."""
    limpia = linea.strip(" \t")
    if not _NUMERO_ENTERO.match(limpia):
        return None
    valor = float(limpia)
    return None if math.isinf(valor) else valor


def leer_entero_archivo(linea: str) -> int | None:
    valor = leer_doble_archivo(linea)
    if valor is None:
        return None
    redondo = round(valor)
    return redondo if -32768 <= redondo <= 32767 else None
