#include "qt/qt_host.h"

#include <QApplication>
#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMarginsF>
#include <QMessageBox>
#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QUrl>

#include <algorithm>
#include <cstdlib>
#include <ctime>

#include "qt/file_dialog.h"
#include "qt/local_time.h"
#include "qt/message_box.h"
#include "qt/paper.h"
#include "qt/platform.h"
#include "qt/print_server.h"
#include "qt/text.h"

namespace velmora {

namespace {

/// What a screen reader says of a box's icon.
QString NameOf(QMessageBox::Icon icon) {
    switch (icon) {
        case QMessageBox::Information:
            return QStringLiteral("Información");
        case QMessageBox::Question:
            return QStringLiteral("Pregunta");
        case QMessageBox::Warning:
            return QStringLiteral("Aviso");
        case QMessageBox::Critical:
            return QStringLiteral("Error");
        case QMessageBox::NoIcon:
            break;
    }
    return {};
}

constexpr double kMargin = 10;  ///< of a printed page, in millimetres; a hole punch needs room

struct BoxStyle {
    QMessageBox::StandardButtons buttons;
    QMessageBox::Icon icon;
    QMessageBox::StandardButton preset;
};

BoxStyle StyleOf(MsgBoxStyle style) {
    constexpr auto kYesNo = QMessageBox::Yes | QMessageBox::No;
    switch (style) {
        case MsgBoxStyle::YesNo:
            return {kYesNo, QMessageBox::NoIcon, QMessageBox::Yes};
        case MsgBoxStyle::YesNoInformation:
            return {kYesNo, QMessageBox::Information, QMessageBox::Yes};
        case MsgBoxStyle::YesNoQuestionNo:
            return {kYesNo, QMessageBox::Question, QMessageBox::No};
        case MsgBoxStyle::YesNoInformationNo:
            return {kYesNo, QMessageBox::Information, QMessageBox::No};
        case MsgBoxStyle::Ok:
            break;
    }
    return {QMessageBox::Ok, QMessageBox::NoIcon, QMessageBox::Ok};
}

QMessageBox::StandardButton ShowBox(QWidget* parent, const QString& title, const QString& text,
                                    const BoxStyle& style) {
    MessageBox box(style.icon, title, text, style.buttons, parent);
    if (auto* const icon = box.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"))) {
        icon->setAccessibleName(NameOf(style.icon));
    }
    box.setDefaultButton(style.preset);
    box.setEscapeButton(style.buttons.testFlag(QMessageBox::No) ? QMessageBox::No
                                                                : QMessageBox::Ok);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

}  // namespace

QString GuideFor(const QString& program_folder) {
    for (const char* const place :
         {"../../share/doc/velmora/guia.html", "../share/doc/velmora/guia.html",
          "packaging/guia.html", "../../docs/guia.md", "guia.html", "../guia.html"}) {
        const QFileInfo page(QDir(program_folder), QString::fromLatin1(place));
        if (page.isFile()) return page.canonicalFilePath();
    }
    return {};
}

QtHost::QtHost()
    : end([](int status) { std::_Exit(status); }),
      find_guide([] { return GuideFor(QCoreApplication::applicationDirPath()); }),
      beep([] { QApplication::beep(); }),
      make_printer([] { return std::make_unique<QPrinter>(QPrinter::HighResolution); }) {}

MsgBoxAnswer QtHost::MsgBox(std::string_view prompt, MsgBoxStyle style, std::string_view title) {
    window_->ShowChanges();
    QString text = ToQt(prompt);
    text.replace(ToQt(kLineEnd), QStringLiteral("\n"));
    switch (ShowBox(window_, ToQt(title), text, StyleOf(style))) {
        case QMessageBox::Yes:
            return MsgBoxAnswer::Yes;
        case QMessageBox::No:
            return MsgBoxAnswer::No;
        default:
            return MsgBoxAnswer::Ok;
    }
}

void QtHost::ShowError(std::string_view message) {
    const QString lost = QStringLiteral(
        "\n\nEl programa se cierra, y lo que no esté en un fichero se pierde.\n"
        "Las causas están en la guía: «Conviene saber», «Algunos datos cierran el programa».");
    ShowBox(window_, ToQt(kBoxTitle), ToQt(message) + lost,
            {QMessageBox::Ok, QMessageBox::Critical, QMessageBox::Ok});
}

void QtHost::Say(const QString& text) {
    ShowBox(window_, ToQt(kBoxTitle), text, StyleOf(MsgBoxStyle::Ok));
}

void QtHost::OpenGuide(std::string_view section) {
    const QString path = find_guide();
    if (path.isEmpty()) {
        Say(QStringLiteral("No se encuentra la guía."));
        return;
    }
    QUrl page = QUrl::fromLocalFile(path);
    page.setFragment(ToQt(section));
    QDesktopServices::openUrl(page);
}

void QtHost::ShowSave(CommonDialog& dialog) {
    window_->ShowChanges();
    FileDialog box(dialog, window_);
    if (box.exec() == QDialog::Accepted) dialog.FileName = box.FileName().toStdString();
}

void QtHost::ShowPrinter(CommonDialog& dialog) {
    window_->ShowChanges();
    if (!PrintServerAnswers()) return;  // passed over, as a machine without printers is
    printer_ = make_printer();
    printer_->setPageOrientation(QPageLayout::Landscape);
    printer_->setColorMode(QPrinter::Color);  // some start out grey
    printer_->setPageMargins({kMargin, kMargin, kMargin, kMargin}, QPageLayout::Millimeter);
    if (!HasPrintDialog(*printer_)) {
        if (printer_->outputFileName().isEmpty()) Say(QStringLiteral("No hay ninguna impresora."));
        return;
    }
    QPrintDialog box(printer_.get(), window_);
    box.setOption(QAbstractPrintDialog::PrintToFile, false);
    box.setMinMax(dialog.FromPage, dialog.ToPage);
    box.setFromTo(std::max(1, dialog.FromPage), dialog.ToPage);
    box.exec();  // nothing asks what was pressed: a Cancel doesn't stop the print
}

void QtHost::PrintForm() {
    if (!printer_ && PrintServerAnswers()) printer_ = make_printer();
    const std::unique_ptr<QPrinter> printer = std::move(printer_);
    if (!printer) return;
    const Imprint imprint = MakeImprint();
    printer->setDocName(TitleOf(imprint));
    QPainter painter;
    if (!painter.begin(printer.get())) return;  // no printer: passed over
    constexpr double kShape = static_cast<double>(kRoomOfAScreen.width) / kRoomOfAScreen.height;
    window_->PaintScreen(painter, PaintImprint(painter, *printer, imprint, kShape));
}

Imprint QtHost::MakeImprint() const {
    const PageOwner whose = owner ? owner() : PageOwner();
    const std::tm now = Now();
    const QDateTime time(QDate(now.tm_year + 1900, now.tm_mon + 1, now.tm_mday),
                         QTime(now.tm_hour, now.tm_min, now.tm_sec));
    return {ToQt(whose.company).simplified(),
            ToQt(whose.code).simplified(),
            window_->windowTitle().simplified(),
            ToQt(kBoxTitle) + u' ' + QApplication::applicationVersion(),
            time.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss")),
            window_->CutTexts()};
}

std::tm QtHost::Now() const { return LocalTime(std::time(nullptr)); }

}  // namespace velmora
