#pragma once

#include <utility>

#include "app/screens.h"
#include "core/chain.h"
#include "core/record.h"

namespace velmora {

/// One run of the program without its window, from before the first screen: the record, the chain
/// of the six screens, and the host that answers them.
template <class HostKind>
struct Core {
    /// With what the host is made of.
    template <class... Parts>
    explicit Core(Parts&&... parts) : host(std::forward<Parts>(parts)...) {}
    Core(const Core&) = delete;
    Core& operator=(const Core&) = delete;

    /// The current screen, which has to be a `Form`.
    template <class Form>
    Form& Current() {
        return dynamic_cast<Form&>(chain.Current());
    }

    EvaluacionRecord record;
    HostKind host;
    int screens_made = 0;
    ScreenChain chain{[this](ScreenId id) {
        ++screens_made;
        return MakeScreen(id, {record, chain, host});
    }};
};

}  // namespace velmora
