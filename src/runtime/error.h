#pragma once

#include <stdexcept>
#include <string>

namespace velmora {

/// The kinds of run-time error that end the program.
enum class TipoError {
    Desbordamiento,         ///< a result too large for a Double, or outside 16 bits for an Integer
    DivisionPorCero,        ///< a number other than zero divided by zero
    OperacionNoValida,      ///< 0 / 0, a power without a real value
    ArgumentoNoValido,      ///< the logarithm of a number that isn't positive
    SubindiceFueraDeRango,  ///< an element that an array doesn't have
    TiposNoCoinciden        ///< text that doesn't read as the number that is wanted
};

/// A run-time error. Nothing catches it but the window's one guard, which shows `what()` and ends
/// the process, and `Intentar`, the helper of the handlers that pass over errors.
class ErrorEjecucion : public std::runtime_error {
public:
    explicit ErrorEjecucion(TipoError kind);

    TipoError Tipo() const noexcept { return kind_; }

private:
    TipoError kind_;
};

/// The Spanish sentence that names a kind of error to the user, in UTF-8.
std::string MensajeDe(TipoError kind);

/// Runs one step of a handler that passes over errors: a step that fails is skipped, in silence.
template <class Step>
void Intentar(Step&& step) {
    try {
        step();
    } catch (const ErrorEjecucion&) {  // skipped on purpose: the next step runs
    }
}

}  // namespace velmora
