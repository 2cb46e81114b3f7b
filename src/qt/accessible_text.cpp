#include "qt/accessible_text.h"

#include <QAbstractSpinBox>
#include <QAccessibleWidget>
#include <QFontMetrics>
#include <QLineEdit>
#include <QPointer>
#include <QSpinBox>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <optional>

#include "qt/text_line.h"

namespace velmora {

namespace {

/// A part of a text, from `begin` to before `end`.
struct Part {
    int begin = -1;
    int end = -1;

    bool Exists() const { return begin >= 0; }
};

/// Whether the boundary parts a text at all; a single line is one line and one paragraph.
std::optional<QTextBoundaryFinder::BoundaryType> FinderOf(QAccessible::TextBoundaryType boundary) {
    switch (boundary) {
        case QAccessible::CharBoundary:
            return QTextBoundaryFinder::Grapheme;
        case QAccessible::WordBoundary:
            return QTextBoundaryFinder::Word;
        case QAccessible::SentenceBoundary:
            return QTextBoundaryFinder::Sentence;
        default:
            return std::nullopt;
    }
}

Part PartAt(const QString& text, int offset, QAccessible::TextBoundaryType boundary) {
    const int length = static_cast<int>(text.size());
    if (offset < 0 || offset > length || length == 0) return {};
    const auto kind = FinderOf(boundary);
    if (!kind) return {0, length};
    if (offset == length) {
        if (boundary == QAccessible::CharBoundary) return {};
        --offset;
    }
    QTextBoundaryFinder finder(*kind, text);
    finder.setPosition(offset);
    const auto begin = finder.isAtBoundary() ? offset : finder.toPreviousBoundary();
    finder.setPosition(offset);
    const auto end = finder.toNextBoundary();
    return {static_cast<int>(std::max<qsizetype>(begin, 0)),
            end < 0 ? length : static_cast<int>(end)};
}

Part PartBefore(const QString& text, int offset, QAccessible::TextBoundaryType boundary) {
    const bool behind_last = offset == text.size() && boundary == QAccessible::CharBoundary;
    const int begin = behind_last ? offset : PartAt(text, offset, boundary).begin;
    return begin > 0 ? PartAt(text, begin - 1, boundary) : Part{};
}

Part PartAfter(const QString& text, int offset, QAccessible::TextBoundaryType boundary) {
    const Part here = PartAt(text, offset, boundary);
    return here.Exists() && here.end < text.size() ? PartAt(text, here.end, boundary) : Part{};
}

using Search = Part (*)(const QString&, int, QAccessible::TextBoundaryType);

QString Found(const QAccessibleTextInterface& spoken, Search search, int offset,
              QAccessible::TextBoundaryType boundary, int* begin, int* end) {
    const QString text = spoken.text(0, spoken.characterCount());
    const Part part = search(text, offset, boundary);
    *begin = part.begin;
    *end = part.end;
    return part.Exists() ? text.mid(part.begin, part.end - part.begin) : QString();
}

/// The text of a line edit, as it is read and written from outside.
class LineText : public AccessibleText, public QAccessibleEditableTextInterface {
public:
    explicit LineText(QLineEdit& edit) : edit_(&edit) {}

    QString Whole() const { return edit_ ? edit_->displayText() : QString(); }

    QString text(int begin, int end) const override { return Whole().mid(begin, end - begin); }
    int characterCount() const override { return static_cast<int>(Whole().size()); }
    int cursorPosition() const override { return edit_ ? edit_->cursorPosition() : 0; }
    void setCursorPosition(int position) override {
        if (edit_) edit_->setCursorPosition(position);
    }
    int selectionCount() const override { return edit_ && edit_->hasSelectedText() ? 1 : 0; }
    void selection(int index, int* begin, int* end) const override {
        const bool is_there = index == 0 && selectionCount() == 1;
        *begin = is_there ? edit_->selectionStart() : 0;
        *end = is_there ? edit_->selectionEnd() : 0;
    }
    void addSelection(int begin, int end) override { setSelection(0, begin, end); }
    void removeSelection(int index) override {
        if (index == 0 && edit_) edit_->deselect();
    }
    void setSelection(int index, int begin, int end) override {
        if (index == 0 && edit_) edit_->setSelection(begin, end - begin);
    }
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override {
        return edit_ ? edit_->cursorPositionAt(edit_->mapFromGlobal(point)) : -1;
    }
    void scrollToSubstring(int begin, int end) override {
        setCursorPosition(end);
        setCursorPosition(begin);
    }
    QString attributes(int /*offset*/, int* begin, int* end) const override {
        *begin = 0;
        *end = characterCount();
        return {};
    }

    void deleteText(int begin, int end) override { replaceText(begin, end, {}); }
    void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
    void replaceText(int begin, int end, const QString& text) override {
        if (!edit_ || edit_->isReadOnly()) return;
        edit_->setText(edit_->text().replace(begin, end - begin, text));
    }

private:
    QPointer<QLineEdit> edit_;
};

QRect LineText::characterRect(int offset) const {
    if (!edit_ || offset < 0 || offset >= characterCount()) return {};
    const QFontMetrics letters = edit_->fontMetrics();
    const QString whole = Whole();
    const QRect cursor = edit_->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const int left = cursor.center().x() + letters.horizontalAdvance(whole, offset) -
                     letters.horizontalAdvance(whole, edit_->cursorPosition());
    const QRect place(left, cursor.top(), letters.horizontalAdvance(whole.at(offset)),
                      cursor.height());
    return {edit_->mapToGlobal(place.topLeft()), place.size()};
}

/// A line edit.
class AccessibleLine : public QAccessibleWidget, public LineText {
public:
    explicit AccessibleLine(QLineEdit& edit)
        : QAccessibleWidget(&edit, QAccessible::EditableText), LineText(edit), edit_(&edit) {}

    using LineText::text;
    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value) return Whole();
        const auto* const line = qobject_cast<const TextLine*>(edit_);
        const bool is_named = line != nullptr && !line->SpokenName().isEmpty();
        return kind == QAccessible::Name && is_named ? line->SpokenName()
                                                     : QAccessibleWidget::text(kind);
    }
    void setText(QAccessible::Text kind, const QString& text) override {
        if (kind == QAccessible::Value)
            replaceText(0, characterCount(), text);
        else
            QAccessibleWidget::setText(kind, text);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        if (!edit_) return state;
        state.readOnly = edit_->isReadOnly();
        state.editable = !state.readOnly;
        state.selectable = true;
        state.selected = edit_->hasSelectedText();
        state.hasPopup = edit_->contextMenuPolicy() != Qt::NoContextMenu;
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
        if (type == QAccessible::EditableTextInterface) {
            return static_cast<QAccessibleEditableTextInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }

private:
    QPointer<QLineEdit> edit_;
};

/// A field for a whole number, such as the copies of the print dialog.
class AccessibleNumber : public QAccessibleWidget,
                         public QAccessibleValueInterface,
                         public LineText {
public:
    AccessibleNumber(QSpinBox& box, QLineEdit& edit)
        : QAccessibleWidget(&box, QAccessible::SpinBox), LineText(edit), box_(&box) {}

    using LineText::text;
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? Whole() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = box_ && box_->isReadOnly();
        state.editable = !state.readOnly;
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        switch (type) {
            case QAccessible::TextInterface:
                return static_cast<QAccessibleTextInterface*>(this);
            case QAccessible::EditableTextInterface:
                return static_cast<QAccessibleEditableTextInterface*>(this);
            case QAccessible::ValueInterface:
                return static_cast<QAccessibleValueInterface*>(this);
            default:
                return QAccessibleWidget::interface_cast(type);
        }
    }

    QVariant currentValue() const override { return box_ ? box_->value() : 0; }
    void setCurrentValue(const QVariant& value) override {
        if (box_) box_->setValue(value.toInt());
    }
    QVariant maximumValue() const override { return box_ ? box_->maximum() : 0; }
    QVariant minimumValue() const override { return box_ ? box_->minimum() : 0; }
    QVariant minimumStepSize() const override { return box_ ? box_->singleStep() : 1; }

private:
    QPointer<QSpinBox> box_;
};

QAccessibleInterface* MakeText(const QString& /*class_name*/, QObject* object) {
    if (auto* const edit = qobject_cast<QLineEdit*>(object)) return new AccessibleLine(*edit);
    auto* const box = qobject_cast<QSpinBox*>(object);
    auto* const edit = box != nullptr ? box->findChild<QLineEdit*>() : nullptr;
    return edit != nullptr ? new AccessibleNumber(*box, *edit) : nullptr;
}

}  // namespace

QString AccessibleText::textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary,
                                         int* begin, int* end) const {
    return Found(*this, PartBefore, offset, boundary, begin, end);
}

QString AccessibleText::textAtOffset(int offset, QAccessible::TextBoundaryType boundary, int* begin,
                                     int* end) const {
    return Found(*this, PartAt, offset, boundary, begin, end);
}

QString AccessibleText::textAfterOffset(int offset, QAccessible::TextBoundaryType boundary,
                                        int* begin, int* end) const {
    return Found(*this, PartAfter, offset, boundary, begin, end);
}

void InstallAccessibleTexts() { QAccessible::installFactory(MakeText); }

}  // namespace velmora
