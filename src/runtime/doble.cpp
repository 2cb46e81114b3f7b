#include "runtime/doble.h"

#include <cmath>

#include "runtime/error.h"

namespace velmora {

namespace {

Doble Checked(double result) {
    if (std::isnan(result)) throw ErrorEjecucion(TipoError::OperacionNoValida);
    if (std::isinf(result)) throw ErrorEjecucion(TipoError::Desbordamiento);
    return result;
}

}  // namespace

Doble operator+(Doble a, Doble b) { return Checked(a.value_ + b.value_); }
Doble operator-(Doble a, Doble b) { return Checked(a.value_ - b.value_); }
Doble operator*(Doble a, Doble b) { return Checked(a.value_ * b.value_); }

Doble operator/(Doble a, Doble b) {
    if (b.value_ == 0 && a.value_ != 0) throw ErrorEjecucion(TipoError::DivisionPorCero);
    return Checked(a.value_ / b.value_);
}

Doble Potencia(Doble base, Doble exponent) {
    if (base == 0.0 && exponent < 0.0) throw ErrorEjecucion(TipoError::DivisionPorCero);
    return Checked(std::pow(base.Valor(), exponent.Valor()));
}

Doble Exponencial(Doble x) { return Checked(std::exp(x.Valor())); }

Doble Logaritmo(Doble x) {
    if (x <= 0.0) throw ErrorEjecucion(TipoError::ArgumentoNoValido);
    return Checked(std::log(x.Valor()));
}

Doble Absoluto(Doble x) { return std::fabs(x.Valor()); }

}  // namespace velmora
