#pragma once

#include <string>

namespace velmora {

/// Whose a printed page is. UTF-8; empty where it isn't known.
struct PageOwner {
    std::string company;
    std::string code;  ///< of the evaluation
};

}  // namespace velmora
