#include "runtime/error.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>

namespace velmora {
namespace {

struct MessageCase {
    std::string_view name;
    TipoError tipo;
    std::string_view sentence;
};

void PrintTo(const MessageCase& c, std::ostream* out) { *out << c.name; }

class ErrorMessageTest : public ::testing::TestWithParam<MessageCase> {};

TEST_P(ErrorMessageTest, EachKindHasItsSpanishSentence) {
    EXPECT_EQ(MensajeDe(GetParam().tipo), GetParam().sentence);
}

TEST_P(ErrorMessageTest, TheErrorCarriesItsKindAndItsSentence) {
    const ErrorEjecucion error(GetParam().tipo);
    EXPECT_EQ(error.Tipo(), GetParam().tipo);
    EXPECT_EQ(std::string_view(error.what()), GetParam().sentence);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Kinds, ErrorMessageTest, ::testing::Values(
    MessageCase{"Overflow",       TipoError::Desbordamiento,        "Error en tiempo de ejecución: desbordamiento."},
    MessageCase{"DivisionByZero", TipoError::DivisionPorCero,       "Error en tiempo de ejecución: división por cero."},
    MessageCase{"Invalid",        TipoError::OperacionNoValida,     "Error en tiempo de ejecución: operación aritmética no válida."},
    MessageCase{"Argument",       TipoError::ArgumentoNoValido,     "Error en tiempo de ejecución: argumento no válido en una función."},
    MessageCase{"Subscript",      TipoError::SubindiceFueraDeRango, "Error en tiempo de ejecución: subíndice fuera de rango."},
    MessageCase{"Types",          TipoError::TiposNoCoinciden,      "Error en tiempo de ejecución: los tipos no coinciden."}),
    [](const auto& test_case) { return std::string(test_case.param.name); });
// clang-format on

TEST(MensajeDeTest, AnUnknownKindIsNamedInGeneralWords) {
    EXPECT_EQ(MensajeDe(static_cast<TipoError>(99)), "Error en tiempo de ejecución.");
}

TEST(IntentarTest, AStepThatFailsIsSkippedFromTheErrorOn) {
    std::string done;
    Intentar([&] {
        done += "before ";
        throw ErrorEjecucion(TipoError::Desbordamiento);
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
    for (const auto tipo : {TipoError::Desbordamiento, TipoError::DivisionPorCero,
                            TipoError::OperacionNoValida, TipoError::ArgumentoNoValido,
                            TipoError::SubindiceFueraDeRango, TipoError::TiposNoCoinciden}) {
        EXPECT_NO_THROW(Intentar([&] { throw ErrorEjecucion(tipo); })) << MensajeDe(tipo);
    }
}

TEST(IntentarTest, ABugIsNotPassedOver) {
    EXPECT_THROW(Intentar([] { throw std::logic_error("bug"); }), std::logic_error);
}

}  // namespace
}  // namespace velmora
