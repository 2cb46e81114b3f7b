// A whole evaluation of one day, from an empty start to the final table, by keys and clicks alone.
// The figures of the sheet are those of the worked day of toluene, xylene and ethylbenzene.

#include <QAction>

#include <map>

#include "qt/window_test.h"

namespace velmora::test {
namespace {

class WorkedDayTest : public WindowTest {
protected:
    void FixThePlan() {
        robot.Choose("Nuevaempresa");
        robot.Retype("Text1(1)", "Pinturas del Norte");
        robot.Choose("continuar", "datosiniciales");
        robot.Pick("Combo1(0)", "1");
        robot.Pick("Combo1(1)", "1");
        robot.Press("Command1");
        int list = 2;
        for (const char* const item : {"1", "1", "8", "0", "3", "3"}) {
            robot.Pick(Indexed("Combo1", list++), item);
        }
        robot.Press("Command2");
        EXPECT_EQ(Texts("Text1", 0, 5), (std::vector<std::string>{"1", "1", "8", "0", "3", "3"}));
        robot.Choose("continuar", "contaminantes");
    }

    void EnterTheContaminants() {
        struct Agent {
            const char* name;
            const char* ed;
            const char* ec;
            const char* mark;
        };
        robot.Pick("Combo1", "1");
        int row = 0;
        for (const Agent& agent :
             {Agent{"tolueno", "192", "384", "0"}, Agent{"xileno", "221", "442", "1"},
              Agent{"etilbenceno", "442", "884", "1"}}) {
            robot.Type(Indexed("Text1", 5 * row + 1), agent.name);
            robot.Type(Indexed("Text1", 5 * row + 2), agent.ed);
            robot.Type(Indexed("Text1", 5 * row + 3), agent.ec);
            robot.DoubleClick(Indexed("Text3", row));
            robot.DoubleClick(Indexed("Text3", row));  // 30, then 15
            robot.Type(Indexed("Text1", 5 * row + 4), agent.mark);
            robot.Pick(Indexed("Combo13", row), "mg/m3");
            ++row;
        }
        robot.Press("Command1");
        robot.Choose("continuar", "pagina5");
    }

    /// Samples typed with the Tab key from cell to cell, as one types a day.
    void TypeTheSamples() {
        robot.Choose("introducirdatos", "introprimero");
        robot.Click("Text1(7)");
        const std::vector<std::vector<std::string>> rows = {{"120", "95", "150", "110", "", ""},
                                                            {"30", "45", "20", "35", "", ""},
                                                            {"15", "25", "10", "20", "", ""}};
        for (const auto& row : rows) {
            for (const std::string& sample : row) {
                for (const char digit : sample) robot.Key(static_cast<Qt::Key>(digit));
                robot.Key(Qt::Key_Tab);
            }
        }
    }

    void PressTheChain() {
        for (const char* const button : {"Command1", "Command4", "Command5", "Command8"}) {
            EXPECT_TRUE(robot.Visible(button) && robot.Enabled(button)) << button;
            robot.Press(button);
        }
    }

    /// Every cell of the sheet against the worked day; what isn't told is empty.
    void ExpectTheSheet() {
        // clang-format off
        const std::vector<std::vector<std::string>> rows = {
            {"1", "tolueno",     "192", "384", "mg/m3", "15", "0", "120", "95", "150", "110", "", "", "117.76", ".61", ".61",  "117.11", "1.21"},
            {"2", "xileno",      "221", "442", "mg/m3", "15", "1", "30",  "45", "20",  "35",  "", "", "32.77",  ".15", "0.19", "31.18",  "1.4"},
            {"3", "etilbenceno", "442", "884", "mg/m3", "15", "1", "15",  "25", "10",  "20",  "", "", "17.72",  ".04", "",     "16.55",  "1.49"},
        };
        const std::vector<std::vector<std::string>> short_exposure = {
            {"384",              "117.11",           "1.21",             "0.001"},
            {"536.069661301946", "47.7472786976975", "1.43136286612149", "0.001"},
            {"",                 "",                 "",                 ""},
        };
        // clang-format on
        for (int row = 0; row < 18; ++row) {
            std::vector<std::string> cells(18);
            if (row < 3) {
                cells = rows.at(static_cast<std::size_t>(row));
            } else {
                cells[16] = cells[17] = ".";  // MG and GSD of no contaminant: 0 with two decimals
            }
            EXPECT_EQ(Texts("Text1", 18 * row, 18 * row + 17), cells) << "row " << row + 1;
            EXPECT_EQ(Texts("Text3", 4 * row, 4 * row + 3),
                      row < 3 ? short_exposure.at(static_cast<std::size_t>(row))
                              : std::vector<std::string>(4))
                << "row " << row + 1;
            EXPECT_EQ(robot.Visible(Indexed("Text1", 18 * row)), row < 3) << "row " << row + 1;
        }
    }

    void ExpectTheConclusions() {
        EXPECT_EQ(robot.Text("Text2"), "0.61");
        EXPECT_EQ(robot.Text("Text4"), "0.001");
        EXPECT_EQ(robot.Text("Text7"), "NO");
        EXPECT_EQ(robot.Text("Text5"), "DEBE PROCEDERSE A LA VALORACIÓN DE DOS DÍAS MÁS");
        EXPECT_EQ(robot.Text("Text6"),
                  " BAJA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS");
        for (const char* const control :
             {"Label1", "Label2", "Label4", "Text2", "Text4", "Text5", "Text6", "Text7"}) {
            EXPECT_TRUE(robot.Visible(control)) << control;
        }
    }
};

TEST_F(WorkedDayTest, FromAnEmptyStartToTheFinalTableByKeysAndClicks) {
    FixThePlan();
    EnterTheContaminants();
    TypeTheSamples();
    PressTheChain();
    ExpectTheSheet();
    ExpectTheConclusions();

    robot.Choose("introducirdatos", "introprimero");
    EXPECT_EQ(robot.Text("Text1(7)"), "");
    robot.Choose("recuperar", "recupprimerdia");
    ExpectTheSheet();
    ExpectTheConclusions();
    EXPECT_FALSE(robot.Visible("Command4"));

    robot.Choose("continuar", "resultadosfinales");
    robot.Press("Command1");
    // clang-format off
    const std::vector<std::vector<std::string>> table = {
        {"1", "tolueno",     "0.61", "----", "----", "----", "0.001", "----", "----"},
        {"2", "xileno",      "0.19", "----", "----", "----", "0.001", "----", "----"},
        {"3", "etilbenceno", "----", "----", "----", "----", "----",  "----", "----"},
        {"4", "----",        "----", "----", "----", "----", "----",  "----", "----"},
    };
    // clang-format on
    for (int row = 0; row < 4; ++row) {
        EXPECT_EQ(Texts("Text1", 9 * row, 9 * row + 8), table.at(static_cast<std::size_t>(row)));
        EXPECT_EQ(robot.Visible(Indexed("Text1", 9 * row)), row < 3);
    }
}

}  // namespace
}  // namespace velmora::test
