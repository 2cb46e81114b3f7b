// What a printed page says beside the screen's image: in the margin, and under the image.

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "capture/form2.h"
#include "capture/form4.h"
#include "qt/paper.h"
#include "qt/text.h"
#include "qt/window_test.h"
#include "sheet/form5.h"

namespace velmora::test {
namespace {

class PaperTest : public WindowTest {
protected:
    PaperTest() {
        host.make_printer = [this] {
            auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
            printer->setOutputFormat(QPrinter::PdfFormat);
            printer->setOutputFileName(Page());
            SetA4(*printer);
            return printer;
        };
    }

    void SetUp() override {
        for (const char* const tool : {"pdftotext", "pdfinfo", "pdftoppm"}) {
            if (QStandardPaths::findExecutable(QLatin1String(tool)).isEmpty()) {
                GTEST_SKIP() << "no " << tool;
            }
        }
    }

    QString Page() const { return folder.filePath(QStringLiteral("page.pdf")); }

    /// As the print dialog is opened with it.
    static void SetA4(QPrinter& printer) {
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setPageOrientation(QPageLayout::Landscape);
        printer.setPageMargins({10, 10, 10, 10}, QPageLayout::Millimeter);
    }

    /// Prints the screen, as `imprimir` does after its dialog.
    void Print() {
        window.Run([this] { host.PrintForm(); });
    }

    static QByteArray Run(const char* tool, const QStringList& arguments) {
        QProcess process;
        process.start(QLatin1String(tool), arguments);
        EXPECT_TRUE(process.waitForFinished());
        return process.readAllStandardOutput();
    }
    std::string Text() const {
        return QString::fromUtf8(
                   Run("pdftotext", {QStringLiteral("-layout"), Page(), QStringLiteral("-")}))
            .simplified()
            .toStdString();
    }
    std::string Information() const { return Run("pdfinfo", {Page()}).toStdString(); }
    /// The page at 100 dots an inch.
    QImage Look() const {
        return QImage::fromData(
            Run("pdftoppm", {QStringLiteral("-r"), QStringLiteral("100"), Page()}));
    }

    /// A sheet of one row whose EC+ has more digits than its cell shows.
    void OpenSheetWithACutResult() {
        auto& form5 = OpenSheet(1, 1, 1);
        form5.Text3(0).Text = "536.069661301946";  // of the worked day
        window.ShowChanges();
    }

    QTemporaryDir folder;
};

TEST_F(PaperTest, ItSaysWhoseItIsWhatItShowsAndWhatMadeIt) {
    record.DatosEmpresa(1) = "Pinturas del Norte, S.A.";
    record.DatosEmpresa(19) = "HI-27/3";
    OpenSheetWithACutResult();
    Print();
    const std::string text = Text();
    EXPECT_THAT(text, HasSubstr("Empresa: Pinturas del Norte, S.A."));
    EXPECT_THAT(text, HasSubstr("Código de evaluación: HI-27/3"));
    EXPECT_THAT(text, HasSubstr("Velmora / h5 CÁLCULOS Y RESULTADOS: PRIMER DIA"));
    EXPECT_THAT(text, HasSubstr("Velmora 1.0.0 "));
    EXPECT_THAT(text, ::testing::ContainsRegex("[0-3][0-9]/[01][0-9]/20[0-9][0-9] "
                                               "[0-2][0-9]:[0-5][0-9]:[0-5][0-9]"));
}

TEST_F(PaperTest, OnTheCompanysScreenItSaysWhatStandsInItsBoxes) {
    record.DatosEmpresa(1) = "Otra";
    Open(ScreenId::Form2);
    robot.Retype("Text1(1)", "Pinturas del Norte, S.A.");
    robot.Type("Text1(19)", "HI-27/3");
    Print();
    EXPECT_THAT(Text(), HasSubstr("Empresa: Pinturas del Norte, S.A."));
    EXPECT_THAT(Text(), HasSubstr("Código de evaluación: HI-27/3"));
    EXPECT_THAT(Text(), Not(HasSubstr("Otra")));
}

TEST_F(PaperTest, TheDocumentBearsATitle) {
    record.DatosEmpresa(1) = "Pinturas del Norte, S.A.";
    Open(ScreenId::Form6);
    Print();
    EXPECT_THAT(Information(),
                ::testing::ContainsRegex("Title: +Velmora / h6 - Pinturas del Norte, S.A.\n"));
}

TEST_F(PaperTest, ACutTextStandsInFullUnderTheImage) {
    OpenSheetWithACutResult();
    Print();
    EXPECT_THAT(Text(), HasSubstr("Textos completos: Tarea 1, contaminante 1, límite de corta "
                                  "exposición EC+: 536.069661301946"));
}

TEST_F(PaperTest, ACutTextOfAListStandsInFullUnderTheImage) {
    SetPlan(1, 1, 1);
    record.Unidades(1, 1) = "microgramos por metro cubico";
    auto& form4 = Open<Form4>(ScreenId::Form4);
    robot.Pick("Combo1", "1");
    robot.Press("Command3");
    ASSERT_EQ(form4.Combo13(0).Text, record.Unidades(1, 1));
    Print();
    EXPECT_THAT(Text(), HasSubstr("unidad: microgramos por metro cubico"));
}

TEST_F(PaperTest, AFigureUnderTheImageIsNotBrokenAtTheEndOfALine) {
    auto& form5 = OpenSheet(1, 1, 6);
    const std::string figure = "536.069661301946";
    for (int i = 0; i < 36; ++i) form5.Text1(i).Text = figure;
    window.ShowChanges();
    Print();
    std::string notes = Text();
    notes.erase(0, notes.find("Textos completos"));
    std::size_t whole = 0;
    for (auto at = notes.find(figure); at != std::string::npos; at = notes.find(figure, at + 1))
        ++whole;
    EXPECT_EQ(whole, window.CutTexts().size());
}

TEST_F(PaperTest, WithoutACutTextNothingStandsUnderTheImage) {
    OpenSheet(1, 1, 1);
    Print();
    EXPECT_THAT(Text(), Not(HasSubstr("Textos completos")));
}

TEST_F(PaperTest, TheImprintLeavesTheImageWhereItWas) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(Page());
    SetA4(printer);
    const Imprint imprint{
        QStringLiteral("Empresa"), QStringLiteral("1"),
        QStringLiteral("h5"),      QStringLiteral("Velmora"),
        QStringLiteral("hoy"),     {QStringLiteral("una celda: 536.069661301946")}};
    QPainter painter(&printer);
    const double millimetre = printer.resolution() / 25.4;
    const QRectF image = PaintImprint(painter, printer, imprint, 297.0 / 210);
    // 190 mm high and 268.7 wide, in the middle of the 277 mm: worked by hand. A margin's width is
    // rounded to whole points, so a millimetre of slack.
    EXPECT_NEAR(image.height() / millimetre, 190, 1);
    EXPECT_NEAR(image.left() / millimetre, 4.15, 1);
    EXPECT_NEAR(image.top() / millimetre, 0, 1);
}

TEST_F(PaperTest, AnEndlessTextIsBoundedAndToldWithItsLength) {
    record.DatosEmpresa(1) = std::string(1'000'000, 'x');
    OpenSheetWithACutResult();
    Print();
    const std::string text = Text();
    EXPECT_THAT(Information(), ::testing::ContainsRegex("Pages: +1\n"));
    EXPECT_LT(text.size(), 20'000U);
    EXPECT_THAT(text, HasSubstr("caracteres)"));
    EXPECT_THAT(text, HasSubstr("EC+: 536.069661301946"));
}

TEST_F(PaperTest, WhatDoesNotFitUnderTheImageIsCounted) {
    auto& form5 = OpenSheet(3, 3, 6);
    for (int i = 0; i < 324; ++i) form5.Text1(i).Text = std::string(200, 'W');
    window.ShowChanges();
    Print();
    EXPECT_THAT(Text(), ::testing::ContainsRegex("y [0-9]+ más que no caben"));
    EXPECT_THAT(Information(), ::testing::ContainsRegex("Pages: +1\n"));
}

TEST_F(PaperTest, NothingStandsInTheOuterFourMillimetres) {
    record.DatosEmpresa(1) = std::string(300, 'N');
    record.DatosEmpresa(19) = std::string(300, 'M');
    OpenSheetWithACutResult();
    Print();
    const QImage page = Look();
    constexpr int kMargin = 16;  // dots: four millimetres
    for (int x = 0; x < page.width(); ++x) {
        for (int y = 0; y < kMargin; ++y) {
            ASSERT_EQ(page.pixelColor(x, y).lightness(), 255) << x << "," << y;
            ASSERT_EQ(page.pixelColor(x, page.height() - 1 - y).lightness(), 255) << x << "," << y;
        }
    }
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < kMargin; ++x) {
            ASSERT_EQ(page.pixelColor(x, y).lightness(), 255) << x << "," << y;
            ASSERT_EQ(page.pixelColor(page.width() - 1 - x, y).lightness(), 255) << x << "," << y;
        }
    }
}

}  // namespace
}  // namespace velmora::test
