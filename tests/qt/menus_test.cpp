#include <QAccessible>
#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "qt/window_test.h"
#include "support/menus.h"

namespace velmora::test {
namespace {

/// What a bar of the window or a list of it shows, in the order and form of the table.
std::string Read(const QWidget& bar) {
    std::string text;
    for (const QAction* const action : bar.actions()) {
        text += action->objectName().toStdString() + "=" + action->text().toStdString();
        if (action->menu() != nullptr) text += "[" + Read(*action->menu()) + "]";
        text += ";";
    }
    return text;
}

using MenuTest = EachScreenTest;

TEST_P(MenuTest, TheBarHasItsEntriesAndSpacersInOrder) {
    std::string expected(MenuOf(GetParam()));
    std::erase(expected, '!');  // what an entry runs isn't seen
    EXPECT_EQ(Read(*window.menuBar()), expected);
}

TEST_P(MenuTest, AScreenReaderIsToldWhichEntriesHaveAList) {
    for (QAction* const entry : window.menuBar()->actions()) {
        const auto* const told = QAccessible::queryAccessibleInterface(entry);
        EXPECT_EQ(told->state().hasPopup, entry->menu() != nullptr) << entry->text().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(OnTheWindow, MenuTest, ::testing::ValuesIn(kScreens),
                         [](const auto& test) { return NameOf(test.param); });

}  // namespace
}  // namespace velmora::test
