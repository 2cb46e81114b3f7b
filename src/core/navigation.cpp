#include "core/navigation.h"

#include "core/grid.h"
#include "core/numbers.h"
#include "runtime/error.h"

namespace velmora {

namespace {

constexpr std::uint32_t kNoPrintToFile = 524288;

}  // namespace

void BaseScreen::Timer1_Timer() { clock_.Caption = FormatoFecha(environment_.host.Now()); }

void Salir(Host& host, MsgBoxStyle style) {
    if (host.MsgBox("¿Está seguro de que quiere salir?", style) != MsgBoxAnswer::No) host.End(0);
}

void Imprimir(Host& host, CommonDialog& dialog, const Printing& printing) {
    std::string question(printing.notice);
    for (const std::string_view line :
         {"¿Desea continuar?", " ", "Pulsar 'Si' no admite cancelación posterior"}) {
        question.append(kLineEnd).append(line);
    }
    auto answer = MsgBoxAnswer::Yes;
    Intentar([&] { answer = host.MsgBox(question, MsgBoxStyle::YesNo); });
    if (answer == MsgBoxAnswer::No) return;

    dialog.Flags = kNoPrintToFile;
    dialog.FromPage = printing.first_page;
    dialog.ToPage = printing.last_page;
    Intentar([&] { host.ShowPrinter(dialog); });
    Intentar([&] { host.PrintForm(); });
}

std::string FormatoFecha(const std::tm& moment) {
    const auto two = [](int n) {
        return std::string{static_cast<char>('0' + n / 10 % 10), static_cast<char>('0' + n % 10)};
    };
    return two(moment.tm_mday) + ":" + two(moment.tm_mon + 1) + ":" + two(moment.tm_year % 100) +
           "     " + two(moment.tm_hour) + ":" + two(moment.tm_min) + ":" + two(moment.tm_sec);
}

std::string SpokenName(int row, std::string_view column) {
    std::string spoken = "Tarea " + TextoEntero(grid::TaskOf(row));
    spoken.append(", contaminante ").append(TextoEntero(grid::ContaminantOf(row)));
    return spoken.append(", ").append(column);
}

}  // namespace velmora
