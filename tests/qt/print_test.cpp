// The print dialog and the page that comes out.

#include <QAbstractButton>
#include <QAction>
#include <QFile>
#include <QImage>
#include <QPrintDialog>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>

#include "qt/platform.h"
#include "qt/text.h"
#include "qt/window_test.h"
#include "support/messages.h"

namespace velmora::messages {

void PrintTo(const Print& print, std::ostream* out) { *out << test::NameOf(print.screen); }

}  // namespace velmora::messages

namespace velmora::test {
namespace {

using Print = Robot::Print;

class PrintTest : public WindowTest {
protected:
    PrintTest() {
        host.make_printer = [this] {
            ++printers;
            auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
            printer->setOutputFormat(QPrinter::PdfFormat);
            printer->setOutputFileName(ToQt(Page()));
            return printer;
        };
    }

    std::string Page() const { return folder.filePath(QStringLiteral("page.pdf")).toStdString(); }

    void ExpectQuestion(ScreenId screen, QMessageBox::StandardButton answer) {
        robot.ExpectBox(BoxOf(messages::PrintQuestion(screen), MsgBoxStyle::YesNo, answer));
    }

    /// How many pages the file holds; 0 when there is none.
    int Pages() const {
        QFile file(ToQt(Page()));
        if (!file.open(QIODevice::ReadOnly)) return 0;
        const QByteArray bytes = file.readAll();
        return static_cast<int>(bytes.count("/Type /Page\n"));
    }

    QTemporaryDir folder;
    int printers = 0;
};

class EachPrintTest : public PrintTest, public ::testing::WithParamInterface<messages::Print> {};

TEST_P(EachPrintTest, AsksShowsTheDialogAndPrintsOnePage) {
    const messages::Print& row = GetParam();
    SetPlan(1, 1, 1);
    Open(row.screen);
    ExpectQuestion(row.screen, QMessageBox::Yes);
    bool to_file = true;
    std::pair<int, int> pages;
    std::pair<int, int> bounds;
    robot.ExpectPrintDialog(Print::Cancel, [&](QPrintDialog& dialog) {
        to_file = dialog.testOption(QAbstractPrintDialog::PrintToFile);
        pages = {dialog.fromPage(), dialog.toPage()};
        bounds = {dialog.minPage(), dialog.maxPage()};
    });
    robot.Choose("imprimir");
    EXPECT_FALSE(to_file);
    EXPECT_EQ(bounds, std::pair(row.first_page, row.last_page));
    // As far as the toolkit can: its ranges begin at page 1.
    EXPECT_EQ(pages, std::pair(std::max(1, row.first_page), row.last_page));
    EXPECT_EQ(Pages(), 1);
    EXPECT_EQ(printers, 1);
}

INSTANTIATE_TEST_SUITE_P(OnTheWindow, EachPrintTest, ::testing::ValuesIn(messages::kPrints),
                         [](const auto& test) { return NameOf(test.param.screen); });

TEST_F(PrintTest, ANoPrintsNothingAndShowsNoDialog) {
    Open(ScreenId::Form2);
    ExpectQuestion(ScreenId::Form2, QMessageBox::No);
    robot.Choose("imprimir");
    EXPECT_EQ(Pages(), 0);
    EXPECT_EQ(printers, 0);
}

TEST_F(PrintTest, TheDialogIsSpanish) {
    std::string captions;
    robot.on_modal = [&](QDialog& modal) {
        if (qobject_cast<QPrintDialog*>(&modal) == nullptr) return;
        for (const QAbstractButton* const button : modal.findChildren<QAbstractButton*>()) {
            captions += button->text().remove(QLatin1Char('&')).toStdString() + "|";
        }
    };
    Open(ScreenId::Form2);
    ExpectQuestion(ScreenId::Form2, QMessageBox::Yes);
    robot.ExpectPrintDialog(Print::Cancel);
    robot.Choose("imprimir");
    EXPECT_THAT(captions, ::testing::HasSubstr("Cancelar|"));
}

TEST_F(PrintTest, NoPrinterAtAllIsPassedOverWhateverTheDialogsAnswer) {
    host.make_printer = [this] {
        ++printers;
        return std::make_unique<QPrinter>(QPrinter::HighResolution);
    };
    const bool has_dialog = HasPrintDialog(QPrinter(QPrinter::HighResolution));
    Open(ScreenId::Form2);
    for (const Print answer : {Print::Cancel, Print::Accept}) {
        ExpectQuestion(ScreenId::Form2, QMessageBox::Yes);
        if (has_dialog) {
            robot.ExpectPrintDialog(answer);
        } else {
            robot.ExpectBox(BoxOf("No hay ninguna impresora.", MsgBoxStyle::Ok));
        }
        robot.Choose("imprimir");
        EXPECT_EQ(robot.ScreenName(), "Form2");
    }
    EXPECT_EQ(printers, 2);
    robot.Type("Text1(4)", "a");
    EXPECT_EQ(robot.Text("Text1(4)"), "a");
}

/// Not all of a grey page is grey, but its letters are.
bool HasRed(const QImage& page) {
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            const QColor color = page.pixelColor(x, y);
            if (color.red() > 200 && color.green() < 80 && color.blue() < 80) return true;
        }
    }
    return false;
}

TEST_F(PrintTest, ThePageHasTheScreensColoursAndLiesAcrossWhateverThePrinterIsSetTo) {
    const QString painter = QStandardPaths::findExecutable(QStringLiteral("pdftoppm"));
    if (painter.isEmpty()) GTEST_SKIP() << "no pdftoppm";
    host.make_printer = [this, make = host.make_printer] {
        auto printer = make();
        printer->setColorMode(QPrinter::GrayScale);
        return printer;
    };
    Open(ScreenId::Form2);
    ExpectQuestion(ScreenId::Form2, QMessageBox::Yes);
    robot.ExpectPrintDialog(Print::Cancel);
    robot.Choose("imprimir");
    const QString drawn = folder.filePath(QStringLiteral("page"));
    ASSERT_EQ(QProcess::execute(painter, {QStringLiteral("-singlefile"), ToQt(Page()), drawn}), 0);
    const QImage page(drawn + QStringLiteral(".ppm"));
    ASSERT_FALSE(page.isNull());
    EXPECT_TRUE(HasRed(page));  // the letters of the one field that is required
    EXPECT_GT(page.width(), page.height());
}

TEST_F(PrintTest, ThePageHoldsTheScreensTextsAndNotTheMenu) {
    const QString reader = QStandardPaths::findExecutable(QStringLiteral("pdftotext"));
    if (reader.isEmpty()) GTEST_SKIP() << "no pdftotext";
    Open(ScreenId::Form2);
    robot.Type("Text1(4)", "Gran Vía 1");
    ExpectQuestion(ScreenId::Form2, QMessageBox::Yes);
    robot.ExpectPrintDialog(Print::Cancel);
    robot.Choose("imprimir");
    QProcess process;
    process.start(reader, {QStringLiteral("-layout"), ToQt(Page()), QStringLiteral("-")});
    ASSERT_TRUE(process.waitForFinished());
    const std::string text = process.readAllStandardOutput().toStdString();
    EXPECT_THAT(text, ::testing::HasSubstr("Datos de la Empresa"));
    EXPECT_THAT(text, ::testing::HasSubstr("Gran Vía 1"));
    EXPECT_THAT(text, ::testing::HasSubstr("Responsable de la empresa"));
    EXPECT_THAT(text, ::testing::Not(::testing::HasSubstr("Imprimir")));
}

}  // namespace
}  // namespace velmora::test
