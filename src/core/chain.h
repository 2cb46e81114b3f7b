#pragma once

#include <array>
#include <functional>
#include <memory>
#include <vector>

#include "forms/screen.h"

namespace velmora {

/// The chain of the six screens, of which one is current. A move unloads the screen being left and
/// loads the target, so that all that survives it is the record.
class ScreenChain {
public:
    using Factory = std::function<std::unique_ptr<Screen>(ScreenId)>;

    explicit ScreenChain(Factory make) : make_(std::move(make)) {}

    /// Makes the screen and runs its load handler, unless it is loaded.
    Screen& Load(ScreenId id);

    /// The three steps of a move: unload the current screen, load the target, make it current. A
    /// handler of the screen being left may still be running: its controls stay until `Settle`.
    void Go(ScreenId target);

    Screen& Current() const { return *current_; }

    /// Frees the screens that were left. Called when no handler runs.
    void Settle() { left_.clear(); }

private:
    std::unique_ptr<Screen>& Slot(ScreenId id) {
        return loaded_.at(static_cast<std::size_t>(id) - 1);
    }

    Factory make_;
    std::array<std::unique_ptr<Screen>, 6> loaded_;
    std::vector<std::unique_ptr<Screen>> left_;
    Screen* current_ = nullptr;
};

}  // namespace velmora
