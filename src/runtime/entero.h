#pragma once

#include <compare>
#include <cstdint>

#include "runtime/doble.h"
#include "runtime/error.h"

namespace velmora {

/// A signed 16-bit whole number whose sums, differences and products throw `ErrorEjecucion`
/// (Overflow) instead of leaving the range -32768 to 32767.
class Entero {
public:
    constexpr Entero() = default;
    // cppcheck-suppress noExplicitConstructor ; a number in a formula is an Entero
    constexpr Entero(int value) : value_(Checked(value)) {}

    constexpr int Value() const { return value_; }

    friend constexpr Entero operator+(Entero a, Entero b) { return {a.value_ + b.value_}; }
    friend constexpr Entero operator-(Entero a, Entero b) { return {a.value_ - b.value_}; }
    friend constexpr Entero operator*(Entero a, Entero b) { return {a.value_ * b.value_}; }
    constexpr Entero& operator++() { return *this = *this + 1; }
    constexpr Entero& operator+=(Entero b) { return *this = *this + b; }

    friend constexpr auto operator<=>(Entero, Entero) = default;

    /// An Integer in a place that wants a Double.
    constexpr Doble AsDoble() const { return static_cast<double>(value_); }

private:
    static constexpr std::int16_t Checked(int value) {
        if (value < INT16_MIN || value > INT16_MAX) throw ErrorEjecucion(ErrorKind::Overflow);
        return static_cast<std::int16_t>(value);
    }

    std::int16_t value_ = 0;
};

}  // namespace velmora
