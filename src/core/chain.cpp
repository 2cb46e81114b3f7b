#include "core/chain.h"

#include <utility>

namespace velmora {

Screen& ScreenChain::Load(ScreenId id) {
    std::unique_ptr<Screen>& slot = Slot(id);
    if (!slot) {
        slot = make_(id);
        slot->Form_Load();
    }
    return *slot;
}

void ScreenChain::Go(ScreenId target) {
    if (current_ != nullptr) left_.push_back(std::move(Slot(current_->Id())));
    current_ = &Load(target);
}

}  // namespace velmora
