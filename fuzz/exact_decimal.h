#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmora::fuzz {

/// A number not below zero, in decimal and exact: 0.d1d2d3... x 10^exponent, its digits without
/// zeros at either end, as many as it takes; zero has none. Every Double is such a number, since
/// 2^-k is 5^k x 10^-k, and so is every text of digits: what a text must read as and a Double must
/// show as is decided here by comparing digits, with no arithmetic of machine numbers.
struct ExactDecimal {
    std::string digits;
    int exponent = 0;

    bool IsZero() const { return digits.empty(); }
    friend bool operator==(const ExactDecimal&, const ExactDecimal&) = default;
};

/// Below 0, 0 or above 0, as a is below, at or above b.
int Compare(const ExactDecimal& a, const ExactDecimal& b);

/// The absolute value of a finite Double.
ExactDecimal Exactly(double value);

/// To so many digits, halves to even: how a Double becomes decimal.
ExactDecimal ToSignificantDigits(const ExactDecimal& number, int digits);

/// To so many places behind the decimal mark, halves up.
ExactDecimal ToPlaces(const ExactDecimal& number, int places);

/// The Double nearest to a number, halves to even; nothing when that is beyond the largest.
std::optional<double> NearestDouble(const ExactDecimal& number);

/// The number in plain notation: "0.5", "120", "0" with the mark given.
std::string Plain(const ExactDecimal& number, std::string_view mark);

/// A number read from the start of a text: digits with at most one mark among or beside them, at
/// least one digit, and an exponent if digits follow its letter.
struct ReadNumber {
    ExactDecimal value;
    std::size_t length = 0;  ///< bytes of the text that it took
};
std::optional<ReadNumber> ReadUnsigned(std::string_view text, std::string_view mark);

/// The whole number nearest to a finite Double, halves to even; nothing outside the range.
std::optional<long long> NearestWhole(double value, long long least, long long most);

}  // namespace velmora::fuzz
