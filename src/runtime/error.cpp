#include "runtime/error.h"

namespace velmora {

std::string MensajeDe(TipoError kind) {
    switch (kind) {
        case TipoError::Desbordamiento:
            return "Error en tiempo de ejecución: desbordamiento.";
        case TipoError::DivisionPorCero:
            return "Error en tiempo de ejecución: división por cero.";
        case TipoError::OperacionNoValida:
            return "Error en tiempo de ejecución: operación aritmética no válida.";
        case TipoError::ArgumentoNoValido:
            return "Error en tiempo de ejecución: argumento no válido en una función.";
        case TipoError::SubindiceFueraDeRango:
            return "Error en tiempo de ejecución: subíndice fuera de rango.";
        case TipoError::TiposNoCoinciden:
            return "Error en tiempo de ejecución: los tipos no coinciden.";
    }
    return "Error en tiempo de ejecución.";
}

ErrorEjecucion::ErrorEjecucion(TipoError kind) : std::runtime_error(MensajeDe(kind)), kind_(kind) {}

}  // namespace velmora
