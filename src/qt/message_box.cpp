#include "qt/message_box.h"

#include <QApplication>
#include <QLabel>
#include <QLayout>
#include <QScreen>
#include <QShowEvent>

namespace velmora {

// The toolkit breaks the lines of a box wider than 500 pixels, whatever the size of its letters.
bool MessageBox::KeepLines() {
    auto* const label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (label == nullptr) return false;
    const bool broken = label->wordWrap();
    label->setWordWrap(false);
    layout()->activate();
    const QSize size = layout()->sizeHint();
    const bool fits = size.width() <= screen()->availableSize().width();
    if (fits) {
        setFixedSize(size);
    } else {
        label->setWordWrap(broken);
        layout()->activate();
    }
    QApplication::removePostedEvents(this, QEvent::LayoutRequest);  // or it would begin anew
    return fits;
}

bool MessageBox::event(QEvent* event) {
    // The toolkit's own would break the lines first: a box whose size changes twice while a window
    // manager takes it may be put in the display's corner, its title outside.
    if (event->type() == QEvent::LayoutRequest && KeepLines()) return QDialog::event(event);
    return QMessageBox::event(event);
}

void MessageBox::showEvent(QShowEvent* event) {
    QMessageBox::showEvent(event);
    if (!KeepLines() || event->spontaneous()) return;
    adjustPosition(parentWidget());  // in the middle, by its new size
    setAttribute(Qt::WA_Moved, false);
}

}  // namespace velmora
