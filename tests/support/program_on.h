#pragma once

#include "qt/window.h"
#include "support/core.h"

namespace velmora {

inline ScreenChain& Started(ScreenChain& chain) {
    chain.Go(ScreenId::Form1);
    return chain;
}

/// One run of the program from its first screen, on a window that isn't shown yet.
template <class HostKind>
struct ProgramOn : Core<HostKind> {
    using Core<HostKind>::Core;

    Window window{Started(this->chain), this->host};
};

}  // namespace velmora
