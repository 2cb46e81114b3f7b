// Help where the question arises: the guide by F1, the tool tips of headings, the table to copy.

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <array>
#include <map>

#include "capture/form4.h"
#include "qt/text.h"
#include "qt/window_test.h"
#include "support/browser.h"

namespace velmora::test {
namespace {

class GuideTest : public EachScreenTest {
protected:
    GuideTest() {
        host.find_guide = [] { return QStringLiteral(VELMORA_GUIDE); };
    }

    Browser browser;
};

/// The guide's own headings of the six screens.
constexpr std::array<const char*, 6> kHeadings = {
    "Inicio",   "Datos de la empresa", "Datos iniciales: jornadas y tareas", "Contaminantes",
    "Cálculos", "Resultado final"};

TEST_P(GuideTest, F1OpensItAtTheSectionOfTheScreen) {
    robot.Key(Qt::Key_F1);
    ASSERT_EQ(browser.opened.size(), 1);
    const QUrl url = browser.opened.front();
    EXPECT_EQ(url.toLocalFile(), QStringLiteral(VELMORA_GUIDE));

    QFile page(url.toLocalFile());
    ASSERT_TRUE(page.open(QFile::ReadOnly)) << "the guide's page is made with the tests";
    const char* const name = kHeadings.at(static_cast<std::size_t>(GetParam()) - 1);
    const QString heading = QStringLiteral("<h3 id=\"%1\">%2</h3>")
                                .arg(url.fragment(QUrl::FullyDecoded), QString::fromUtf8(name));
    EXPECT_TRUE(QString::fromUtf8(page.readAll()).contains(heading)) << heading.toStdString();
}

TEST_P(GuideTest, AMissingGuideIsSaid) {
    host.find_guide = [] { return QString(); };
    robot.ExpectBox(BoxOf("No se encuentra la guía.", MsgBoxStyle::Ok));
    robot.Key(Qt::Key_F1);
    EXPECT_TRUE(browser.opened.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(OnTheWindow, GuideTest, ::testing::ValuesIn(kScreens),
                         [](const auto& test) { return NameOf(test.param); });

using GuideMissingTest = WindowTest;

TEST_F(GuideMissingTest, BehindItsBoxAScreenReaderRunsNoEntry) {
    host.find_guide = [] { return QString(); };
    robot.on_modal = [&](QDialog&) {
        auto* const entry = QAccessible::queryAccessibleInterface(&Action("Nuevaempresa"));
        entry->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCoreApplication::processEvents();
        EXPECT_EQ(robot.ScreenName(), "Form1");
    };
    robot.ExpectBox(BoxOf("No se encuentra la guía.", MsgBoxStyle::Ok));
    robot.Key(Qt::Key_F1);
    EXPECT_EQ(robot.ScreenName(), "Form1");
}

TEST(GuidePlaces, TheInstalledPageComesBeforeThatOfTheTree) {
    const QTemporaryDir root;
    const auto make = [&](const QString& file) {
        const QString path = QDir(root.path()).canonicalPath() + u'/' + file;
        QDir().mkpath(QFileInfo(path).path());
        EXPECT_TRUE(QFile(path).open(QFile::WriteOnly));
        return path;
    };
    make(QStringLiteral("libexec/velmora/velmora"));
    const QString program = root.filePath(QStringLiteral("libexec/velmora"));
    EXPECT_EQ(GuideFor(program), QString());
    const QString installed = make(QStringLiteral("share/doc/velmora/guia.html"));
    EXPECT_EQ(GuideFor(program), installed);

    make(QStringLiteral("tree/build/release/velmora"));
    const QString built = root.filePath(QStringLiteral("tree/build/release"));
    const QString text = make(QStringLiteral("tree/docs/guia.md"));
    EXPECT_EQ(GuideFor(built), text);
    const QString page = make(QStringLiteral("tree/build/release/packaging/guia.html"));
    EXPECT_EQ(GuideFor(built), page);

    make(QStringLiteral("far/from/zip/programa/velmora.exe"));
    const QString unpacked = make(QStringLiteral("far/from/zip/guia.html"));
    EXPECT_EQ(GuideFor(root.filePath(QStringLiteral("far/from/zip"))), unpacked);
    EXPECT_EQ(GuideFor(root.filePath(QStringLiteral("far/from/zip/programa"))), unpacked);
}

class HelpTest : public WindowTest {
protected:
    /// Opens a cell's context menu and takes its last entry.
    void TakeLastEntry(std::string_view cell) {
        robot.Act("copying the table", [&] {
            QWidget& widget = robot.Find(cell);
            const QPoint middle = widget.rect().center();
            QContextMenuEvent event(QContextMenuEvent::Mouse, middle, widget.mapToGlobal(middle));
            QCoreApplication::sendEvent(&widget, &event);
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            ASSERT_EQ(menu->actions().back()->text(), QStringLiteral("Copiar toda la tabla"));
            menu->actions().back()->trigger();
            menu->close();
        });
    }

    static std::string Copied() { return QApplication::clipboard()->text().toStdString(); }
};

TEST_F(HelpTest, EachHeadingThatNeedsASentenceHasOne) {
    const std::map<ScreenId, std::vector<std::string>> headings = {
        {ScreenId::Form4, {"TM", "Adit."}},
        {ScreenId::Form5,
         {"T.M.", "A+", "MMP", "Indice", "Indic.+", "MG", "GSD", "EC+", "MG+", "GSD+", "Prob."}},
        {ScreenId::Form6, {"I1", "I2", "I3", "IG", "P1", "P2", "P3"}}};
    for (const auto& [screen, captions] : headings) {
        Open(screen);
        for (const std::string& caption : captions) {
            int found = 0;
            for (const Control& control : chain.Current().Controls()) {
                if (!std::holds_alternative<Label*>(control.state)) continue;
                if (control.row.text != caption) continue;
                ++found;
                const QString tip = robot.Find(control.name).toolTip();
                EXPECT_GT(tip.size(), 20) << control.name;
                EXPECT_TRUE(tip.endsWith(u'.')) << control.name;
            }
            EXPECT_EQ(found, screen == ScreenId::Form5 ? 3 : 1) << caption;
        }
    }
}

TEST_F(HelpTest, TheCellsOfSamplingTimesTellHowTheyChange) {
    Open(ScreenId::Form4);
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(robot.Find(Indexed("Text3", i)).toolTip(),
                  QStringLiteral("Un doble clic, o F2, pone 30; otro, 15."));
    }
}

TEST_F(HelpTest, TheContaminantsAreCopiedWithTheirHeadings) {
    OpenRows(2);
    robot.Press("Command3");
    window.Run([this] { Current<Form4>().Text1(1).Text = "uno\tdos"; });
    TakeLastEntry("Text1(6)");
    EXPECT_EQ(Copied(),
              "Nº\tNombre del contaminante\tVLA-ED\tVLA-EC\tTM\tAdit.\tUnidades\n"
              "1\tuno dos\t100\t200\t15\t0\tppm\n"
              "2\tagente\t100\t200\t15\t0\tppm\n");
}

TEST_F(HelpTest, TheSheetIsCopiedTaskByTask) {
    OpenSheet(1, 2, 1);
    robot.Type("Text1(7)", "12.5");
    TakeLastEntry("Text1(8)");
    const std::string headings =
        "Nº\tContaminante\tED\tEC\tUnid.\tT.M.\tA+\tC1\tC2\tC3\tC4\tC5\tC6\t"
        "MMP\tIndice\tIndic.+\tMG\tGSD\tEC+\tMG+\tGSD+\tProb.\n";
    const std::string plan = "1\tagente\t100\t200\tppm\t15\t0\t";
    EXPECT_EQ(Copied(), "Datos  relativos a la 1ª tarea\n" + headings + plan + "12.5" +
                            std::string(14, '\t') + "\n" + "Datos relativos a la 2ª tarea\n" +
                            headings + plan + std::string(14, '\t') + "\n");
}

TEST_F(HelpTest, TheFinalTableIsCopiedFromAFreeCellToo) {
    SetPlan(1, 1, 1);
    record.HojaFinal(1, 2) = "tolueno";
    record.HojaFinal(1, 3) = "0.61";
    Open(ScreenId::Form6);
    robot.Press("Command1");
    TakeLastEntry("Text1(1)");
    EXPECT_EQ(Copied(),
              "Nº\tNombre del contaminante\tI1\tI2\tI3\tIG\tP1\tP2\tP3\n"
              "Primera Jornada\n"
              "1\ttolueno\t0.61\t----\t----\t----\t----\t----\t----\n");
}

}  // namespace
}  // namespace velmora::test
