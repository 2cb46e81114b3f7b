#include "support/robot_input.h"

#include <QTest>
#include <QWidget>
#include <QWindow>

#include "qt/text.h"

namespace velmora {

namespace {

QPoint InWindow(const QWidget& widget, QPoint place) {
    return widget.mapTo(widget.window(), place);
}

Qt::Key KeyOf(QChar character) {
    constexpr char16_t kLastOfAscii = 0x7F;
    if (character.unicode() <= kLastOfAscii) return QTest::asciiToKey(character.toLatin1());
    return static_cast<Qt::Key>(character.toUpper().unicode());
}

}  // namespace

QWindow& NativeWindowOf(const QWidget& widget) {
    QWindow* const native = widget.window()->windowHandle();
    if (native == nullptr) throw std::runtime_error("a window that isn't shown");
    return *native;
}

QPoint CenterOf(const QWidget& widget) { return InWindow(widget, widget.rect().center()); }

void MoveTo(const QWidget& widget, QPoint place) {
    QTest::mouseMove(&NativeWindowOf(widget), InWindow(widget, place));
}

void ClickHere(const QWidget& widget, QPoint place) {
    QTest::mouseClick(&NativeWindowOf(widget), Qt::LeftButton, {}, InWindow(widget, place));
}

void ClickAt(const QWidget& widget, QPoint place) {
    MoveTo(widget, place);
    ClickHere(widget, place);
}

void TypeKeys(const QWidget& widget, std::string_view text, int pause) {
    for (const QChar character : ToQt(text)) {
        QTest::sendKeyEvent(QTest::Click, &NativeWindowOf(widget), KeyOf(character),
                            QString(character), Qt::NoModifier);
        if (pause > 0) QTest::qWait(pause);
    }
}

}  // namespace velmora
