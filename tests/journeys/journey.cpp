#include "journeys/journey.h"

#include <QLineEdit>
#include <QPalette>

#include "forms/screen.h"
#include "support/menus.h"
#include "support/messages.h"

namespace velmora::journeys {

namespace {

constexpr int kRows = 18;

std::string CellOf(int row, int column) { return Indexed("Text1", 18 * row + column); }

}  // namespace

void Journey::EnterCompany() {
    robot.Choose("Nuevaempresa");
    for (int field = 1; field <= 19; ++field) {
        const std::string& text = expected.Company(field);
        if (text == "---" || text == " ") continue;  // left alone
        robot.Retype(Indexed("Text1", field), text);
    }
    robot.Choose("continuar", "datosiniciales");
    EXPECT_EQ(robot.ScreenName(), "Form3");
}

void Journey::FixPlan(int days, int tasks) {
    robot.Pick("Combo1(0)", std::to_string(days));
    robot.Pick("Combo1(1)", std::to_string(tasks));
    robot.Press("Command1");
    EXPECT_EQ(robot.Text("Command1"), " NO OPERATIVO");
    EXPECT_FALSE(robot.Enabled("Command1"));
    for (int row = 0; row < 9; ++row) {
        const bool in_use = row < days * tasks;
        EXPECT_EQ(robot.Visible(Indexed("Text1", 6 * row)), in_use) << "line " << row + 1;
        if (!in_use) continue;
        EXPECT_EQ(Texts("Text1", 6 * row, 6 * row + 5),
                  (std::vector<std::string>{std::to_string(row / tasks + 1),
                                            std::to_string(row % tasks + 1), "", "", "", ""}));
    }
}

void Journey::EnterLine(const PlanLine& line) {
    for (int i = 0; i < 6; ++i) {
        const std::string list = Indexed("Combo1", i + 2);
        const std::string& item = line.at(static_cast<std::size_t>(i));
        if (robot.Text(list) != item) robot.Pick(list, item);
    }
    robot.Press("Command2");
}

void Journey::EnterPlan() {
    const int days = expected.Days();
    const int tasks = expected.Tasks();
    FixPlan(days, tasks);
    for (int day = 1; day <= days; ++day) {
        for (int task = 1; task <= tasks; ++task) EnterLine(expected.PlanOf(day, task));
    }
    for (int row = 0; row < days * tasks; ++row) {
        const PlanLine line = expected.PlanOf(row / tasks + 1, row % tasks + 1);
        EXPECT_EQ(Texts("Text1", 6 * row, 6 * row + 5),
                  (std::vector<std::string>(line.begin(), line.end())));
    }
    robot.Choose("continuar", "contaminantes");
    EXPECT_EQ(robot.ScreenName(), "Form4");
}

void Journey::TypeAgent(int row, const Agent& agent) {
    robot.Type(Indexed("Text1", 5 * row + 1), agent.name);
    robot.Type(Indexed("Text1", 5 * row + 2), agent.daily_limit);
    robot.Type(Indexed("Text1", 5 * row + 3), agent.short_limit);
    robot.Type(Indexed("Text1", 5 * row + 4), agent.group);
    // The first double-click gives 30, the next one 15.
    const std::string minutes = Indexed("Text3", row);
    for (int click = 0; click < 2 && robot.Text(minutes) != agent.minutes; ++click) {
        robot.DoubleClick(minutes);
    }
    robot.Pick(Indexed("Combo13", row), agent.unit);
}

void Journey::TypeAgents(int task, int rows) {
    robot.Pick("Combo1", std::to_string(task));
    for (int row = 0; row < 6; ++row) {
        EXPECT_EQ(robot.Visible(Indexed("Text1", 5 * row)), row < rows) << "row " << row + 1;
    }
    for (int row = 0; row < rows; ++row) TypeAgent(row, expected.AgentOf(task, row + 1));
}

void Journey::EnterAgents() {
    for (int task = 1; task <= expected.Tasks(); ++task) {
        TypeAgents(task, expected.Agents(task));
        robot.Press("Command1");
        robot.Pick("Combo1", std::to_string(task));
        robot.Press("Command3");
        for (int row = 0; row < expected.Agents(task); ++row) {
            const Agent agent = expected.AgentOf(task, row + 1);
            std::vector<std::string> seen = Texts("Text1", 5 * row, 5 * row + 4);
            seen.push_back(robot.Text(Indexed("Text3", row)));
            seen.push_back(robot.Text(Indexed("Combo13", row)));
            EXPECT_EQ(seen, (std::vector<std::string>{std::to_string(row + 1), agent.name,
                                                      agent.daily_limit, agent.short_limit,
                                                      agent.group, agent.minutes, agent.unit}));
        }
    }
    robot.Choose("continuar", "pagina5");
    EXPECT_EQ(robot.ScreenName(), "Form5");
}

void Journey::EnterAll() {
    EnterCompany();
    EnterPlan();
    EnterAgents();
}

void Journey::TypeDay(int day) {
    robot.Choose("introducirdatos", EntryOf(kBeginDay, day));
    for (int number = 1; number <= 8; ++number) {
        EXPECT_EQ(robot.Visible("Command" + std::to_string(number)), number == 1) << number;
    }
    for (int task = 1; task <= expected.Tasks(); ++task) {
        for (int place = 1; place <= expected.Rows(day, task); ++place) {
            int column = 7;
            for (const std::string& sample : expected.Samples(day, task, place)) {
                const std::string cell = CellOf(6 * (task - 1) + place - 1, column);
                if (column++ == 7) {
                    robot.Type(cell, sample);
                    continue;
                }
                robot.Key(Qt::Key_Tab);
                ASSERT_EQ(robot.Focused(), cell);
                robot.Type(sample);
            }
        }
    }
}

void Journey::PressChain() {
    std::vector<int> buttons;
    for (int task = 1; task <= expected.Tasks(); ++task) buttons.push_back(task);
    for (int task = 0; task <= expected.Tasks(); ++task) buttons.push_back(4 + task);
    buttons.push_back(8);
    for (const int number : buttons) {
        const std::string button = "Command" + std::to_string(number);
        ASSERT_TRUE(robot.Visible(button) && robot.Enabled(button)) << button;
        robot.Press(button);
    }
}

void Journey::ExpectDay(int day) {
    SCOPED_TRACE("day " + std::to_string(day));
    int entry = 1;
    for (int row = 0; row < kRows; ++row) {
        const bool shown = row / 6 < expected.Tasks() && row % 6 < expected.Rows(day, row / 6 + 1);
        for (int column = 0; column < 18; ++column) {
            const std::string cell = CellOf(row, column);
            EXPECT_EQ(robot.Text(cell), expected.Entry(day, entry++)) << cell;
            EXPECT_EQ(robot.Visible(cell), shown) << cell;
        }
    }
    for (int i = 0; i < 72; ++i) {
        EXPECT_EQ(robot.Text(Indexed("Text3", i)), expected.Entry(day, entry++)) << "Text3 " << i;
    }
    for (const char* const cell : {"Text2", "Text4", "Text5", "Text6", "Text7"}) {
        EXPECT_EQ(robot.Text(cell), expected.Entry(day, entry++)) << cell;
        EXPECT_TRUE(robot.Visible(cell)) << cell;
    }
}

void Journey::RecoverDay(int day) { robot.Choose("recuperar", EntryOf(kRecoverDay, day)); }

void Journey::ShowFinalTable() {
    robot.Choose("continuar", "resultadosfinales");
    robot.Press("Command1");
    for (int row = 1; row <= kRows; ++row) {
        std::vector<std::string> line = {std::to_string((row - 1) % 6 + 1)};
        for (int column = 2; column <= 9; ++column) {
            const std::string& text = expected.Final(row, column);
            line.push_back(text.empty() ? "----" : text);
        }
        EXPECT_EQ(Texts("Text1", 9 * row - 9, 9 * row - 1), line) << "row " << row;
        const int task = (row - 1) / 6 + 1;
        EXPECT_EQ(robot.Visible(Indexed("Text1", 9 * row - 9)),
                  task <= expected.Tasks() && (row - 1) % 6 < expected.Agents(task))
            << "row " << row;
    }
}

void Journey::Save(const std::string& path) {
    robot.ExpectFileDialog(path);
    robot.ExpectPrompt("no existe", QMessageBox::Yes);
    robot.Choose("guardararchivo");
}

void Journey::Restore(const std::string& path) {
    robot.ExpectFileDialog(path);
    robot.Choose("recuperardatos");
    for (int field = 1; field <= 19; ++field) {
        EXPECT_EQ(robot.Text(Indexed("Text1", field)), expected.Company(field));
    }
}

std::vector<std::string> Journey::Texts(std::string_view name, int first, int last) const {
    std::vector<std::string> texts;
    for (int i = first; i <= last; ++i) texts.push_back(robot.Text(Indexed(name, i)));
    return texts;
}

std::vector<std::string> Journey::Marked() const {
    std::vector<std::string> marked;
    for (int row = 0; row < kRows; ++row) {
        for (int column = 7; column <= 12; ++column) {
            const std::string cell = CellOf(row, column);
            const QColor back = robot.Find<QLineEdit>(cell).palette().color(QPalette::Base);
            if (back.green() != 0 || back.blue() != 0) continue;
            marked.push_back(cell + " red " + std::to_string(back.red()));
        }
    }
    return marked;
}

Robot::Box Refusal(std::string text) { return {.text = std::move(text)}; }

Robot::Box RestartQuestion(QMessageBox::StandardButton answer) {
    return BoxOf(messages::kRestart, MsgBoxStyle::YesNoQuestionNo, answer, "Aviso");
}

Robot::Box IncompletePlan(QMessageBox::StandardButton answer) {
    return BoxOf(messages::kIncompletePlan, MsgBoxStyle::YesNoInformationNo, answer);
}

}  // namespace velmora::journeys
