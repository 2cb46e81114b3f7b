#pragma once

#include <compare>

namespace velmora {

/// A Double whose every operation checks its result, so that no handler has to remember to.
///
/// Addition, subtraction, multiplication, division, `Power`, `Exponential` and `Logarithm` throw
/// `ErrorEjecucion`: Overflow for a result too large, DivisionByZero for x / 0,
/// InvalidOperation for 0 / 0 and for a power without a real value, InvalidArgument for the
/// logarithm of a number that isn't positive. Underflow goes to zero without a word. Comparisons
/// are exact.
class Doble {
public:
    constexpr Doble() = default;
    // cppcheck-suppress noExplicitConstructor ; a number in a formula is a Doble
    constexpr Doble(double value) : value_(value) {}

    constexpr double Value() const { return value_; }

    friend Doble operator+(Doble a, Doble b);
    friend Doble operator-(Doble a, Doble b);
    friend Doble operator*(Doble a, Doble b);
    friend Doble operator/(Doble a, Doble b);
    Doble& operator+=(Doble b) { return *this = *this + b; }

    friend constexpr auto operator<=>(Doble, Doble) = default;

private:
    double value_ = 0;
};

/// The general power operation, base raised to exponente.
Doble Power(Doble base, Doble exponent);

/// e raised to x.
Doble Exponential(Doble x);

/// The natural logarithm of x.
Doble Logarithm(Doble x);

/// The absolute value of x.
Doble Absolute(Doble x);

}  // namespace velmora
