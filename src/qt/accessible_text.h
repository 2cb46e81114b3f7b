#pragma once

#include <QAccessible>

namespace velmora {

/// The parts of a text for a screen reader: characters, words, sentences, or the whole of a single
/// line. The toolkit's own search for a part doesn't end where no boundary follows.
///
/// Parts lie side by side, blanks and marks being parts of their own; the offsets of one are from 0
/// to the text's length. At the text's end stands its last part, but no character. Where there is
/// no such part the answer is empty and its offsets are -1.
class AccessibleText : public QAccessibleTextInterface {
public:
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary, int* begin,
                             int* end) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType boundary, int* begin,
                         int* end) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType boundary, int* begin,
                            int* end) const override;
};

/// Makes the toolkit speak of line edits, and of the number fields of its dialogs, by the parts
/// above.
void InstallAccessibleTexts();

}  // namespace velmora
