"""Checked arithmetic, 16-bit Integers and the conversions between numbers and texts.

Every floating-point operation goes through one of the functions below, so that an overflow, an
invalid operation or a division by zero stops the handler exactly where it happens.
"""

import math
import re
from decimal import ROUND_HALF_UP, Context, Decimal

_WIDE = Context(prec=800, rounding=ROUND_HALF_UP)
_LEADING_NUMBER = re.compile(r"-?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eE][+-]?[0-9]+)?")
_COMPLETE_NUMBER = re.compile(r"[+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eE][+-]?[0-9]+)?\Z")


class ErrorEjecucion(Exception):
    """A run-time error: it ends the whole program."""


def checked(value: float) -> float:
    if math.isinf(value):
        raise ErrorEjecucion("overflow")
    if math.isnan(value):
        raise ErrorEjecucion("invalid operation")
    return value


def add(a: float, b: float) -> float:
    return checked(a + b)


def subtract(a: float, b: float) -> float:
    return checked(a - b)


def multiply(a: float, b: float) -> float:
    return checked(a * b)


def divide(a: float, b: float) -> float:
    if b == 0:
        raise ErrorEjecucion("invalid operation" if a == 0 else "division by zero")
    return checked(a / b)


def power(a: float, b: float) -> float:
    """The general power, never a product or a square root."""
    try:
        return checked(math.pow(a, b))
    except OverflowError:
        raise ErrorEjecucion("overflow") from None
    except ValueError:
        raise ErrorEjecucion("invalid operation") from None


def exponential(a: float) -> float:
    try:
        return checked(math.exp(a))
    except OverflowError:
        raise ErrorEjecucion("overflow") from None


def logarithm(a: float) -> float:
    try:
        return checked(math.log(a))
    except ValueError:
        raise ErrorEjecucion("invalid argument") from None


def integer(value: int) -> int:
    """A whole number that must fit a 16-bit Integer."""
    if not -32768 <= value <= 32767:
        raise ErrorEjecucion("overflow")
    return value


def RedondearEntero(value: float) -> int:
    return integer(round(value))


def LeerValor(text: str) -> float:
    """The longest leading number with a point; 0 when there is none."""
    found = _LEADING_NUMBER.match(text)
    return checked(float(found.group())) if found else 0.0


def ConvertirDoble(text: str, separator: str) -> float:
    clean = text.strip(" ").replace(separator, ".")
    if not _COMPLETE_NUMBER.match(clean):
        raise ErrorEjecucion("type mismatch")
    return checked(float(clean))


def ConvertirEntero(text: str, separator: str) -> int:
    return RedondearEntero(ConvertirDoble(text, separator))


def ConvertirLargo(text: str, separator: str) -> int:
    value = round(ConvertirDoble(text, separator))
    if not -(2**31) <= value < 2**31:
        raise ErrorEjecucion("overflow")
    return value


def TextoDoble(value: float, separator: str) -> str:
    """Fifteen significant digits: fixed from 0.0001 to below 1E+15, with an exponent elsewhere."""
    if value == 0:
        return "0"
    return ("%.15G" % value).replace(".", separator)


def TextoEntero(value: int) -> str:
    return str(value)


def _fifteen_digits(value: float) -> Decimal:
    return Decimal("%.14e" % value)


def FormatoDosDecimales(value: float, separator: str) -> str:
    """The pattern "#.##": halves away from zero on the fifteen significant digits."""
    rounded = _fifteen_digits(value).quantize(Decimal("0.01"), context=_WIDE)
    if rounded == 0:
        return separator
    whole_part, decimals = format(rounded.copy_abs(), "f").split(".")
    sign = "-" if rounded < 0 else ""
    return sign + whole_part.lstrip("0") + separator + decimals.rstrip("0")


def plain_decimal(value: float) -> str:
    """A Double on a line of the evaluation file: plain decimal notation with a point."""
    text = format(_fifteen_digits(value), "f")
    if "." in text:
        text = text.rstrip("0").rstrip(".")
    return "0" if text in ("-0", "") else text


def read_double(line: str) -> float | None:
    """The Double that a numeric line gives, or None when it gives none."""
    clean = line.strip(" \t")
    if not _COMPLETE_NUMBER.match(clean):
        return None
    value = float(clean)
    return None if math.isinf(value) else value


def read_integer(line: str) -> int | None:
    value = read_double(line)
    if value is None:
        return None
    rounded = round(value)
    return rounded if -32768 <= rounded <= 32767 else None
