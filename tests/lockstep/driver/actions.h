#pragma once

#include <QJsonArray>
#include <QString>

class QMainWindow;

namespace lockstep {

/// The program's one window, or null before it is shown.
QMainWindow* mainWindow();

/// Does to the program what a user would: `action` is [verb, arguments...] as model.py lists
/// them, an empty array being no action at all, or ["burst", action...]. Returns what was in the
/// way, or an empty text. An action that opens a box returns only when the box is closed; in a
/// burst it is the last.
QString perform(const QJsonArray& action);

}  // namespace lockstep
