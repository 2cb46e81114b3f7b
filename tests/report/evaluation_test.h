#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "report/report.h"
#include "store/evaluation_file.h"
#include "support/menus.h"
#include "support/messages.h"
#include "support/velmora_test.h"

namespace velmora::test {

using report::Finding;
using report::FindingKind;
using report::Report;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;

using Samples = std::vector<std::string_view>;

/// A contaminant as it is typed on its screen.
struct TypedAgent {
    std::string_view name;
    std::string_view vla_ed;
    std::string_view vla_ec = "0";
    int minutes = 15;
    std::string_view group = "0";
};

/// Makes evaluations as a user does, on the six screens without their toolkit, and reads the report
/// of the file that was saved.
class EvaluationTest : public VelmoraTest {
protected:
    EvaluationTest() {
        const char* const folder = std::getenv("TEST_TMPDIR");
        file_ = std::filesystem::path(folder != nullptr ? folder : ::testing::TempDir()) /
                (std::string("velmora_report_") +
                 ::testing::UnitTest::GetInstance()->current_test_info()->name() + ".doc");
    }
    ~EvaluationTest() override { std::filesystem::remove(file_); }

    /// Wipes a cell of numbers with a backspace, then types; what the filter refuses doesn't
    /// arrive.
    void Type(const std::string& cell, std::string_view text) {
        VelmoraTest::Type(cell, "\b" + std::string(text));
    }

    /// Days and tasks of the plan, on its screen.
    void FixPlan(std::string_view days, std::string_view tasks) {
        chain.Settle();
        chain.Go(ScreenId::Form3);
        if (record.NumJornadas != 0) {
            host.ExpectBox(std::string(messages::kRestart), MsgBoxStyle::YesNoQuestionNo,
                           MsgBoxAnswer::Yes, "Aviso");
        }
        Pick("Combo1(0)", days);
        Pick("Combo1(1)", tasks);
        Press("Command1");
    }

    /// One line of the plan: hours, contaminants with samples of 15 minutes.
    void PlanLine(int day, int task, int hours, int of15, int contaminants) {
        chain.Settle();
        chain.Go(ScreenId::Form3);
        const std::array values = {day, task, hours, contaminants - of15, of15, contaminants};
        int list = 2;
        for (const int value : values) {
            Pick(Indexed("Combo1", list++), TextoEntero(value));
        }
        Press("Command2");
    }

    /// The contaminants of a task, on their screen.
    void TypeAgents(int task, const std::vector<TypedAgent>& agents) {
        chain.Settle();
        chain.Go(ScreenId::Form4);
        Pick("Combo1", TextoEntero(task));
        for (int i = 0; i < static_cast<int>(agents.size()); ++i) {
            const TypedAgent& agent = agents.at(static_cast<std::size_t>(i));
            Type(Indexed("Text1", 5 * i + 1), agent.name);
            Type(Indexed("Text1", 5 * i + 2), agent.vla_ed);
            Type(Indexed("Text1", 5 * i + 3), agent.vla_ec);
            Type(Indexed("Text1", 5 * i + 4), agent.group);
            for (int minutes = 30; minutes >= agent.minutes; minutes -= 15) {
                DoubleClick(Indexed("Text3", i));
            }
            Pick(Indexed("Combo13", i), "mg/m3");
        }
        Press("Command1");
    }

    /// A plan of one task of eight hours on each day, with these contaminants.
    void PlanOneTask(int days, const std::vector<TypedAgent>& agents) {
        FixPlan(TextoEntero(days), "1");
        const auto count = static_cast<int>(agents.size());
        for (int day = 1; day <= days; ++day) PlanLine(day, 1, 8, count, count);
        TypeAgents(1, agents);
    }

    void OpenDay(std::string_view entry) {
        chain.Settle();
        chain.Go(ScreenId::Form5);
        Choose(entry);
    }
    void NewDay(int day) { OpenDay(EntryOf(kBeginDay, day)); }
    void RecoverDay(int day) { OpenDay(EntryOf(kRecoverDay, day)); }

    static std::string CellName(int row, int column) {
        return Indexed("Text1", (row - 1) * 18 + column);
    }
    void TypeSamples(int row, const Samples& samples) {
        int column = 7;
        for (const std::string_view sample : samples) Type(CellName(row, column++), sample);
    }

    /// The buttons of a day up to its conclusions.
    void PressAll() {
        const int tasks = record.NumTareas.Value();
        for (int task = 1; task <= tasks; ++task) Press("Command" + TextoEntero(task));
        Press("Command4");
        for (int task = 1; task <= tasks; ++task) Press("Command" + TextoEntero(4 + task));
        Press("Command8");
    }

    /// A whole day: the samples of its rows from the first one on of each task.
    void WorkDay(int day, const std::vector<std::pair<int, Samples>>& rows) {
        NewDay(day);
        for (const auto& [row, samples] : rows) TypeSamples(row, samples);
        PressAll();
    }

    /// Fills the final table, saves, and reads the report of the file.
    report::Report Finish() {
        chain.Settle();
        chain.Go(ScreenId::Form6);
        Press("Command1");
        return Save();
    }
    report::Report Save() {
        chain.Settle();
        chain.Go(ScreenId::Form6);
        host.ExpectFileDialog(file_.string());
        Choose("guardararchivo");
        return report::ReadReport(file_.string());
    }

    /// Changes a line of the saved file (from 1) and reads its report again.
    report::Report WithLine(int number, const std::string& text) {
        std::vector<std::string> lines = Lines();
        lines.at(static_cast<std::size_t>(number - 1)) = text;
        return WithLines(lines);
    }
    std::vector<std::string> Lines() const {
        std::ifstream in(file_, std::ios::binary);
        std::vector<std::string> lines;
        for (std::string line; std::getline(in, line);) {
            if (line.ends_with('\r')) line.pop_back();
            lines.push_back(line);
        }
        return lines;
    }
    report::Report WithLines(const std::vector<std::string>& lines) const {
        std::ofstream out(file_, std::ios::binary | std::ios::trunc);
        for (const std::string& line : lines) out << line << "\r\n";
        out.close();
        return report::ReadReport(file_.string());
    }
    /// The line of an entry (1 to 401) of a day's sheet.
    static int LineOfEntry(int day, int entry) { return 160 + (entry - 1) * 3 + day - 1; }
    static int LineOfCell(int day, int row, int column) {
        return LineOfEntry(day, (row - 1) * 18 + column + 1);
    }

    std::filesystem::path file_;

private:
};

}  // namespace velmora::test
