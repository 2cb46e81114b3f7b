#include "runtime/doble.h"

#include <cmath>

#include "runtime/error.h"

namespace velmora {

namespace {

Doble Comprobado(double resultado) {
    if (std::isnan(resultado)) throw ErrorEjecucion(TipoError::OperacionNoValida);
    if (std::isinf(resultado)) throw ErrorEjecucion(TipoError::Desbordamiento);
    return resultado;
}

}  // namespace

Doble operator+(Doble a, Doble b) { return Comprobado(a.valor_ + b.valor_); }
Doble operator-(Doble a, Doble b) { return Comprobado(a.valor_ - b.valor_); }
Doble operator*(Doble a, Doble b) { return Comprobado(a.valor_ * b.valor_); }

Doble operator/(Doble a, Doble b) {
    if (b.valor_ == 0 && a.valor_ != 0) throw ErrorEjecucion(TipoError::DivisionPorCero);
    return Comprobado(a.valor_ / b.valor_);
}

Doble Potencia(Doble base, Doble exponente) {
    if (base == 0.0 && exponente < 0.0) throw ErrorEjecucion(TipoError::DivisionPorCero);
    return Comprobado(std::pow(base.Valor(), exponente.Valor()));
}

Doble Exponencial(Doble x) { return Comprobado(std::exp(x.Valor())); }

Doble Logaritmo(Doble x) {
    if (x <= 0.0) throw ErrorEjecucion(TipoError::ArgumentoNoValido);
    return Comprobado(std::log(x.Valor()));
}

Doble Absoluto(Doble x) { return std::fabs(x.Valor()); }

}  // namespace velmora
