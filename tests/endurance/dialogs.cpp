#include "endurance/dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPixmapCache>
#include <QTimer>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "endurance/census.h"

namespace velmora::endurance {

namespace {

constexpr const char* kName = "/tmp/no hay tal fichero.doc";  // the reader accepts any name

/// Answers whatever is open: the first button of a box, a name for a dialog.
void Answer() {
    constexpr const char* kAnswered = "answered";
    QWidget* const modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible() || modal->property(kAnswered).isValid()) return;
    if (auto* const name = modal->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
        name->setText(QString::fromLatin1(kName));
    }
    const auto* const buttons = modal->findChild<QDialogButtonBox*>();
    if (buttons == nullptr || buttons->buttons().isEmpty()) return;
    modal->setProperty(kAnswered, true);
    // Queued, so that nothing is answered inside this timer's own turn.
    QMetaObject::invokeMethod(buttons->buttons().front(), &QAbstractButton::click,
                              Qt::QueuedConnection);
}

/// Lets go what waits to be deleted.
void Settle() {
    for (int i = 0; i < 3; ++i) {
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

double RemainsOf(int times, const std::function<void()>& open) {
    for (int i = 0; i < times / 2; ++i) open();
    Settle();
    const auto before = static_cast<double>(Allocated());
    for (int i = 0; i < times; ++i) open();
    Settle();
    return (static_cast<double>(Allocated()) - before) / times;
}

void OpenBareBox(QWidget& parent) {
    QMessageBox box(QMessageBox::Question, QStringLiteral("Aviso"), QStringLiteral("¿Seguro?"),
                    QMessageBox::Yes | QMessageBox::No, &parent);
    box.exec();
}

void OpenBareDialog(QWidget& parent) {
    QFileDialog dialog(&parent);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.exec();
}

}  // namespace

std::vector<Remains> CompareDialogs(QtHost& host, Window& window, int times) {
    constexpr int kCacheKib = 256;  // full at once: pictures of the boxes don't count
    const int before = QPixmapCache::cacheLimit();
    QPixmapCache::setCacheLimit(kCacheKib);
    QTimer answerer;
    answerer.setInterval(1);
    QObject::connect(&answerer, &QTimer::timeout, &answerer, &Answer);
    answerer.start();

    std::vector<Remains> remains;
    const auto compare = [&](std::string what, const std::function<void()>& ours,
                             const std::function<void()>& bare) {
        Remains both{std::move(what)};
        both.bare = RemainsOf(times, bare);
        both.ours = RemainsOf(times, ours);
        remains.push_back(both);
    };
    compare(
        "message boxes",
        [&] { host.QtHost::MsgBox("¿Seguro?", MsgBoxStyle::YesNoQuestionNo, "Aviso"); },
        [&] { OpenBareBox(window); });
    compare(
        "file dialogs",
        [&] {
            CommonDialog dialog;
            dialog.DialogTitle = " Guardar datos";
            dialog.DefaultExt = "doc";
            dialog.Flags = 524288;  // the reader's, which asks nothing
            host.QtHost::ShowSave(dialog);
        },
        [&] { OpenBareDialog(window); });
    QPixmapCache::setCacheLimit(before);
    return remains;
}

}  // namespace velmora::endurance
