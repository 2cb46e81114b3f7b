#pragma once

#include <memory>

#include "core/navigation.h"
#include "forms/screen.h"

namespace velmora {

/// Makes one of the six screens, not loaded yet. The one place that knows them all.
std::unique_ptr<Screen> MakeScreen(ScreenId id, const Entorno& entorno);

}  // namespace velmora
