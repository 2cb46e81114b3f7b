#include "qt/spanish.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <algorithm>
#include <array>
#include <string_view>

namespace velmora {

namespace {

struct Gap {
    std::string_view english;
    const char* spanish;
};

// clang-format off
constexpr std::array<Gap, 9> kGaps = {{
    {"Double Sided Printing",      "Impresión a doble cara"},
    {"Off",                        "No"},
    {"Long side binding",          "Encuadernar por el lado largo"},
    {"Short side binding",         "Encuadernar por el lado corto"},
    {"Folder",                     "Carpeta"},
    {"Page Setup Conflicts",       "Ajustes de página incompatibles"},
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
                      QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(toolkit);
    }
    QApplication::installTranslator(new Gaps(&application));  // the last one is asked first
}

}  // namespace velmora
