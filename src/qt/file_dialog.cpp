#include "qt/file_dialog.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>
#include <QScreen>
#include <QSplitter>
#include <QStandardPaths>
#include <QTreeView>
#include <QUrl>

#include "qt/text.h"

namespace velmora {

namespace {

constexpr std::uint32_t kAsksBeforeReplacing = 2;
constexpr std::uint32_t kAsksBeforeCreating = 8192;

/// The user's documents, where there are any.
QString DocumentsOrHome() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

/// The evaluations that come with the program: installed, or in the tree that it was built in.
QString Examples() {
    QDir above(QCoreApplication::applicationDirPath());
    do {
        for (const char* const place : {"share/doc/velmora/examples", "examples"}) {
            const QDir examples(above.filePath(QLatin1String(place)));
            if (examples.exists(QStringLiteral("plan-dia-trabajado.doc"))) return examples.path();
        }
    } while (above.cdUp());
    return {};
}

/// The folders at the side: home, documents, examples; those that there are.
QList<QUrl> FoldersAtTheSide() {
    QList<QUrl> folders;
    for (const QString& folder : {QDir::homePath(), DocumentsOrHome(), Examples()}) {
        const QUrl url = QUrl::fromLocalFile(folder);
        if (!folder.isEmpty() && !folders.contains(url)) folders << url;
    }
    return folders;
}

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
    for (QTreeView* list : findChildren<QTreeView*>()) {
        constexpr int kKind = 2;  // of the columns name, size, kind, date
        list->hideColumn(kKind);
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    }
    setSidebarUrls(FoldersAtTheSide());
    const int letter = QFontMetrics(QApplication::font(this)).height();
    resize((QSize(46, 30) * letter).boundedTo(screen()->availableSize() * 0.9));
    if (auto* const halves = findChild<QSplitter*>()) halves->setSizes({10 * letter, 36 * letter});
    if (dialog.FileName.empty()) {
        setDirectory(DocumentsOrHome());
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
    const QFileInfo file(name);
    // Of a name that ends in a slash nothing but the extension is left: it stands for its folder.
    const bool is_folder = file.completeBaseName().isEmpty() && !file.dir().exists();
    const QString last = is_folder ? file.dir().dirName() : file.fileName();
    const QString question = tr("%1 no existe.\n¿Desea crearlo?").arg(last);
    return QMessageBox::question(this, windowTitle(), question, QMessageBox::Yes | QMessageBox::No,
                                 QMessageBox::Yes) == QMessageBox::Yes;
}

}  // namespace velmora
