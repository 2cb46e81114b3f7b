#include "qt/message_box.h"

#include <QApplication>
#include <QLabel>
#include <QLayout>
#include <QScreen>

namespace velmora {

// The toolkit breaks the lines of a box wider than 500 pixels, whatever the size of its letters.
void MessageBox::KeepLines() {
    auto* const label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (label == nullptr || !label->wordWrap()) return;
    label->setWordWrap(false);
    layout()->activate();
    const QSize size = layout()->sizeHint();
    if (size.width() <= screen()->availableSize().width()) {
        setFixedSize(size);
    } else {
        label->setWordWrap(true);
        layout()->activate();
    }
    QApplication::removePostedEvents(this, QEvent::LayoutRequest);  // or it would begin anew
}

bool MessageBox::event(QEvent* event) {
    const bool taken = QMessageBox::event(event);
    if (event->type() == QEvent::LayoutRequest) KeepLines();
    return taken;
}

void MessageBox::showEvent(QShowEvent* event) {
    QMessageBox::showEvent(event);
    KeepLines();
}

}  // namespace velmora
