#pragma once

#include <QLineEdit>

class QHelpEvent;

namespace velmora {

/// A line of text without a frame of its own. Where it is too narrow for its text, "…" can be
/// painted at the cut, and its tool tip says the whole.
class TextLine : public QLineEdit {
    Q_OBJECT

public:
    explicit TextLine(QWidget* parent);

    /// What a screen reader calls it. Kept until it asks: given to the toolkit, a name makes an
    /// accessible object at once, whether or not anybody listens.
    void SetSpokenName(const QString& name) { spoken_name_ = name; }
    const QString& SpokenName() const { return spoken_name_; }

    /// Whether it can't show its text whole.
    bool IsTooNarrow() const;

    /// Shows the whole of a text that is cut, and `tool_tip` under it. Gives whether it is cut.
    bool TellWhole(const QHelpEvent& event, const QString& tool_tip);

protected:
    /// Paints the beginning of the text, and "…" where it is cut, over what the line edit painted;
    /// the caret stays in view ahead of it.
    void PaintCut(QPainter& painter) const;

    /// Where all is selected, the caret goes from the end to the beginning, which stays in view.
    void SelectTowardsTheBeginning();

private:
    /// What the tool tip says of a text that doesn't fit: its beginning, where it is long.
    QString TipText() const;

    QString spoken_name_;
};

}  // namespace velmora
