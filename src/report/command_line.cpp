#include "report/command_line.h"

#include <algorithm>
#include <array>

namespace velmora::report {

namespace {

/// One option: its name, and what it sets, a mark or a value.
struct Option {
    std::string_view name;
    bool Order::*mark = nullptr;
    std::optional<std::string> Order::*value = nullptr;
};

// clang-format off
constexpr std::array kOptions = {
    Option{"ayuda",      &Order::help},
    Option{"help",       &Order::help},
    Option{"version",    &Order::version},
    Option{"resumen",    &Order::summary},
    Option{"reemplazar", &Order::replace},
    Option{"punto",      &Order::decimal_point},
    Option{"salida",     nullptr, &Order::report},
    Option{"csv",        nullptr, &Order::table},
};
// clang-format on

const Option& OptionCalled(std::string_view name) {
    std::vector<const Option*> fitting;
    for (const Option& option : kOptions) {
        if (option.name == name) return option;
        if (!name.empty() && option.name.starts_with(name)) fitting.push_back(&option);
    }
    if (fitting.size() == 1) return *fitting.front();
    const std::string shown = "«--" + std::string(name) + "»";
    throw UsageError(fitting.empty() ? "no hay ninguna opción " + shown
                                     : "la opción " + shown + " es ambigua");
}

/// The words that are still to be read.
using Words = std::span<const std::string>;

void SetValue(Order& order, const Option& option, std::string_view given, bool has_value,
              Words& rest) {
    const std::string shown = "la opción «--" + std::string(option.name) + "»";
    if (!has_value) {
        if (rest.empty()) throw UsageError(shown + " necesita un nombre");
        given = rest.front();
        rest = rest.subspan(1);
    }
    if (given.empty()) throw UsageError(shown + " necesita un nombre");
    if (order.*option.value) throw UsageError(shown + " está dos veces");
    order.*option.value = std::string(given);
}

/// Reads the option that `word` is, and its value where that is the next word.
void ReadOption(Order& order, std::string_view word, Words& rest) {
    const std::size_t equals = word.find('=');
    const bool has_value = equals != std::string_view::npos;
    const Option& option = OptionCalled(word.substr(2, has_value ? equals - 2 : equals));
    if (option.value) {
        SetValue(order, option, has_value ? word.substr(equals + 1) : "", has_value, rest);
        return;
    }
    if (has_value) {
        throw UsageError("la opción «--" + std::string(option.name) + "» no lleva valor");
    }
    order.*option.mark = true;
}

void Check(const Order& order) {
    if (order.help || order.version) return;
    if (order.evaluations.empty()) throw UsageError("falta el fichero de la evaluación");
    if (order.report && order.evaluations.size() > 1) {
        throw UsageError("«--salida» es para una sola evaluación");
    }
    if (order.decimal_point && !order.table) throw UsageError("«--punto» es para «--csv»");
}

}  // namespace

Order ReadOrder(Words words) {
    Order order;
    bool options = true;
    while (!words.empty()) {
        const std::string& word = words.front();
        words = words.subspan(1);
        if (options && word == "--") {
            options = false;
        } else if (options && word.starts_with("--")) {
            ReadOption(order, word, words);
        } else if (options && word.size() > 1 && word.starts_with('-')) {
            throw UsageError("no hay ninguna opción «" + word + "»");
        } else {
            order.evaluations.push_back(word);
        }
    }
    Check(order);
    return order;
}

std::string_view UsageText() {
    return R"(Uso: velmora-informe [OPCIÓN]... EVALUACIÓN...
Hace de cada evaluación un informe en HTML, junto a ella y con su nombre.
Las evaluaciones solo se leen.

      --salida=INFORME    otro nombre para el informe de una sola evaluación
      --reemplazar        escribe encima de los ficheros que ya existan
      --csv=TABLA         en lugar del informe, las cifras de todas como una tabla
                          para un programa de hojas de cálculo
      --punto             en la tabla, decimales con punto y no con coma
      --resumen           en lugar del informe, una línea por evaluación en la
                          salida estándar
      --ayuda             muestra esta ayuda y acaba
      --version           dice la versión y acaba

Con --csv o --resumen se hace también el informe si se da --salida. Sin
argumentos, en un escritorio, pregunta por el fichero y abre el informe.

Estado de salida: 0 si todo fue bien, 1 si algún fichero no se pudo leer o
escribir, 2 si no se entiende lo que se pide.
)";
}

}  // namespace velmora::report
