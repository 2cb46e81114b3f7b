#include "fuzz/exact_decimal.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <vector>

#include "fuzz/check.h"

namespace velmora::fuzz {

namespace {

constexpr int kMantissaBits = 52;
constexpr int kLeastPower = -1074;  ///< of 2, of the last bit of the smallest Doubles

/// A whole number, nine decimal digits to a limb, the lowest first.
class Whole {
public:
    explicit Whole(std::uint64_t value) {
        for (; value != 0; value /= kBase) limbs_.push_back(value % kBase);
    }

    void MultiplyBy(std::uint64_t factor) {
        std::uint64_t carry = 0;
        for (std::uint64_t& limb : limbs_) {
            carry += limb * factor;
            limb = carry % kBase;
            carry /= kBase;
        }
        for (; carry != 0; carry /= kBase) limbs_.push_back(carry % kBase);
    }

    /// Multiplies by base^power; `step` is the largest power of the base that fits 32 bits.
    void MultiplyByPower(std::uint64_t base, int power, int step) {
        std::uint64_t large = 1;
        for (int i = 0; i < step; ++i) large *= base;
        for (; power >= step; power -= step) MultiplyBy(large);
        for (; power > 0; --power) MultiplyBy(base);
    }

    std::string Digits() const {
        std::string digits;
        for (std::size_t i = limbs_.size(); i-- > 0;) {
            std::string nine(9, '0');
            std::uint64_t rest = limbs_[i];
            for (auto digit = nine.rbegin(); rest != 0; ++digit, rest /= 10) {
                *digit = static_cast<char>('0' + rest % 10);
            }
            digits += nine;
        }
        return digits;
    }

private:
    static constexpr std::uint64_t kBase = 1'000'000'000;
    std::vector<std::uint64_t> limbs_;
};

/// 0.digits x 10^exponent without the zeros at either end.
ExactDecimal Trimmed(std::string digits, int exponent) {
    const std::size_t first = std::min(digits.find_first_not_of('0'), digits.size());
    digits.erase(0, first);
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.empty()) return {};
    return {std::move(digits), exponent - static_cast<int>(first)};
}

/// mantissa x 2^power.
ExactDecimal OfDyadic(std::uint64_t mantissa, int power) {
    Whole whole(mantissa);
    if (power >= 0)
        whole.MultiplyByPower(2, power, 31);
    else
        whole.MultiplyByPower(5, -power, 13);
    const std::string digits = whole.Digits();
    return Trimmed(digits, static_cast<int>(digits.size()) + std::min(power, 0));
}

/// A finite Double as mantissa x 2^power.
struct Parts {
    std::uint64_t mantissa;
    int power;
};

Parts PartsOf(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(std::fabs(value));
    const auto power = static_cast<int>(bits >> kMantissaBits);
    const std::uint64_t mantissa = bits & ((std::uint64_t{1} << kMantissaBits) - 1);
    if (power == 0) return {mantissa, kLeastPower};
    return {mantissa | std::uint64_t{1} << kMantissaBits, kLeastPower + power - 1};
}

/// Keeps the first `count` digits, with one added to the last of them if it `goes_up`.
ExactDecimal Shortened(const ExactDecimal& number, std::size_t count, bool goes_up) {
    std::string digits = "0" + number.digits.substr(0, count);
    if (goes_up) {
        std::size_t last = digits.size() - 1;
        for (; digits[last] == '9'; --last) digits[last] = '0';
        ++digits[last];
    }
    return Trimmed(std::move(digits), number.exponent + 1);
}

/// Whether a Double not below zero is the one nearest to the number.
bool IsNearest(double value, const ExactDecimal& number) {
    if (Exactly(value) == number) return true;
    const auto [mantissa, power] = PartsOf(value);
    const bool even = mantissa % 2 == 0;
    const int above = Compare(number, OfDyadic(2 * mantissa + 1, power - 1));
    if (above > 0 || (above == 0 && !even)) return false;
    if (mantissa == 0) return true;
    // Below a power of two the Doubles lie twice as close.
    const bool close = mantissa == std::uint64_t{1} << kMantissaBits && power > kLeastPower;
    const ExactDecimal middle =
        close ? OfDyadic(4 * mantissa - 1, power - 2) : OfDyadic(2 * mantissa - 1, power - 1);
    const int below = Compare(number, middle);
    return below > 0 || (below == 0 && even);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t DigitsAt(std::string_view text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && IsDigit(text[end])) ++end;
    return end - at;
}

}  // namespace

int Compare(const ExactDecimal& a, const ExactDecimal& b) {
    if (a.IsZero() || b.IsZero())
        return static_cast<int>(b.IsZero()) - static_cast<int>(a.IsZero());
    if (a.exponent != b.exponent) return a.exponent < b.exponent ? -1 : 1;
    return a.digits.compare(b.digits);  // of two with the same start the longer one is larger
}

ExactDecimal Exactly(double value) {
    const auto [mantissa, power] = PartsOf(value);
    return OfDyadic(mantissa, power);
}

ExactDecimal ToSignificantDigits(const ExactDecimal& number, int digits) {
    const auto count = static_cast<std::size_t>(digits);
    if (number.digits.size() <= count) return number;
    const std::string rest = number.digits.substr(count);
    const bool odd = (number.digits[count - 1] - '0') % 2 == 1;
    return Shortened(number, count, rest > "5" || (rest == "5" && odd));
}

ExactDecimal ToPlaces(const ExactDecimal& number, int places) {
    const int kept = number.exponent + places;
    if (kept < 0) return {};
    const auto count = static_cast<std::size_t>(kept);
    if (number.digits.size() <= count) return number;
    return Shortened(number, count, number.digits[count] >= '5');
}

std::optional<double> NearestDouble(const ExactDecimal& number) {
    if (number.exponent < -400) return 0.0;
    // Halfway from the largest Double to the next one that there would be.
    static const ExactDecimal kBeyond = OfDyadic((std::uint64_t{1} << 54U) - 1, 970);
    if (Compare(number, kBeyond) >= 0) return std::nullopt;

    // A candidate of the library, put to the test.
    std::string text = "0." + number.digits + "e";
    std::array<char, 8> exponent{};
    const auto end = std::to_chars(exponent.begin(), exponent.end(), number.exponent).ptr;
    text.append(exponent.begin(), end);
    double value = 0;
    if (!number.IsZero()) std::from_chars(text.data(), text.data() + text.size(), value);
    Require(IsNearest(value, number), "the library reads the nearest Double", text, " as ", value);
    return value;
}

std::string Plain(const ExactDecimal& number, std::string_view mark) {
    if (number.IsZero()) return "0";
    // All digits from the ones, or the first one, to the tenths, or the last one.
    std::string digits = number.digits;
    if (number.exponent < 1) digits.insert(0, static_cast<std::size_t>(1 - number.exponent), '0');
    const auto ones = static_cast<std::size_t>(std::max(number.exponent, 1));
    if (digits.size() <= ones) return digits.append(ones - digits.size(), '0');
    return digits.insert(ones, mark);
}

std::optional<ReadNumber> ReadUnsigned(std::string_view text, std::string_view mark) {
    std::size_t at = DigitsAt(text, 0);
    std::string digits(text.substr(0, at));
    auto exponent = static_cast<int>(at);
    if (text.substr(at).starts_with(mark)) {
        const std::size_t places = DigitsAt(text, at + mark.size());
        digits += text.substr(at + mark.size(), places);
        at += mark.size() + places;
    }
    if (digits.empty()) return std::nullopt;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        const std::size_t sign = text.find_first_of("+-", at + 1) == at + 1 ? 1 : 0;
        const std::size_t count = DigitsAt(text, at + 1 + sign);
        int power = 0;
        for (const char digit : text.substr(at + 1 + sign, count)) {
            power = std::min(power * 10 + (digit - '0'), 1'000'000);
        }
        if (count > 0) {
            exponent += sign == 1 && text[at + 1] == '-' ? -power : power;
            at += 1 + sign + count;
        }
    }
    return ReadNumber{Trimmed(std::move(digits), exponent), at};
}

std::optional<long long> NearestWhole(double value, long long least, long long most) {
    if (std::fabs(value) > 1e15) return std::nullopt;
    const double down = std::floor(value);
    const double over = value - down;  // exact, as the two lie close
    auto whole = static_cast<long long>(down);
    if (over > 0.5 || (over == 0.5 && whole % 2 != 0)) ++whole;
    if (whole < least || whole > most) return std::nullopt;
    return whole;
}

}  // namespace velmora::fuzz
