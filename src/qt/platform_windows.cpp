#include <QCoreApplication>
#include <QDir>
#include <QFontDatabase>
#include <QLocale>
#include <QPrinter>

#include "qt/platform.h"

namespace velmora {

void AddTypefaces() {
    // Files of their own: their licence isn't the program's.
    const QDir folder(QCoreApplication::applicationDirPath());
    for (const auto& place : {QStringLiteral("letras"), QStringLiteral("programa/letras")}) {
        const QDir faces(folder.filePath(place));
        for (const QString& name : faces.entryList({QStringLiteral("*.ttf")})) {
            QFontDatabase::addApplicationFont(faces.filePath(name));
        }
    }
}

QString TranslationsFolder() { return QStringLiteral(":/velmora/translations"); }

bool HasPrintDialog(const QPrinter& printer) {
    return printer.outputFormat() == QPrinter::NativeFormat;
}

std::string SeparatorOfTheRegion() {
    if (qgetenv("LC_NUMERIC") == "C") return ".";
    return QLocale::system().decimalPoint().toStdString();
}

}  // namespace velmora
