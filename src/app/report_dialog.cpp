#include "app/report_dialog.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include <cstdlib>
#include <sstream>

#include "qt/file_dialog.h"
#include "qt/text.h"
#include "report/session.h"

namespace velmora {

namespace {

const auto kTitle = QStringLiteral("Informe de Velmora");

/// The evaluation that the user chooses; empty when the dialog is cancelled.
QString ChosenEvaluation() {
    QFileDialog dialog;
    SetUp(dialog);
    dialog.setWindowTitle(QStringLiteral("Informe de Velmora: elija la evaluación"));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

bool MayReplace(const QString& report) {
    const QString question =
        QStringLiteral("%1 ya existe.\n¿Desea reemplazarlo?").arg(QFileInfo(report).fileName());
    return QMessageBox::question(nullptr, kTitle, question, QMessageBox::Yes | QMessageBox::No,
                                 QMessageBox::No) == QMessageBox::Yes;
}

}  // namespace

int MakeReportFor(const std::string& evaluation) {
    report::Order order;
    order.evaluations = {evaluation};
    const QString target = ToQt(report::ReportNameOf(evaluation));
    order.replace = QFileInfo::exists(target);
    if (order.replace && !MayReplace(target)) return EXIT_SUCCESS;

    std::ostringstream said;
    if (report::Run(order, {said, said, false}) != EXIT_SUCCESS) {
        QMessageBox::critical(nullptr, kTitle,
                              ToQt(said.str().substr(report::kMessageHead.size())));
        return EXIT_FAILURE;
    }
    QDesktopServices::openUrl(QUrl::fromLocalFile(target));
    return EXIT_SUCCESS;
}

int ReportAskedFor() {
    const QString evaluation = ChosenEvaluation();
    return evaluation.isEmpty() ? EXIT_SUCCESS : MakeReportFor(evaluation.toStdString());
}

}  // namespace velmora
