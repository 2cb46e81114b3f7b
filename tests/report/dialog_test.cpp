#include "app/report_dialog.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>
#include <QUrl>

#include "support/browser.h"
#include "support/qt_tests.h"

namespace velmora {
namespace {

class ReportDialogTest : public ::testing::Test {
protected:
    ReportDialogTest() {
        QFile::copy(QStringLiteral(VELMORA_EXAMPLES "/plan-dia-trabajado.doc"), Name("plan.doc"));
    }

    QString Name(const char* name) const { return folder_.filePath(QLatin1String(name)); }

    static QByteArray Bytes(const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void Write(const char* name, const QByteArray& bytes) {
        QFile file(Name(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    /// Runs it, answering the dialog with a name, or cancelling it, and a box with a button.
    int Ask(const QString& name, QMessageBox::StandardButton answer = QMessageBox::NoButton) {
        said_.clear();
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, [&] {
            QWidget* const modal = QApplication::activeModalWidget();
            if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                said_ = box->text();
                no_is_preset_ = box->defaultButton() == box->button(QMessageBox::No);
                answer == QMessageBox::NoButton ? box->reject() : box->button(answer)->click();
            } else if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
                started_in_ = dialog->directory().path();
                title_ = dialog->windowTitle();
                const auto& columns = *dialog->findChild<QTreeView*>()->header();
                const int date = columns.count() - 1;
                date_is_cut_ = columns.sectionSize(date) < columns.sectionSizeHint(date);
                opens_ = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open);
                dialog->selectFile(name);
                QDialog& shown = *dialog;
                name.isEmpty() ? shown.reject() : shown.accept();
            }
        });
        watch.start(0);
        const int status = ReportAskedFor();
        EXPECT_EQ(said_.isEmpty(), answer == QMessageBox::NoButton) << said_.toStdString();
        return status;
    }

    QTemporaryDir folder_;
    test::Browser browser_;
    QString said_;
    bool no_is_preset_ = false;
    QString started_in_;
    QString title_;
    bool date_is_cut_ = true;  ///< the head of the dialog's last column
    bool opens_ = false;       ///< the dialog's button opens, rather than saves
};

TEST_F(ReportDialogTest, TheReportIsWrittenBesideAndOpened) {
    EXPECT_EQ(Ask(Name("plan.doc")), 0);
    EXPECT_TRUE(Bytes(Name("plan.html")).startsWith("<!DOCTYPE html>"));
    EXPECT_EQ(browser_.opened, QList{QUrl::fromLocalFile(Name("plan.html"))});
}

TEST_F(ReportDialogTest, CancelledItWritesAndOpensNothing) {
    EXPECT_EQ(Ask(QString()), 0);
    EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files), QStringList(QStringLiteral("plan.doc")));
    EXPECT_TRUE(browser_.opened.isEmpty());
}

TEST_F(ReportDialogTest, ItAsksForAnEvaluationToOpen) {
    Ask(QString());
    EXPECT_EQ(title_, QStringLiteral("Informe de Velmora: elija la evaluación"));
    EXPECT_TRUE(opens_);
    EXPECT_FALSE(date_is_cut_);
}

TEST_F(ReportDialogTest, ItStartsAtHomeWhereThereAreNoDocuments) {
    Ask(QString());
    EXPECT_EQ(started_in_, QDir::homePath());
}

TEST_F(ReportDialogTest, ItAsksBeforeItReplacesAReport) {
    Write("plan.html", "de otro");
    EXPECT_EQ(Ask(Name("plan.doc"), QMessageBox::No), 0);
    EXPECT_TRUE(no_is_preset_);
    EXPECT_EQ(said_, QStringLiteral("plan.html ya existe.\n¿Desea reemplazarlo?"));
    EXPECT_EQ(Bytes(Name("plan.html")), "de otro");
    EXPECT_TRUE(browser_.opened.isEmpty());
    EXPECT_EQ(Ask(Name("plan.doc"), QMessageBox::Yes), 0);
    EXPECT_TRUE(Bytes(Name("plan.html")).startsWith("<!DOCTYPE html>"));
}

TEST_F(ReportDialogTest, WhatIsNoEvaluationIsSaidInABox) {
    Write("lista.txt", "leche\npan\n");
    EXPECT_EQ(Ask(Name("lista.txt"), QMessageBox::Ok), 1);
    EXPECT_TRUE(said_.startsWith(QStringLiteral("«") + Name("lista.txt"))) << said_.toStdString();
    EXPECT_TRUE(browser_.opened.isEmpty());
}

}  // namespace
}  // namespace velmora

int main(int argc, char* argv[]) { return velmora::test::RunQtTests(argc, argv); }
