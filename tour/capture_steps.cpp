#include <optional>
#include <string>

#include "forms/screen.h"
#include "hurry.h"
#include "steps.h"
#include "support/messages.h"

namespace velmora::tour {

namespace {

std::string Text1(int index) { return Indexed("Text1", index); }
std::string Combo1(int index) { return Indexed("Combo1", index); }

/// Picks the item unless the list shows it already.
void PickIfOther(Robot& robot, const std::string& list, std::string_view item) {
    if (robot.Text(list) != item) robot.Pick(list, item);
}

/// The entry row of the plan, for one task of one day, and its line of the grid.
void EnterLine(const Road& road, int day, int task, int tasks, int agents) {
    const Task& plan = kPlan.at(static_cast<std::size_t>(task));
    const std::array<std::string, 6> line = {
        std::to_string(day + 1),
        std::to_string(task + 1),
        std::string(kHours.at(static_cast<std::size_t>(day)).at(static_cast<std::size_t>(task))),
        std::to_string(CountSampledFor(30, plan, agents)),
        std::to_string(CountSampledFor(15, plan, agents)),
        std::to_string(agents)};
    for (int i = 0; i < 6; ++i) {
        PickIfOther(road.robot, Combo1(i + 2), line.at(static_cast<std::size_t>(i)));
    }
    road.robot.Press("Command2");
    const int row = day * tasks + task;
    for (int i = 0; i < 6; ++i) {
        road.guide.CheckQuietly("plan, fila " + std::to_string(row + 1),
                                road.robot.Text(Text1(6 * row + i)),
                                line.at(static_cast<std::size_t>(i)));
    }
}

/// The question on leaving a plan that lacks data, answered No.
void TryToLeaveIncompletePlan(const Road& road) {
    road.guide.Say("Faltan líneas por introducir: el programa pregunta antes de seguir (No)");
    road.robot.ExpectBox({.text = messages::kIncompletePlan,
                          .answer = QMessageBox::No,
                          .icon = QMessageBox::Information,
                          .buttons = QMessageBox::Yes | QMessageBox::No,
                          .preset = QMessageBox::No});
    road.robot.Choose("continuar", "contaminantes");
}

void EnterAgent(Robot& robot, const Agent& agent, int row) {
    robot.Type(Text1(5 * row + 1), agent.name);
    robot.Type(Text1(5 * row + 2), agent.daily_limit);
    robot.Type(Text1(5 * row + 3), agent.short_limit);
    robot.Type(Text1(5 * row + 4), agent.group);
    // The first double-click gives 30, the next one 15.
    const std::string minutes = Indexed("Text3", row);
    robot.DoubleClick(minutes);
    if (agent.sampling_minutes == 15) robot.DoubleClick(minutes);
    robot.Pick(Indexed("Combo13", row), agent.unit);
}

void CompareAgent(const Road& road, const Agent& agent, int row) {
    const std::array<std::pair<std::string, std::string>, 6> cells = {{
        {Text1(5 * row + 1), std::string(agent.name)},
        {Text1(5 * row + 2), std::string(agent.daily_limit)},
        {Text1(5 * row + 3), std::string(agent.short_limit)},
        {Indexed("Text3", row), std::to_string(agent.sampling_minutes)},
        {Text1(5 * row + 4), std::string(agent.group)},
        {Indexed("Combo13", row), std::string(agent.unit)},
    }};
    for (const auto& [cell, expected] : cells) {
        road.guide.CheckQuietly(agent.name, road.robot.Text(cell), expected);
    }
}

}  // namespace

void Start(const Road& road) {
    road.guide.Title("Inicio");
    road.guide.Picture(road.robot, "inicio");
    road.guide.Say("Se pulsa Iniciar");
    road.robot.Choose("Nuevaempresa");
}

void EnterCompany(const Road& road, const Company& company) {
    Robot& robot = road.robot;
    road.guide.Title("Datos de la empresa");
    road.guide.Say("Sin el nombre de la empresa no se puede continuar");
    robot.Retype(Text1(1), "");
    robot.ExpectBox({.text = messages::kNoName});
    robot.Choose("continuar", "datosiniciales");
    road.guide.Say("Se escriben los diecinueve campos");
    for (int i = 1; i <= 19; ++i) {
        std::optional<Hurry> hurry;
        if (i > 1) hurry.emplace(robot);
        robot.Retype(Text1(i), company.at(static_cast<std::size_t>(i - 1)));
    }
    road.guide.Picture(robot, "empresa");
    robot.Choose("continuar", "datosiniciales");
}

void EnterPlan(const Road& road, int days, int tasks, int agents) {
    Robot& robot = road.robot;
    road.guide.Title("Plan de jornadas y tareas");
    road.guide.Picture(robot, "plan-vacio");
    road.guide.Say("Jornadas: " + std::to_string(days) + ", tareas: " + std::to_string(tasks) +
                   ", contaminantes en cada tarea: " + std::to_string(agents));
    robot.Pick(Combo1(0), std::to_string(days));
    robot.Pick(Combo1(1), std::to_string(tasks));
    robot.Press("Command1");
    for (int day = 0; day < days; ++day) {
        for (int task = 0; task < tasks; ++task) {
            const bool first = day == 0 && task == 0;
            std::optional<Hurry> hurry;
            if (!first) hurry.emplace(robot);
            EnterLine(road, day, task, tasks, agents);
            if (first && tasks > 1) TryToLeaveIncompletePlan(road);
        }
    }
    road.guide.Picture(robot, "plan-completo");
    robot.Choose("continuar", "contaminantes");
}

void EnterContaminants(const Road& road, int tasks, int agents) {
    Robot& robot = road.robot;
    road.guide.Title("Contaminantes de cada tarea");
    road.guide.Picture(robot, "contaminantes-vacio");
    for (int task = 0; task < tasks; ++task) {
        const Task& plan = kPlan.at(static_cast<std::size_t>(task));
        const std::string number = std::to_string(task + 1);
        robot.Pick("Combo1", number);
        for (int row = 0; row < agents; ++row) {
            std::optional<Hurry> hurry;
            if (row > 0) hurry.emplace(robot);
            EnterAgent(robot, plan.at(static_cast<std::size_t>(row)), row);
        }
        robot.Press("Command1");
        // What was stored comes back.
        robot.Pick("Combo1", number);
        robot.Press("Command3");
        std::string names;
        for (int row = 0; row < agents; ++row) {
            const Agent& agent = plan.at(static_cast<std::size_t>(row));
            CompareAgent(road, agent, row);
            names.append(names.empty() ? "" : ", ").append(agent.name);
        }
        road.guide.Say(std::string("Tarea ").append(number).append(": ").append(names));
        road.guide.Picture(robot, "contaminantes-tarea-" + number);
    }
}

}  // namespace velmora::tour
