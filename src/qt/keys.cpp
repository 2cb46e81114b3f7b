#include "qt/keys.h"

#include <QKeyEvent>

namespace velmora {

std::optional<KeyCode> CharacterOf(const QKeyEvent& event) {
    if (OpensMenu(event)) return std::nullopt;
    constexpr KeyCode kEnter = 13;
    constexpr KeyCode kEscape = 27;
    switch (event.key()) {
        case Qt::Key_Backspace:
            return kBackspace;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return kEnter;
        case Qt::Key_Escape:
            return kEscape;
        case Qt::Key_Delete:  // bears a text on some platforms, but is no character
        case Qt::Key_Insert:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return std::nullopt;
        default:
            break;
    }
    if (event.modifiers().testFlag(Qt::ControlModifier) &&
        !event.modifiers().testFlag(Qt::AltModifier)) {
        if (event.key() < Qt::Key_A || event.key() > Qt::Key_BracketRight) return std::nullopt;
        return event.key() - Qt::Key_A + 1;  // Ctrl+A is 1, Ctrl+Z 26, Ctrl+[ 27
    }
    const QString text = event.text();
    if (text.isEmpty()) return std::nullopt;
    return text.front().unicode();
}

bool OpensMenu(const QKeyEvent& event) {
    return event.modifiers().testFlag(Qt::AltModifier) &&
           !event.modifiers().testFlag(Qt::ControlModifier);
}

bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool IsMovement(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Home:
        case Qt::Key_End:
            return true;
        default:
            return false;
    }
}

}  // namespace velmora
