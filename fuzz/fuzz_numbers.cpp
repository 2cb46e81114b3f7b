// The number helpers against exact decimal arithmetic, with the point and with the comma.
//
// Input: one byte that says the separator and what follows: the bits of a Double, a whole number
// and how many of its digits stand behind the decimal mark, or a text.

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "core/numbers.h"
#include "fuzz/bytes.h"
#include "fuzz/check.h"
#include "fuzz/exact_decimal.h"

namespace velmora::fuzz {
namespace {

constexpr int kSignificantDigits = 15;

/// A reading as it came or was due: a number, or the kind of run-time error.
struct Reading {
    std::optional<double> value;
    std::optional<ErrorKind> error;

    friend bool operator==(const Reading&, const Reading&) = default;
};

std::ostream& operator<<(std::ostream& out, const Reading& reading) {
    return reading.value ? out << *reading.value
                         : out << "the error " << static_cast<int>(reading.error.value());
}

template <class Read>
Reading Came(Read read) {
    try {
        return {static_cast<double>(read()), std::nullopt};
    } catch (const ErrorEjecucion& error) {
        return {std::nullopt, error.Kind()};
    }
}

Reading Due(const ExactDecimal& number, bool negative) {
    const auto nearest = NearestDouble(number);
    if (!nearest) return {std::nullopt, ErrorKind::Overflow};
    return {negative ? -*nearest : *nearest, std::nullopt};
}

Reading DueOfLeadingNumber(std::string_view text) {
    const bool negative = text.starts_with('-');
    const auto number = ReadUnsigned(text.substr(negative ? 1 : 0), ".");
    return number ? Due(number->value, negative) : Reading{0.0, std::nullopt};
}

/// The number that the whole text is: nothing when it is something else.
std::optional<Reading> DueOfWholeText(std::string_view text, std::string_view mark) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    const auto number = ReadUnsigned(text, mark);
    if (!number || number->length != text.size()) return std::nullopt;
    return Due(number->value, negative);
}

std::string_view WithoutBlanks(std::string_view text) {
    const auto is_blank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
    return text;
}

Reading DueAsWhole(const Reading& number, long long least, long long most) {
    if (number.error) return number;
    const auto whole = NearestWhole(*number.value, least, most);
    if (!whole) return {std::nullopt, ErrorKind::Overflow};
    return {static_cast<double>(*whole), std::nullopt};
}

void CheckReading(const std::string& text, const std::string& separator) {
    const Reading leading = DueOfLeadingNumber(text);
    const Reading came = Came([&] { return LeerValor(text).Value(); });
    Require(came == leading, "LeerValor reads the leading number", '"', text, "\" came as ", came,
            ", due ", leading);

    const Reading whole = DueOfWholeText(WithoutBlanks(text), separator)
                              .value_or(Reading{std::nullopt, ErrorKind::TypeMismatch});
    const Reading converted = Came([&] { return ConvertirDoble(text).Value(); });
    Require(converted == whole, "ConvertirDoble reads by the locale", '"', text, "\" came as ",
            converted, ", due ", whole);

    const Reading integer = DueAsWhole(whole, -32768, 32767);
    const Reading as_integer = Came([&] { return ConvertirEntero(text).Value(); });
    Require(as_integer == integer, "ConvertirEntero reads an Integer", '"', text, "\" came as ",
            as_integer, ", due ", integer);

    const Reading large = DueAsWhole(whole, std::numeric_limits<std::int32_t>::min(),
                                     std::numeric_limits<std::int32_t>::max());
    const Reading as_large = Came([&] { return ConvertirLargo(text); });
    Require(as_large == large, "ConvertirLargo reads a 32-bit number", '"', text, "\" came as ",
            as_large, ", due ", large);

    const auto in_file = DueOfWholeText(text, ".");
    const auto read = CompleteNumber(text, ".");
    Require(in_file.has_value() == read.has_value(), "NumeroCompleto takes numbers alone", text);
    if (in_file && in_file->value) {
        Require(*read == *in_file->value, "NumeroCompleto reads the number", text, " as ", *read);
    } else if (in_file) {
        Require(std::isinf(*read), "NumeroCompleto tells a number too large", text, " as ", *read);
    }
}

/// The general form of fifteen digits.
std::string General(const ExactDecimal& number, const std::string& separator) {
    const int power = number.exponent - 1;
    if (number.IsZero() || (power >= -4 && power < kSignificantDigits)) {
        return Plain(number, separator);
    }
    const std::string mantissa = Plain({number.digits, 1}, separator);
    const std::string size = Plain(Exactly(std::abs(power)), ".");
    return mantissa + (power < 0 ? "E-" : "E+") + (size.size() < 2 ? "0" : "") + size;
}

/// The pattern "#.##".
std::string TwoPlaces(const ExactDecimal& number, const std::string& separator) {
    std::string text = Plain(ToPlaces(number, 2), separator);
    if (text.find(separator) == std::string::npos) text += separator;
    if (text.starts_with('0')) text.erase(0, 1);
    return text;
}

void CheckTexts(double value, const std::string& separator) {
    const ExactDecimal shown = ToSignificantDigits(Exactly(value), kSignificantDigits);
    const auto with_sign = [&](const std::string& text) {
        const bool has_digits = text.find_first_of("123456789") != std::string::npos;
        return (value < 0 && has_digits ? "-" : "") + text;
    };
    const std::array<std::pair<std::string, std::string>, 3> texts = {{
        {TextoDoble(value), with_sign(General(shown, separator))},
        {FormatoDosDecimales(value), with_sign(TwoPlaces(shown, separator))},
        {PlainDecimalText(value), with_sign(Plain(shown, "."))},
    }};
    for (const auto& [came, due] : texts) {
        Require(came == due, "a Double shows its fifteen digits", value, " came as ", came,
                ", due ", due);
        CheckReading(came, separator);
    }

    const Reading whole = DueAsWhole({value, std::nullopt}, -32768, 32767);
    const Reading rounded = Came([&] { return RedondearEntero(value).Value(); });
    Require(rounded == whole, "RedondearEntero rounds halves to even", value, " came as ", rounded,
            ", due ", whole);
    if (rounded.value) {
        const auto integer = static_cast<int>(*rounded.value);
        const std::string due = (integer < 0 ? "-" : "") + Plain(Exactly(integer), ".");
        Require(TextoEntero(integer) == due, "TextoEntero shows an Integer", integer);
    }
}

/// A whole number with some of its digits behind the decimal mark, as near as a Double gets.
double WithPlaces(std::int64_t digits, int places) {
    double scale = 1;
    for (int i = 0; i < places; ++i) scale *= 10;
    return static_cast<double>(digits) / scale;
}

void Run(Bytes input) {
    const int kind = input.Byte();
    const std::string separator = kind % 2 == 0 ? "." : ",";
    SetDecimalSeparator(separator);
    switch (kind / 2 % 3) {
        case 0:
            CheckReading(input.Rest(), separator);
            break;
        case 1:
            if (const double value = input.Double(); std::isfinite(value)) {
                CheckTexts(value, separator);
            }
            break;
        default: {
            const int places = input.Below(24);
            const int shift = input.Below(64);
            const auto digits = static_cast<std::int64_t>(input.Word());
            CheckTexts(WithPlaces(digits >> shift, places), separator);
        }
    }
}

}  // namespace
}  // namespace velmora::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    velmora::fuzz::Run({data, size});
    return 0;
}
