#include "core/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <system_error>
#include <utility>

#include "runtime/error.h"
#include "runtime/text.h"

namespace velmora {

namespace {

std::string decimal_separator = ".";  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

std::string Digits(int n) {
    std::array<char, 12> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), n).ptr};
}

/// Length of the run of digits at the start of `text`.
std::size_t LeadingDigits(std::string_view text) {
    std::size_t n = 0;
    while (n < text.size() && IsDigit(text[n])) ++n;
    return n;
}

/// Length of the exponent at the start of `text`, 0 when no digits follow its letter.
std::size_t LeadingExponent(std::string_view text) {
    if (text.empty() || (text[0] != 'e' && text[0] != 'E')) return 0;
    const std::size_t sign = text.size() > 1 && (text[1] == '+' || text[1] == '-') ? 1 : 0;
    const std::size_t digits = LeadingDigits(text.substr(1 + sign));
    return digits == 0 ? 0 : 1 + sign + digits;
}

/// A number cut out of a text: its spelling with a point, and how many bytes of the text it took.
struct LeadingNumber {
    std::string spelled;
    std::size_t length = 0;
};

/// The longest unsigned number at the start of `text`; empty when no digit is there.
LeadingNumber UnsignedNumber(std::string_view text, std::string_view separator) {
    const std::size_t whole = LeadingDigits(text);
    std::size_t length = whole;
    std::size_t decimals = 0;
    if (text.substr(length).starts_with(separator)) {
        length += separator.size();
        decimals = LeadingDigits(text.substr(length));
        length += decimals;
    }
    if (whole + decimals == 0) return {};
    const std::size_t exponent = LeadingExponent(text.substr(length));

    std::string spelled(text.substr(0, whole));
    if (decimals > 0) {
        if (whole == 0) spelled = "0";
        spelled.append(".").append(text.substr(whole + separator.size(), decimals));
    }
    spelled.append(text.substr(length, exponent));
    return {std::move(spelled), length + exponent};
}

/// The value of an unsigned number as `UnsignedNumber` spells it; infinity when it is too large,
/// 0 when it is too small.
double ValueOf(const std::string& spelled) {
    double value = 0;
    const auto read = std::from_chars(spelled.data(), spelled.data() + spelled.size(), value);
    if (read.ec != std::errc::result_out_of_range) return value;
    // Too large and too small are reported alike, so the place of the first digit decides.
    const std::size_t e = spelled.find_first_of("eE");
    const std::string mantissa = spelled.substr(0, e);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_not_of("0.");
    double magnitude = static_cast<double>(point) - static_cast<double>(first);
    if (e != std::string::npos) {
        const bool negative = spelled[e + 1] == '-';
        const std::size_t digits = spelled.find_first_of("0123456789", e);
        double exponent = 0;
        for (std::size_t i = digits; i < spelled.size(); ++i) {
            exponent = std::min(exponent * 10 + (spelled[i] - '0'), 1e9);
        }
        magnitude += negative ? -exponent : exponent;
    }
    return magnitude > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

/// The decimal value that fifteen significant digits give: digits d1 d2 d3 ... without zeros at the
/// end stand for 0.d1d2d3... x 10^exponent. Zero has no digits.
struct Decimals {
    bool negative = false;
    std::string digits;
    int exponent = 0;
};

Decimals FifteenDigits(double value) {
    constexpr int kDecimals = 14;
    std::array<char, 32> text{};
    const auto spelled = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                       std::chars_format::scientific, kDecimals);
    const std::string_view scientific(text.data(), spelled.ptr);
    const std::size_t e = scientific.find('e');

    Decimals d;
    d.digits.append(scientific.substr(0, 1)).append(scientific.substr(2, e - 2));
    d.digits.erase(d.digits.find_last_not_of('0') + 1);
    if (d.digits.empty()) return d;
    d.negative = value < 0;
    const std::size_t sign = scientific[e + 1] == '+' ? 2 : 1;
    std::from_chars(scientific.data() + e + sign, scientific.data() + scientific.size(),
                    d.exponent);
    d.exponent += 1;
    return d;
}

/// The digits ahead of the decimal separator, none for a value below 1.
std::string WholePart(const Decimals& d) {
    if (d.exponent <= 0) return {};
    const auto n = static_cast<std::size_t>(d.exponent);
    std::string part = d.digits.substr(0, n);
    part.resize(n, '0');
    return part;
}

/// The digits behind the decimal separator, none for a whole number.
std::string DecimalPart(const Decimals& d) {
    if (d.exponent <= 0) {
        std::string part(static_cast<std::size_t>(-d.exponent), '0');
        return part.append(d.digits);
    }
    return d.digits.substr(std::min(static_cast<std::size_t>(d.exponent), d.digits.size()));
}

std::string PlainNotation(const Decimals& d, const std::string& separator) {
    std::string text = d.negative ? "-" : "";
    const std::string whole = WholePart(d);
    const std::string decimal = DecimalPart(d);
    if (whole.empty()) text += '0';
    text += whole;
    if (!decimal.empty()) text += separator + decimal;
    return text;
}

std::string ExponentialNotation(const Decimals& d, const std::string& separator) {
    std::string text = d.negative ? "-" : "";
    text += d.digits.substr(0, 1);
    if (d.digits.size() > 1) text += separator + d.digits.substr(1);
    const int exponent = d.exponent - 1;
    std::string digits = Digits(std::abs(exponent));
    if (digits.size() < 2) digits.insert(0, "0");
    return text + (exponent < 0 ? "E-" : "E+") + digits;
}

/// Rounds to `decimals` places behind the separator, halves away from zero.
Decimals Rounded(Decimals d, int decimals) {
    const int left = d.exponent + decimals;
    if (left >= static_cast<int>(d.digits.size())) return d;
    if (left < 0) return {};
    const auto n = static_cast<std::size_t>(left);
    const bool up = d.digits[n] >= '5';
    d.digits.resize(n);
    if (up) {
        while (!d.digits.empty() && d.digits.back() == '9') d.digits.pop_back();
        if (d.digits.empty()) {
            d.digits = "1";
            d.exponent += 1;
        } else {
            ++d.digits.back();
        }
    }
    d.digits.erase(d.digits.find_last_not_of('0') + 1);
    return d.digits.empty() ? Decimals{} : d;
}

/// Half to even, within [lowest, highest].
double RoundWithin(double value, double lowest, double highest) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= lowest && rounded <= highest)) throw ErrorEjecucion(ErrorKind::Overflow);
    return rounded;
}

}  // namespace

void SetDecimalSeparator(std::string separator) { decimal_separator = std::move(separator); }

const std::string& DecimalSeparator() { return decimal_separator; }

Doble LeerValor(std::string_view text) {
    const bool negative = text.starts_with('-');
    const LeadingNumber number = UnsignedNumber(text.substr(negative ? 1 : 0), ".");
    if (number.spelled.empty()) return 0.0;
    const double value = ValueOf(number.spelled);
    if (std::isinf(value)) throw ErrorEjecucion(ErrorKind::Overflow);
    return negative ? -value : value;
}

std::optional<double> CompleteNumber(std::string_view text, std::string_view separator) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    const LeadingNumber number = UnsignedNumber(text, separator);
    if (number.spelled.empty() || number.length != text.size()) return std::nullopt;
    const double value = ValueOf(number.spelled);
    return negative ? -value : value;
}

Doble ConvertirDoble(std::string_view text) {
    const auto value = CompleteNumber(Trimmed(text), decimal_separator);
    if (!value) throw ErrorEjecucion(ErrorKind::TypeMismatch);
    if (std::isinf(*value)) throw ErrorEjecucion(ErrorKind::Overflow);
    return *value;
}

Entero ConvertirEntero(std::string_view text) { return RedondearEntero(ConvertirDoble(text)); }

int ConvertirLargo(std::string_view text) {
    return static_cast<int>(RoundWithin(ConvertirDoble(text).Value(),
                                        std::numeric_limits<int>::min(),
                                        std::numeric_limits<int>::max()));
}

std::string TextoDoble(Doble value) {
    constexpr int kFirstExponential = 15;  // 1E+15
    constexpr int kLastFixed = -4;         // 0.0001
    const Decimals d = FifteenDigits(value.Value());
    if (d.digits.empty()) return "0";
    const int power = d.exponent - 1;
    const bool fixed = power >= kLastFixed && power < kFirstExponential;
    return fixed ? PlainNotation(d, decimal_separator) : ExponentialNotation(d, decimal_separator);
}

std::string TextoEntero(Entero value) { return Digits(value.Value()); }

Entero RedondearEntero(Doble value) {
    return static_cast<int>(RoundWithin(value.Value(), std::numeric_limits<std::int16_t>::min(),
                                        std::numeric_limits<std::int16_t>::max()));
}

std::string FormatoDosDecimales(Doble value) {
    const Decimals d = Rounded(FifteenDigits(value.Value()), 2);
    return (d.negative ? "-" : "") + WholePart(d) + decimal_separator + DecimalPart(d);
}

std::string PlainDecimalText(Doble value) {
    return PlainNotation(FifteenDigits(value.Value()), ".");
}

}  // namespace velmora
