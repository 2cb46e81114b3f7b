#pragma once

#include <QBasicTimer>

#include <optional>

#include "forms/screen.h"
#include "qt/text_line.h"

class QMenu;

namespace velmora {

class CellEdit;

/// What the cells of a screen tell: one object for all of them, since signals of each cell's own
/// would be hundreds of connections at every move to the sheet.
class CellSignals : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    /// A character key, before it reaches the cell; its filter says whether it may. With nobody to
    /// say, a free cell takes the key and a filtered one refuses it.
    void KeyPressed(const CellEdit& cell, KeyCode key, bool& passes);
    /// A text that the user gave the cell.
    void Typed(const CellEdit& cell, const QString& text);
    /// A double click, or F2, which does the same from the keyboard.
    void DoubleClicked(const CellEdit& cell);
    /// A key was refused. Enter never is: it goes on all the same.
    void Refused();
    /// The whole table that a cell is part of is to be copied.
    void TableWanted();
};

/// A text cell on the window. With a key filter and no free text, the filter is the only way in:
/// pasting, dropping, the context menu, input methods and undo change nothing.
class CellEdit : public TextLine {
    Q_OBJECT
    Q_PROPERTY(bool Locked READ IsLocked)

public:
    enum class Entry {
        Free,      ///< an ordinary text field
        Filtered,  ///< text comes in by the keys that the filter lets pass
    };

    /// `told` is to be there for as long as the cell is used.
    CellEdit(Entry entry, CellSignals& told, QWidget* parent);

    /// How long a refused key shows in the cell's frame, in milliseconds.
    static constexpr int kFlash = 400;

    /// Sets what the cell shows, the caret at its end. Of a text too long for the cell the
    /// beginning and "…" are what is seen until a key is pressed or a click goes into the text.
    void Show(const QString& text);

    /// Makes the cell show its text and take no typing. The toolkit, which answers with an event
    /// and an update, is told once the cell is seen: most of a large screen's are hidden as it
    /// opens.
    void SetLocked(bool locked);
    bool IsLocked() const { return locked_; }

    /// Whether the cell is marked beyond its colour: by a frame, and to a screen reader.
    void SetMarked(bool marked);

    /// Makes the cell one of a table, whose context menu copies the whole of it.
    void SetInTable() { in_table_ = true; }

    /// The colour of the frame that the cell is to have above all, none for an invalid colour.
    QColor FrameColor() const;

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QMenu* MakeMenuOfFilteredCell();
    void LiftLimit();
    void Describe();
    void ShowRefusal();
    void TakeRefusalBack();
    void ShowBeginning();
    void TakeCaretBack();
    void TextHasChanged(const QString& text);

    Entry entry_;
    CellSignals& told_;
    QString shown_;  ///< what stands in the cell by right
    /// Where the caret stood, while the cell shows the beginning of a text that it can't show
    /// whole.
    std::optional<int> caret_;
    bool locked_ = false;
    bool in_table_ = false;
    bool marked_ = false;
    bool refused_ = false;  ///< the last key, and the cell hasn't been left since
    QBasicTimer flash_;
    bool key_passed_ = false;  ///< a key that the filter let pass is being typed
};

}  // namespace velmora
