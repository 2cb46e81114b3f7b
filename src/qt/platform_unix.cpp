#include <QLibraryInfo>
#include <QLocale>

#include "qt/platform.h"

namespace velmora {

void AddTypefaces() {}  // the package depends on them

QString TranslationsFolder() { return QLibraryInfo::path(QLibraryInfo::TranslationsPath); }

bool HasPrintDialog(const QPrinter& /*printer*/) { return true; }

std::string SeparatorOfTheRegion() { return QLocale::system().decimalPoint().toStdString(); }

}  // namespace velmora
