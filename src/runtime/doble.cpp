#include "runtime/doble.h"

#include <cmath>

#include "runtime/error.h"

namespace velmora {

namespace {

Doble Checked(double result) {
    if (std::isnan(result)) throw ErrorEjecucion(ErrorKind::InvalidOperation);
    if (std::isinf(result)) throw ErrorEjecucion(ErrorKind::Overflow);
    return result;
}

}  // namespace

Doble operator+(Doble a, Doble b) { return Checked(a.value_ + b.value_); }
Doble operator-(Doble a, Doble b) { return Checked(a.value_ - b.value_); }
Doble operator*(Doble a, Doble b) { return Checked(a.value_ * b.value_); }

Doble operator/(Doble a, Doble b) {
    if (b.value_ == 0 && a.value_ != 0) throw ErrorEjecucion(ErrorKind::DivisionByZero);
    return Checked(a.value_ / b.value_);
}

Doble Power(Doble base, Doble exponent) {
    if (base == 0.0 && exponent < 0.0) throw ErrorEjecucion(ErrorKind::DivisionByZero);
    return Checked(std::pow(base.Value(), exponent.Value()));
}

Doble Exponential(Doble x) { return Checked(std::exp(x.Value())); }

Doble Logarithm(Doble x) {
    if (x <= 0.0) throw ErrorEjecucion(ErrorKind::InvalidArgument);
    return Checked(std::log(x.Value()));
}

Doble Absolute(Doble x) { return std::fabs(x.Value()); }

}  // namespace velmora
