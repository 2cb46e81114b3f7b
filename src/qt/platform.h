#pragma once

#include <QString>

#include <string>

class QPrinter;

namespace velmora {

/// What each platform answers in its own way. On Windows the program carries inside what the
/// toolkit finds beside it on Debian.

/// Makes the typefaces of the screens known where the system may not have them.
void AddTypefaces();
/// The folder of the toolkit's translations.
QString TranslationsFolder();

/// Whether the print dialog can be shown for this printer. That of Windows can't without a printer,
/// and gives no sign of it.
bool HasPrintDialog(const QPrinter& printer);

/// The decimal separator of the user's region, in UTF-8. Windows has one for all programs alike;
/// there LC_NUMERIC=C in the environment sets the point for this program, as it does elsewhere.
std::string SeparatorOfTheRegion();

}  // namespace velmora
