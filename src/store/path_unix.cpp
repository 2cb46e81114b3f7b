#include <system_error>

#include "store/path.h"

namespace velmora {

namespace fs = std::filesystem;

fs::path PathOf(std::string_view name) { return {name}; }

fs::file_type TypeOf(const fs::path& path) {
    std::error_code ignored;  // what can't be looked at is neither regular nor missing
    return fs::status(path, ignored).type();
}

}  // namespace velmora
