#include "runtime/error.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>

namespace velmora {
namespace {

struct MessageCase {
    std::string_view name;
    ErrorKind kind;
    std::string_view sentence;
};

void PrintTo(const MessageCase& c, std::ostream* out) { *out << c.name; }

class ErrorMessageTest : public ::testing::TestWithParam<MessageCase> {};

TEST_P(ErrorMessageTest, EachKindHasItsSpanishSentence) {
    EXPECT_EQ(MessageOf(GetParam().kind), GetParam().sentence);
}

TEST_P(ErrorMessageTest, TheErrorCarriesItsKindAndItsSentence) {
    const ErrorEjecucion error(GetParam().kind);
    EXPECT_EQ(error.Kind(), GetParam().kind);
    EXPECT_EQ(std::string_view(error.what()), GetParam().sentence);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Kinds, ErrorMessageTest, ::testing::Values(
    MessageCase{"Overflow",       ErrorKind::Overflow,        "Error en tiempo de ejecución: desbordamiento."},
    MessageCase{"DivisionByZero", ErrorKind::DivisionByZero,       "Error en tiempo de ejecución: división por cero."},
    MessageCase{"Invalid",        ErrorKind::InvalidOperation,     "Error en tiempo de ejecución: operación aritmética no válida."},
    MessageCase{"Argument",       ErrorKind::InvalidArgument,     "Error en tiempo de ejecución: argumento no válido en una función."},
    MessageCase{"Subscript",      ErrorKind::SubscriptOutOfRange, "Error en tiempo de ejecución: subíndice fuera de rango."},
    MessageCase{"Types",          ErrorKind::TypeMismatch,      "Error en tiempo de ejecución: los tipos no coinciden."}),
    [](const auto& test_case) { return std::string(test_case.param.name); });
// clang-format on

TEST(MessageOfTest, AnUnknownKindIsNamedInGeneralWords) {
    EXPECT_EQ(MessageOf(static_cast<ErrorKind>(99)), "Error en tiempo de ejecución.");
}

TEST(IntentarTest, AStepThatFailsIsSkippedFromTheErrorOn) {
    std::string done;
    Intentar([&] {
        done += "before ";
        throw ErrorEjecucion(ErrorKind::Overflow);
    });
    Intentar([&] { done += "next step"; });
    EXPECT_EQ(done, "before next step");
}

TEST(IntentarTest, AStepThatSucceedsIsDoneOnce) {
    int times = 0;
    Intentar([&] { ++times; });
    EXPECT_EQ(times, 1);
}

TEST(IntentarTest, PassesOverEveryKindOfRunTimeError) {
    for (const auto kind :
         {ErrorKind::Overflow, ErrorKind::DivisionByZero, ErrorKind::InvalidOperation,
          ErrorKind::InvalidArgument, ErrorKind::SubscriptOutOfRange, ErrorKind::TypeMismatch}) {
        EXPECT_NO_THROW(Intentar([&] { throw ErrorEjecucion(kind); })) << MessageOf(kind);
    }
}

TEST(IntentarTest, ABugIsNotPassedOver) {
    EXPECT_THROW(Intentar([] { throw std::logic_error("bug"); }), std::logic_error);
}

}  // namespace
}  // namespace velmora
