#pragma once

#include <QFileDialog>
#include <QMessageBox>

#include "forms/controls.h"

class QFileInfo;

namespace velmora {

/// Makes it the toolkit's own, with room for its columns and for the folders at its side: home, the
/// user's documents, where there are any and it starts, and the examples.
void SetUp(QFileDialog& dialog);

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
