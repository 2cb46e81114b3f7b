#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QEvent>
#include <QObject>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "support/program.h"
#include "support/screen_state.h"
#include "support/velmora_test.h"

namespace velmora {
class Form5;
}

namespace velmora::test {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

inline constexpr std::array<ScreenId, 6> kScreens = {ScreenId::Form1, ScreenId::Form2,
                                                     ScreenId::Form3, ScreenId::Form4,
                                                     ScreenId::Form5, ScreenId::Form6};

/// Counts a widget's events of one kind.
class EventCount : public QObject {
public:
    explicit EventCount(QEvent::Type kind) : kind_(kind) {}
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == kind_) ++count;
        return false;
    }
    int count = 0;

private:
    QEvent::Type kind_;
};

/// "Form1" to "Form6", for the names of tests over all screens.
std::string NameOf(ScreenId id);

/// A plan in which each task of each day has `rows` contaminants, all of them named, with limits,
/// sampling time 15 and a unit.
void SetPlan(EvaluacionRecord& record, int days, int tasks, int rows);

/// The whole program on its real window, with an end of the process that only counts. Starts on
/// `Form1` with an empty record; the separator is the point.
class WindowTest : public ::testing::Test, protected Program {
protected:
    WindowTest();

    /// Moves to the screen, as a handler does, and gives it as what it is.
    template <class Form>
    Form& Open(ScreenId id) {
        Open(id);
        return Current<Form>();
    }
    void Open(ScreenId id);

    void SetPlan(int days, int tasks, int rows) { test::SetPlan(record, days, tasks, rows); }
    /// The sheet of such a plan, its first day laid out.
    Form5& OpenSheet(int days, int tasks, int rows);
    /// The contaminants' screen of a plan of one task, its rows open.
    void OpenRows(int rows);

    /// Gives the focus without a press of the mouse, which would open a list.
    void Focus(std::string_view control);
    /// Texts of the cells or lists named `name`(first) to `name`(last).
    std::vector<std::string> Texts(std::string_view name, int first, int last) const;
    /// The entry's action.
    QAction& Action(std::string_view name);

    /// The statuses that the process was ended with so far; a test that ends it takes them.
    std::vector<int> TakeEnds() { return std::exchange(ends, {}); }

    void TearDown() override { EXPECT_THAT(ends, ::testing::IsEmpty()) << "the process ended"; }

    WithSeparator separator{"."};
};

/// The same on each of the six screens.
class EachScreenTest : public WindowTest, public ::testing::WithParamInterface<ScreenId> {
protected:
    EachScreenTest() { Open(GetParam()); }

    /// Shows every control of the screen, unlocked and enabled.
    void ShowAll();
};

/// Every file below the folder that the test program calls the user's home.
std::vector<std::string> FilesInHome();

}  // namespace velmora::test
