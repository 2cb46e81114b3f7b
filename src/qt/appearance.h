#pragma once

#include <QColor>
#include <QFont>

#include "forms/layout.h"

class QApplication;
class QWidget;

namespace velmora {

/// Gives the application its one look, whatever the desktop's: Fusion, a light palette, the
/// buttons of a box in one order, icons of its own, Spanish in the toolkit's own buttons and
/// dialogs, no file of the toolkit's in the user's folders.
void DressApplication(QApplication& application);

/// Makes boxes, dialogs, tool tips, menus of cells and the arrows of lists as large as a screen is
/// that is shown at `pixels_per_twip`. Takes the application dressed.
void GrowDialogs(double pixels_per_twip);

/// The colour that a colour number of the forms toolkit stands for.
QColor ToQt(Color color);

/// A look's font, for a screen shown at `pixels_per_twip`. Geometry and letters are scaled by the
/// same factor, in whole pixels, so that a text fits its box at every size.
QFont FontOf(const Look& look, double pixels_per_twip);

/// Gives a widget the application's palette as its own, one copy for all. A palette that is
/// resolved for each widget has a key of its own, under which the style keeps the pictures of
/// buttons and lists: they would be drawn anew on every screen, and their names never let go.
void SharePalette(QWidget& widget);

/// Gives a widget the fore and back colours of its text.
void Paint(QWidget& widget, Color fore, Color back);

}  // namespace velmora
