#include "qt/file_dialog.h"

#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTreeView>

#include "qt/text.h"

namespace velmora {

namespace {

constexpr std::uint32_t kAsksBeforeReplacing = 2;
constexpr std::uint32_t kAsksBeforeCreating = 8192;

}  // namespace

FileDialog::FileDialog(const CommonDialog& dialog, QWidget* parent)
    : QFileDialog(parent), asks_before_creating_((dialog.Flags & kAsksBeforeCreating) != 0) {
    const bool asks_before_replacing = (dialog.Flags & kAsksBeforeReplacing) != 0;
    setOption(DontUseNativeDialog);
    setOption(DontConfirmOverwrite, !asks_before_replacing);
    setWindowTitle(ToQt(dialog.DialogTitle));
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    setDefaultSuffix(ToQt(dialog.DefaultExt));
    if (!asks_before_replacing) setLabelText(Accept, tr("Abrir"));
    for (QTreeView* list : findChildren<QTreeView*>()) {
        constexpr int kKind = 2;  // of the columns name, size, kind, date
        list->hideColumn(kKind);
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    }
    if (dialog.FileName.empty()) {
        setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    } else {
        selectFile(ToQt(dialog.FileName));
    }
}

QString FileDialog::FileName() const {
    const QStringList names = selectedFiles();
    return names.isEmpty() ? QString() : names.front();
}

void FileDialog::accept() {
    const QString name = FileName();
    if (asks_before_creating_ && !name.isEmpty() && !QFileInfo::exists(name) &&
        !ConfirmsCreating(name)) {
        return;
    }
    QFileDialog::accept();
}

bool FileDialog::ConfirmsCreating(const QString& name) {
    const QString question = tr("%1 no existe.\n¿Desea crearlo?").arg(QFileInfo(name).fileName());
    return QMessageBox::question(this, windowTitle(), question, QMessageBox::Yes | QMessageBox::No,
                                 QMessageBox::Yes) == QMessageBox::Yes;
}

}  // namespace velmora
