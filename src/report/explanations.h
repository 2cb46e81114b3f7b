#pragma once

#include <string_view>

#include "report/report.h"

namespace velmora::report {

/// Why a kind of finding comes about, and where the guide tells more.
struct Explanation {
    FindingKind kind;
    std::string_view why;     ///< one Spanish sentence
    std::string_view anchor;  ///< HTML id of a heading of docs/guia.md
};

/// The explanation of each kind, once.
const Explanation& ExplanationOf(FindingKind kind);

}  // namespace velmora::report
