#pragma once

#include <ctime>
#include <string>
#include <string_view>

#include "core/chain.h"
#include "core/record.h"
#include "forms/host.h"
#include "forms/layout.h"
#include "forms/palette.h"
#include "forms/screen.h"

namespace velmora {

/// What every screen is given: the record, the chain of screens and the toolkit.
struct Environment {
    EvaluacionRecord& record;
    ScreenChain& chain;
    Host& host;
};

/// What the six screens have in common beside their controls: what they are given, and the clock.
class BaseScreen : public Screen {
public:
    void Timer1_Timer() override;

protected:
    BaseScreen(const Environment& environment, const Face& face, Label& clock)
        : Screen(face, clock), environment_(environment), clock_(clock) {}

    Environment environment_;

private:
    Label& clock_;
};

/// `salir` of every screen: asks with the screen's style, and on any answer but No ends the process
/// at once with status 0, without saving.
void Salir(Host& host, MsgBoxStyle style);

/// What tells one screen's `imprimir` from another's.
struct Printing {
    std::string_view notice;  ///< first line of the question
    int first_page;
    int last_page;
};

/// `imprimir` of `Form2` to `Form6`: asks, shows the print dialog and prints the screen's image,
/// the dialog's Cancel notwithstanding. Errors are passed over, step by step.
void Imprimir(Host& host, CommonDialog& dialog, const Printing& printing);

/// The clock's text, "dd:mm:yy     hh:mm:ss": day, month and year, five blanks, hour, minute and
/// second, two digits each.
std::string FormatoFecha(const std::tm& moment);

/// A cell of the sheet or the final table, by its row of 18 and its column's name, as a screen
/// reader says it: "Tarea 1, contaminante 2, muestra C3".
std::string SpokenName(int row, std::string_view column);

/// How the clock looks on `Form2` to `Form6`: bold, white, 8.25 points.
inline constexpr Look kClockLook{.bold = true, .fore = kWhite};

/// The tool tip of the cells in which decimals are typed.
inline constexpr std::string_view kDecimalsHelp =
    "Los decimales, con punto y con un cero delante: 0.5";

}  // namespace velmora
