#include "qt/spanish.h"

#include <QApplication>
#include <QLocale>
#include <QTranslator>

#include <algorithm>
#include <array>
#include <string_view>

#include "qt/platform.h"

namespace velmora {

namespace {

struct Gap {
    std::string_view english;
    const char* spanish;
};

// clang-format off
constexpr std::array<Gap, 17> kGaps = {{
    {"Double Sided Printing",      "Impresión a doble cara"},
    {"Off",                        "No"},
    {"Long side binding",          "Encuadernar por el lado largo"},
    {"Short side binding",         "Encuadernar por el lado corto"},
    {"Folder",                     "Carpeta"},
    {"Page Setup Conflicts",       "Ajustes de página incompatibles"},
    {"Pages",                      "Páginas"},
    {"Advanced",                   "Avanzado"},
    {"Invalid Pages Definition",   "Páginas mal indicadas"},
    {"Advanced Option Conflicts",  "Opciones avanzadas incompatibles"},
    {"Please turn one of those options off.", "Desactive una de ellas."},
    {"Options 'Pages Per Sheet' and 'Page Set' cannot be used together.",
     "«Páginas por hoja» y «Conjunto de páginas» no se pueden usar a la vez."},
    {"There are conflicts in page setup options. Do you want to fix them?",
     "Hay ajustes de página incompatibles. ¿Desea corregirlos?"},
    {"%1 does not follow the correct syntax. Please use ',' to separate ranges and pages, "
     "'-' to define ranges and make sure ranges do not intersect with each other.",
     "«%1» no está bien escrito. Separe con comas las páginas y los intervalos, escriba los "
     "intervalos con un guion y no repita páginas."},
    {"Page order:",                "Orden de las páginas:"},
    {"Page Set:",                  "Conjunto de páginas:"},
    {"Parent Directory",           "Ir al directorio superior"},
}};
// clang-format on

/// The texts that the toolkit's own translation doesn't have, or has only half in Spanish.
class Gaps : public QTranslator {
public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }
    QString translate(const char* /*context*/, const char* source, const char* /*disambiguation*/,
                      int /*n*/) const override {
        const auto* const gap = std::ranges::find(kGaps, std::string_view(source), &Gap::english);
        return gap == kGaps.end() ? QString() : QString::fromUtf8(gap->spanish);
    }
};

}  // namespace

void SpeakSpanish(QApplication& application) {
    const QLocale spanish(QLocale::Spanish, QLocale::Spain);
    QLocale::setDefault(spanish);
    auto* const toolkit = new QTranslator(&application);
    if (toolkit->load(spanish, QStringLiteral("qtbase"), QStringLiteral("_"),
                      TranslationsFolder())) {
        QApplication::installTranslator(toolkit);
    }
    QApplication::installTranslator(new Gaps(&application));  // the last one is asked first
}

}  // namespace velmora
