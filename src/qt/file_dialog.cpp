#include "qt/file_dialog.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QScreen>
#include <QSplitter>
#include <QStandardPaths>
#include <QTreeView>
#include <QUrl>

#include "qt/message_box.h"
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

void SetUp(QFileDialog& dialog) {
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    for (QTreeView* list : dialog.findChildren<QTreeView*>()) {
        constexpr int kKind = 2;  // of the columns name, size, kind, date
        list->hideColumn(kKind);
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    }
    dialog.setSidebarUrls(FoldersAtTheSide());
    dialog.setDirectory(DocumentsOrHome());
    const int letter = QFontMetrics(QApplication::font(&dialog)).height();
    dialog.resize((QSize(46, 30) * letter).boundedTo(dialog.screen()->availableSize() * 0.9));
    if (auto* const halves = dialog.findChild<QSplitter*>()) {
        halves->setSizes({10 * letter, 36 * letter});
    }
}

FileDialog::FileDialog(const CommonDialog& dialog, QWidget* parent)
    : QFileDialog(parent),
      asks_before_replacing_((dialog.Flags & kAsksBeforeReplacing) != 0),
      asks_before_creating_((dialog.Flags & kAsksBeforeCreating) != 0) {
    SetUp(*this);
    setOption(DontConfirmOverwrite);  // it is asked below, in a box that keeps its lines
    setWindowTitle(ToQt(dialog.DialogTitle));
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    setDefaultSuffix(ToQt(dialog.DefaultExt));
    if (!dialog.FileName.empty()) selectFile(ToQt(dialog.FileName));
}

QString FileDialog::FileName() const {
    const QStringList names = selectedFiles();
    return names.isEmpty() ? QString() : names.front();
}

void FileDialog::accept() {
    const QString name = FileName();
    const QFileInfo file(name);
    const bool creates = !name.isEmpty() && !file.exists();
    if (creates && asks_before_creating_ && !ConfirmsCreating(file)) return;
    const bool replaces = file.exists() && !file.isDir();
    if (replaces && asks_before_replacing_ && !ConfirmsReplacing(file)) return;
    QFileDialog::accept();
}

bool FileDialog::ConfirmsCreating(const QFileInfo& file) {
    // Of a name that ends in a slash nothing but the extension is left: it stands for its folder.
    const bool is_folder = file.completeBaseName().isEmpty() && !file.dir().exists();
    const QString last = is_folder ? file.dir().dirName() : file.fileName();
    return Confirms(QMessageBox::Question, tr("%1 no existe.\n¿Desea crearlo?").arg(last),
                    QMessageBox::Yes);
}

bool FileDialog::ConfirmsReplacing(const QFileInfo& file) {
    // In the toolkit's own words, which its translation has.
    const QString question = QFileDialog::tr("%1 already exists.\nDo you want to replace it?");
    return Confirms(QMessageBox::Warning, question.arg(file.fileName()), QMessageBox::No);
}

bool FileDialog::Confirms(QMessageBox::Icon icon, const QString& question,
                          QMessageBox::StandardButton preset) {
    MessageBox box(icon, windowTitle(), question, QMessageBox::Yes | QMessageBox::No, this);
    box.setDefaultButton(preset);
    return box.exec() == QMessageBox::Yes;
}

}  // namespace velmora
