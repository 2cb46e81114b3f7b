#pragma once

#include <stdexcept>
#include <string>

namespace velmora {

/// The kinds of run-time error that end the program.
enum class ErrorKind {
    Overflow,             ///< a result too large for a Double, or outside 16 bits for an Integer
    DivisionByZero,       ///< a number other than zero divided by zero
    InvalidOperation,     ///< 0 / 0, a power without a real value
    InvalidArgument,      ///< the logarithm of a number that isn't positive
    SubscriptOutOfRange,  ///< an element that an array doesn't have
    TypeMismatch          ///< text that doesn't read as the number that is wanted
};

/// A run-time error. Nothing catches it but the window's one guard, which shows `what()` and ends
/// the process, and `Intentar`, the helper of the handlers that pass over errors.
class ErrorEjecucion : public std::runtime_error {
public:
    explicit ErrorEjecucion(ErrorKind kind);

    ErrorKind Kind() const noexcept { return kind_; }

private:
    ErrorKind kind_;
};

/// The Spanish sentence that names a kind of error to the user, in UTF-8.
std::string MessageOf(ErrorKind kind);

/// Runs one step of a handler that passes over errors: a step that fails is skipped, in silence.
template <class Step>
void Intentar(Step&& step) {
    try {
        step();
    } catch (const ErrorEjecucion&) {  // skipped on purpose: the next step runs
    }
}

}  // namespace velmora
