#pragma once

#include <memory>

#include "core/navigation.h"
#include "core/record.h"
#include "forms/page.h"
#include "forms/screen.h"

namespace velmora {

/// Makes one of the six screens, not loaded yet. The one place that knows them all.
std::unique_ptr<Screen> MakeScreen(ScreenId id, const Environment& environment);

/// Whose a page is that is printed of this screen: as the record has it, or on the company's own
/// screen, whose boxes may not be in the record yet, as it stands there.
PageOwner OwnerOf(const Screen& screen, const EvaluacionRecord& record);

}  // namespace velmora
