#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "sheet/form5.h"
#include "support/screen_state.h"
#include "support/velmora_test.h"

namespace velmora::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

/// Columns of `Text1`.
inline constexpr int kNumber = 0;
inline constexpr int kName = 1;
inline constexpr int kEd = 2;
inline constexpr int kEc = 3;
inline constexpr int kUnits = 4;
inline constexpr int kTm = 5;
inline constexpr int kAdditive = 6;
inline constexpr int kC1 = 7;
inline constexpr int kC6 = 12;
inline constexpr int kMmp = 13;
inline constexpr int kIndex = 14;
inline constexpr int kCombinedIndex = 15;
inline constexpr int kMg = 16;
inline constexpr int kGsd = 17;

/// Columns of `Text3`.
inline constexpr int kEcPlus = 0;
inline constexpr int kMgPlus = 1;
inline constexpr int kGsdPlus = 2;
inline constexpr int kProb = 3;

inline std::string Digits(int n) {
    std::array<char, 12> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), n).ptr};
}

/// Names of the controls that show something else than in `before`.
inline std::vector<std::string> Changed(const std::vector<Held>& before, const Screen& screen) {
    const std::vector<Held> after = StateOf(screen);
    std::vector<std::string> names;
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (before[i] != after[i]) names.push_back(screen.Controls()[i].name);
    }
    return names;
}

/// One of three buttons that do the same, each for a task of its own.
struct Twin {
    int task;
    std::string_view button;
    /// The sheet's row that is the task's row `r`.
    int Row(int r) const { return (task - 1) * 6 + r; }
};

/// How the test programs name a button's tests.
inline void PrintTo(const Twin& twin, std::ostream* out) { *out << twin.button; }
inline std::string NameOfTwin(const ::testing::TestParamInfo<Twin>& tested) {
    return std::string(tested.param.button);
}

/// The sheet, just opened, with helpers that speak of its rows: 1 to 18.
class SheetTest : public VelmoraTest {
protected:
    static int Index(int row, int column) { return (row - 1) * 18 + column; }
    static int Index3(int row, int column) { return (row - 1) * 4 + column; }
    TextCell& Cell(int row, int column) { return form.Text1(Index(row, column)); }
    TextCell& Cell3(int row, int column) { return form.Text3(Index3(row, column)); }
    static std::string Name(int row, int column) { return Indexed("Text1", Index(row, column)); }
    static std::string Name3(int row, int column) { return Indexed("Text3", Index3(row, column)); }

    /// Puts texts into C1, C2 and so on of a row.
    void SetSamples(int row, const std::vector<std::string_view>& texts) {
        int column = kC1;
        for (const std::string_view text : texts) Cell(row, column++).Text = text;
    }

    /// A plan in which every day has the same number of rows in each task.
    void SetPlan(int days, int tasks, int rows) {
        record.NumJornadas = days;
        record.NumTareas = tasks;
        for (int task = 1; task <= 3; ++task) {
            record.NumContaminantes(task) = rows;
            for (int day = 1; day <= 3; ++day) SetRows(day, task, rows);
        }
    }

    /// The number of rows of one task on one day.
    void SetRows(int day, int task, int rows) {
        record.Muestras15(day, task) = rows;
        record.Muestras30(day, task) = 0;
    }

    /// Gives every control of the sheet a state that none of its handlers gives.
    void Scribble() {
        for (const Control& control : form.Controls()) std::visit(Scribbler{}, control.state);
    }

    /// Runs what a press of the button runs, whether it is open at the moment or not.
    void Click(const Twin& twin) { Find(twin.button).events.Click(); }

    /// The code of the key after the filter of a cell has seen it.
    KeyCode Filtered(int cell, KeyCode key) {
        form.Text1_KeyPress(cell, key);
        return key;
    }

    /// Types on a cell of the main grid.
    void Type(int cell, std::string_view keys) { VelmoraTest::Type(Indexed("Text1", cell), keys); }

    Form5& form{Open<Form5>(ScreenId::Form5)};

private:
    struct Scribbler {
        void operator()(TextCell* cell) const {
            *cell = {.Text = "x", .Visible = true, .Locked = false, .BackColor = 7, .ForeColor = 9};
        }
        void operator()(ComboBox*) const {}
        void operator()(Label* label) const { label->Visible = true; }
        void operator()(Button* button) const { button->Visible = button->Enabled = true; }
        void operator()(Picture) const {}
    };
};

/// A sheet that stands on its first day.
class DayTest : public SheetTest {
protected:
    DayTest() { form.DiaActual = 1; }
};

/// Tests of each of three twins on a sheet.
template <class Sheet>
class TwinTest : public Sheet, public ::testing::WithParamInterface<Twin> {
protected:
    using Sheet::Click;
    void Click() { Click(T()); }
    const Twin& T() const { return this->GetParam(); }
    int Row(int r) const { return T().Row(r); }
};

}  // namespace velmora::test
