#pragma once

#include <QTest>

#include <stdexcept>
#include <vector>

#include "qt/qt_host.h"
#include "support/program_on.h"
#include "support/robot.h"

namespace velmora {

/// One run of the program, put together as `velmora` is, and the robot that uses it. Its ends are
/// noted instead of ending this process.
struct Program : ProgramOn<QtHost> {
    Program() {
        host.Attach(window);
        host.end = [this](int status) { ends.push_back(status); };
        host.owner = [this] { return OwnerOf(chain.Current(), record); };
    }

    /// Shows the window and waits until it is the active one.
    void Show() {
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window)) throw std::runtime_error("no active window");
    }

    Robot robot{window};
    std::vector<int> ends;  ///< the statuses that the process was ended with
};

}  // namespace velmora
