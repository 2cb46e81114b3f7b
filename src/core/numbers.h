#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "runtime/doble.h"
#include "runtime/entero.h"

namespace velmora {

/// Sets the decimal separator that the program writes, "." until told otherwise. Called once at
/// start with that of the user's locale; only the helpers of this header know it.
void SetDecimalSeparator(std::string separator);
const std::string& DecimalSeparator();

/// Text to Double by the leading-number rule: at the very start an optional minus sign, digits with
/// at most one point, an exponent if digits follow it. The point is the only decimal mark, whatever
/// the locale. Stops at the first character that can't continue the number; 0 when there is none.
/// Throws Overflow for a number too large.
Doble LeerValor(std::string_view text);

/// Text to Double, to 16-bit Integer, to 32-bit whole number by the locale's rules: blanks around,
/// a sign, the locale's separator, an exponent. Whole numbers round halves to even. Other text
/// throws TypeMismatch, a number out of range Overflow.
Doble ConvertirDoble(std::string_view text);
Entero ConvertirEntero(std::string_view text);
int ConvertirLargo(std::string_view text);

/// Double to text in the general form with up to fifteen significant digits and the locale's
/// separator: fixed from 0.0001 to below 1E+15, "1E-05", "1E+20" outside. Never "-0".
std::string TextoDoble(Doble value);

/// Integer to text.
std::string TextoEntero(Entero value);

/// Double to whole number, to nearest with ties to even. Throws Overflow outside 16 bits.
Entero RedondearEntero(Doble value);

/// Double to text by the pattern "#.##": at most two decimals, halves away from zero on the decimal
/// value of the fifteen significant digits, no leading zero, the locale's separator always there.
/// 0.118 gives ".12", 4 gives "4.", 0 gives ".".
std::string FormatoDosDecimales(Doble value);

/// Double to text in plain decimal notation with a point and a leading zero whatever the locale, up
/// to fifteen significant digits and no exponent: the form that the evaluation file holds.
std::string PlainDecimalText(Doble value);

/// The number that a whole text is: a sign, digits with at most one `separator` (with or without a
/// digit ahead of it), an exponent. Nothing when the text is something else; infinity when it is
/// too large for a Double.
std::optional<double> CompleteNumber(std::string_view text, std::string_view separator);

}  // namespace velmora
