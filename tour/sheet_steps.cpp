#include <array>
#include <string>

#include "expected.h"
#include "forms/screen.h"
#include "hurry.h"
#include "steps.h"
#include "support/menus.h"

namespace velmora::tour {

namespace {

constexpr int kColumns = 18;      ///< of Text1
constexpr int kShortColumns = 4;  ///< of Text3
constexpr int kFirstSample = 7;   ///< column of C1
constexpr int kFirstResult = 13;  ///< column of MMP
constexpr int kResults = 5;       ///< MMP to GSD

std::string NameOf(int day) {
    constexpr std::array kNames = {"primer día", "segundo día", "tercer día"};
    return kNames.at(static_cast<std::size_t>(day));
}

std::string CellOf(int row, int column) { return Indexed("Text1", row * kColumns + column); }

/// Clicks into C1, then goes on from cell to cell with the Tab key.
void TypeRow(Robot& robot, int row, const Samples& samples) {
    robot.Type(CellOf(row, kFirstSample), samples.front());
    for (int sample = 1; sample < kSamples; ++sample) {
        const std::string_view value = samples.at(static_cast<std::size_t>(sample));
        if (value.empty()) return;
        robot.Key(Qt::Key_Tab);
        const std::string cell = CellOf(row, kFirstSample + sample);
        if (robot.Focused() != cell) throw std::runtime_error("Tab doesn't reach " + cell);
        robot.Type(value);
    }
}

void TypeMeasurements(const Road& road, int day) {
    const Hurry hurry(road.robot);
    const auto& tasks = kMeasurements.at(static_cast<std::size_t>(day));
    int row = 0;
    for (const TaskSamples& task : tasks) {
        for (const Samples& samples : task) TypeRow(road.robot, row++, samples);
    }
}

void CompareConclusions(const Road& road, const Conclusions& expected) {
    const Robot& robot = road.robot;
    road.guide.Check("Mayor índice", robot.Text("Text2"), expected.index);
    road.guide.Check("Mayor probabilidad", robot.Text("Text4"), expected.probability);
    road.guide.Check("¿Superado 3 x VLA-ED o VLA-EC?", robot.Text("Text7"), expected.over);
    road.guide.Check("Sobre el índice", robot.Text("Text5"), expected.index_verdict);
    road.guide.Check("Sobre la probabilidad", robot.Text("Text6"), expected.probability_verdict);
}

/// Every cell of the sheet, shown or not, against the slot of its day.
void CompareWithSlot(const Road& road, const DaySheet& slot) {
    const auto compare = [&](const std::string& cell, int entry) {
        road.guide.CheckQuietly("hoja recuperada, " + cell, road.robot.Text(cell), slot(entry));
    };
    constexpr int kMainCells = 324;
    constexpr int kShortCells = 72;
    for (int i = 0; i < kMainCells; ++i) compare(Indexed("Text1", i), i + 1);
    for (int i = 0; i < kShortCells; ++i) compare(Indexed("Text3", i), kMainCells + i + 1);
    int entry = kMainCells + kShortCells;
    for (const char* const cell : {"Text2", "Text4", "Text5", "Text6", "Text7"}) {
        compare(cell, ++entry);
    }
}

}  // namespace

void EvaluateDay(const Road& road, int day) {
    Robot& robot = road.robot;
    road.guide.Title("Hoja de cálculo del " + NameOf(day));
    robot.Choose("introducirdatos", EntryOf(kBeginDay, day + 1));
    road.guide.Say("Se escriben las mediciones, sin ratón salvo al empezar cada fila");
    TypeMeasurements(road, day);
    road.guide.Picture(robot, "hoja-mediciones-dia-" + std::to_string(day + 1));
    road.guide.Say("Se pulsan los botones uno tras otro: cada uno abre el siguiente");
    for (const char* const button : {"Command1", "Command2", "Command3", "Command4", "Command5",
                                     "Command6", "Command7", "Command8"}) {
        robot.Press(button);
    }
    road.guide.Picture(robot, "hoja-conclusiones-dia-" + std::to_string(day + 1));
    CompareConclusions(road, kConclusions.at(static_cast<std::size_t>(day)));
}

void CompareWorkedDay(const Road& road) {
    int row = 0;
    for (const WorkedRow& expected : kWorkedDay) {
        std::string line;
        for (int i = 0; i < static_cast<int>(expected.size()); ++i) {
            const std::string cell = i < kResults
                                         ? CellOf(row, kFirstResult + i)
                                         : Indexed("Text3", row * kShortColumns + i - kResults);
            const std::string seen = road.robot.Text(cell);
            road.guide.CheckQuietly("jornada de ejemplo, " + cell, seen,
                                    expected.at(static_cast<std::size_t>(i)));
            line.append("  ").append(seen.empty() ? "-" : seen);
        }
        road.guide.Say(road.robot.Text(CellOf(row, 1)) + ":" + line);
        ++row;
    }
}

void RecoverDay(const Road& road, int day) {
    road.guide.Say("Se recupera el " + NameOf(day));
    road.robot.Choose("recuperar", EntryOf(kRecoverDay, day + 1));
    CompareWithSlot(road, road.program.record.Hoja(day + 1));
    CompareConclusions(road, kConclusions.at(static_cast<std::size_t>(day)));
    road.guide.Picture(road.robot, "hoja-recuperada-dia-" + std::to_string(day + 1));
}

void RecoverFirstDay(const Road& road) {
    road.guide.Title("Recuperación de un día");
    road.guide.Say("Se sale de la hoja y se vuelve: aparece en blanco");
    road.robot.Choose("continuar", "contaminantes");
    road.robot.Choose("continuar", "pagina5");
    road.guide.Picture(road.robot, "hoja-en-blanco");
    RecoverDay(road, 0);
    CompareWorkedDay(road);
}

}  // namespace velmora::tour
