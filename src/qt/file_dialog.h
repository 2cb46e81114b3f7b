#pragma once

#include <QFileDialog>
#include <QMessageBox>

#include "forms/controls.h"

class QFileInfo;

namespace velmora {

/// Has the dialog start in the user's documents or, where there are none, at home; at its side
/// stand these two and the examples.
void StartAmongEvaluations(QFileDialog& dialog);

/// The file dialog of a screen, of the save kind both for saving and for restoring. Its flags tell
/// whether it asks before replacing a file (2) and before creating one (8192).
class FileDialog : public QFileDialog {
    Q_OBJECT

public:
    FileDialog(const CommonDialog& dialog, QWidget* parent);

    /// The name accepted, with the default extension where it had no point.
    QString FileName() const;

    void accept() override;

private:
    bool ConfirmsCreating(const QFileInfo& file);
    bool ConfirmsReplacing(const QFileInfo& file);
    bool Confirms(QMessageBox::Icon icon, const QString& question,
                  QMessageBox::StandardButton preset);

    bool asks_before_replacing_;
    bool asks_before_creating_;
};

}  // namespace velmora
