#pragma once

#include <compare>

namespace velmora {

/// A Double whose every operation checks its result, so that no handler has to remember to.
///
/// Addition, subtraction, multiplication, division, `Potencia`, `Exponencial` and `Logaritmo` throw
/// `ErrorEjecucion`: Desbordamiento for a result too large, DivisionPorCero for x / 0,
/// OperacionNoValida for 0 / 0 and for a power without a real value, ArgumentoNoValido for the
/// logarithm of a number that isn't positive. Underflow goes to zero without a word. Comparisons
/// are exact.
class Doble {
public:
    constexpr Doble() = default;
    // cppcheck-suppress noExplicitConstructor ; a number in a formula is a Doble
    constexpr Doble(double value) : value_(value) {}

    constexpr double Valor() const { return value_; }

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
Doble Potencia(Doble base, Doble exponent);

/// e raised to x.
Doble Exponencial(Doble x);

/// The natural logarithm of x.
Doble Logaritmo(Doble x);

/// The absolute value of x.
Doble Absoluto(Doble x);

}  // namespace velmora
