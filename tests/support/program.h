#pragma once

#include <optional>

#include "app/screens.h"
#include "core/chain.h"
#include "core/record.h"
#include "qt/qt_host.h"
#include "qt/window.h"
#include "support/robot.h"

namespace velmora {

inline ScreenChain& Started(ScreenChain& chain) {
    chain.Go(ScreenId::Form1);
    return chain;
}

/// One run of the program from its start, put together as `velmora` is, and the robot that uses it.
/// Its end is noted instead of ending this process.
struct Program {
    Program() {
        host.Attach(window);
        host.end = [this](int status) { exit_status = status; };
    }

    EvaluacionRecord record;
    QtHost host;
    ScreenChain chain{[this](ScreenId id) { return MakeScreen(id, {record, chain, host}); }};
    Window window{Started(chain), host};
    Robot robot{window};
    std::optional<int> exit_status;  ///< once the program has ended
};

}  // namespace velmora
