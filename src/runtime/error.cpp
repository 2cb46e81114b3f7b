#include "runtime/error.h"

namespace velmora {

std::string MessageOf(ErrorKind kind) {
    switch (kind) {
        case ErrorKind::Overflow:
            return "Error en tiempo de ejecución: desbordamiento.";
        case ErrorKind::DivisionByZero:
            return "Error en tiempo de ejecución: división por cero.";
        case ErrorKind::InvalidOperation:
            return "Error en tiempo de ejecución: operación aritmética no válida.";
        case ErrorKind::InvalidArgument:
            return "Error en tiempo de ejecución: argumento no válido en una función.";
        case ErrorKind::SubscriptOutOfRange:
            return "Error en tiempo de ejecución: subíndice fuera de rango.";
        case ErrorKind::TypeMismatch:
            return "Error en tiempo de ejecución: los tipos no coinciden.";
    }
    return "Error en tiempo de ejecución.";
}

ErrorEjecucion::ErrorEjecucion(ErrorKind kind) : std::runtime_error(MessageOf(kind)), kind_(kind) {}

}  // namespace velmora
