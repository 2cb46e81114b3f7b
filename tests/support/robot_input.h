#pragma once

#include <QPoint>

#include <stdexcept>
#include <string>
#include <string_view>

class QWidget;
class QWindow;

namespace velmora {

// Mouse and key events that take the road of real ones, through the native window.

/// The native window that the widget stands in; throws std::runtime_error when it isn't shown.
QWindow& NativeWindowOf(const QWidget& widget);

/// The middle of the widget, in its window.
QPoint CenterOf(const QWidget& widget);

/// Moves the mouse to a place of the widget.
void MoveTo(const QWidget& widget, QPoint place);

/// Clicks at a place of the widget where the mouse is already.
void ClickHere(const QWidget& widget, QPoint place);

/// Moves the mouse to a place of the widget and clicks there.
void ClickAt(const QWidget& widget, QPoint place);

/// Types the text key by key into whatever has the focus of the widget's window, with a pause of
/// milliseconds after each key.
void TypeKeys(const QWidget& widget, std::string_view text, int pause);

inline std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

}  // namespace velmora
