#include "qt/cell_edit.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <limits>

#include "qt/accessible_text.h"
#include "qt/keys.h"

namespace velmora {

CellEdit::CellEdit(Entry entry, CellSignals& told, QWidget* parent)
    : TextLine(parent), entry_(entry), told_(told) {
    InstallAccessibleTexts();
    if (entry_ == Entry::Filtered)
        setAcceptDrops(false);
    else
        LiftLimit();
    connect(this, &QLineEdit::textChanged, this, &CellEdit::TextHasChanged);
}

void CellEdit::Show(const QString& text) {
    shown_ = text;
    if (text == this->text()) return;
    if (text.size() > maxLength()) LiftLimit();
    setText(text);
    caret_.reset();
}

void CellEdit::SetLocked(bool locked) {
    locked_ = locked;
    if (isVisible()) setReadOnly(locked);
}

void CellEdit::showEvent(QShowEvent* event) {
    setReadOnly(locked_);
    QLineEdit::showEvent(event);
}

void CellEdit::LiftLimit() { setMaxLength(std::numeric_limits<int>::max()); }

void CellEdit::ShowBeginning() {
    if (caret_) return;
    caret_ = cursorPosition();
    setCursorPosition(0);
}

void CellEdit::TakeCaretBack() {
    // Elsewhere than at the beginning it has been put since, by a screen reader.
    if (caret_ && !hasSelectedText() && cursorPosition() == 0) setCursorPosition(*caret_);
    caret_.reset();
}

void CellEdit::SetMarked(bool marked) {
    marked_ = marked;
    Describe();
    update();
}

void CellEdit::Describe() {
    const QString usual = marked_ ? tr("Sobre el límite") : QString();
    if (!refused_) return setAccessibleDescription(usual);
    const QString refusal = tr("Tecla no admitida. ");
    setAccessibleDescription(refusal + (marked_ ? usual : toolTip()));
}

void CellEdit::ShowRefusal() {
    TakeRefusalBack();  // so that each one is told anew
    refused_ = true;
    Describe();
    flash_.start(kFlash, this);
    update();
    Q_EMIT told_.Refused();
}

void CellEdit::TakeRefusalBack() {
    refused_ = false;
    Describe();
}

void CellEdit::timerEvent(QTimerEvent* event) {
    if (event->timerId() != flash_.timerId()) return QLineEdit::timerEvent(event);
    flash_.stop();
    update();
}

QColor CellEdit::FrameColor() const {
    constexpr QRgb kMark = 0xff141e2d;
    constexpr QRgb kWarning = 0xffc2410c;
    if (flash_.isActive()) return kWarning;
    return marked_ ? QColor(kMark) : QColor();
}

void CellEdit::TextHasChanged(const QString& text) {
    if (text == shown_) return;
    const bool by_right = !locked_ && (entry_ == Entry::Free || key_passed_);
    if (!by_right) {
        setText(shown_);
        return;
    }
    // A cell is a single line: pasted line breaks become blanks.
    QString line = text;
    line.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    for (const QChar end : {QChar(u'\n'), QChar(u'\r'), QChar(QChar::LineSeparator),
                            QChar(QChar::ParagraphSeparator)}) {
        line.replace(end, u' ');
    }
    shown_ = line;
    if (line != text) setText(line);
    Q_EMIT told_.Typed(*this, line);
}

bool CellEdit::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip &&
        TellWhole(*static_cast<const QHelpEvent*>(event), toolTip())) {
        return true;
    }
    return TextLine::event(event);
}

void CellEdit::keyPressEvent(QKeyEvent* event) {
    TakeCaretBack();
    if (event->key() == Qt::Key_F2) {
        Q_EMIT told_.DoubleClicked(*this);
        return;
    }
    const std::optional<KeyCode> character = CharacterOf(*event);
    if (OpensMenu(*event)) {
        event->ignore();
        return;
    }
    bool passes = entry_ == Entry::Free || !character;
    if (character) Q_EMIT told_.KeyPressed(*this, *character, passes);
    if (IsEnter(*event)) {
        focusNextChild();  // no part of the cell: it goes on whatever the filter says
        return;
    }
    if (!passes) {
        ShowRefusal();
        return;
    }
    if (refused_) TakeRefusalBack();
    const bool copies = event->key() == Qt::Key_Insert && event->modifiers() == Qt::ControlModifier;
    if (entry_ == Entry::Filtered && !character && !IsMovement(*event) && !copies) {
        event->ignore();
        return;
    }
    if (text().size() >= maxLength()) LiftLimit();
    key_passed_ = character.has_value();
    QLineEdit::keyPressEvent(event);
    key_passed_ = false;
}

void CellEdit::mousePressEvent(QMouseEvent* event) {
    // A click says itself where the caret goes, in the text as it is seen.
    caret_.reset();
    QLineEdit::mousePressEvent(event);
}

void CellEdit::mouseReleaseEvent(QMouseEvent* event) {
    if (entry_ == Entry::Filtered && event->button() == Qt::MiddleButton) return;  // would paste
    QLineEdit::mouseReleaseEvent(event);
}

void CellEdit::mouseDoubleClickEvent(QMouseEvent* event) {
    QLineEdit::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton) Q_EMIT told_.DoubleClicked(*this);
}

void CellEdit::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* const menu =
        entry_ == Entry::Free ? createStandardContextMenu() : MakeMenuOfFilteredCell();
    if (in_table_) {
        menu->addSeparator();
        menu->addAction(tr("Copiar toda la tabla"), &told_, &CellSignals::TableWanted);
    }
    // Not run in a loop of its own: the cell may be left, and gone, while its menu is open.
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

/// What copies and selects, and nothing that changes the text.
QMenu* CellEdit::MakeMenuOfFilteredCell() {
    auto* const menu = new QMenu(this);
    menu->addAction(tr("Copiar"), this, &QLineEdit::copy)->setEnabled(hasSelectedText());
    menu->addAction(tr("Seleccionar todo"), this, &QLineEdit::selectAll)
        ->setEnabled(!text().isEmpty());
    return menu;
}

void CellEdit::inputMethodEvent(QInputMethodEvent* event) {
    if (entry_ == Entry::Filtered) return;
    QLineEdit::inputMethodEvent(event);
}

QVariant CellEdit::inputMethodQuery(Qt::InputMethodQuery query) const {
    if (entry_ == Entry::Filtered && query == Qt::ImEnabled) return false;
    return QLineEdit::inputMethodQuery(query);
}

void CellEdit::focusInEvent(QFocusEvent* event) {
    const bool shows_beginning = caret_.has_value();
    const bool by_key =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (entry_ == Entry::Filtered && by_key) {
        // Selected, the text would go with the first digit: a key adds to its end.
        QFocusEvent plain(QEvent::FocusIn, Qt::OtherFocusReason);
        QLineEdit::focusInEvent(&plain);
        if (shows_beginning)
            caret_ = static_cast<int>(text().size());
        else
            end(false);
        return;
    }
    QLineEdit::focusInEvent(event);
    if (shows_beginning) SelectTowardsTheBeginning();
}

void CellEdit::focusOutEvent(QFocusEvent* event) {
    if (refused_) TakeRefusalBack();
    QLineEdit::focusOutEvent(event);
}

void CellEdit::paintEvent(QPaintEvent* event) {
    const bool too_narrow = IsTooNarrow();
    if (too_narrow && !hasFocus()) ShowBeginning();
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    if (too_narrow && caret_) PaintCut(painter);
    painter.setPen(QColor(0x9a, 0xa7, 0xb5));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace velmora
