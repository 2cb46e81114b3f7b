#include "report/version.h"

namespace velmora::report {

std::string_view Version() { return VELMORA_VERSION; }

}  // namespace velmora::report
