#pragma once

#include <string>
#include <string_view>

#include "property/screenshot.h"

namespace velmora::property {

/// What a key should do to the cell it is typed in, by the rules of the key filters and of ordinary
/// text fields; it remembers what the filters remember, for the life of a screen.
class KeyModel {
public:
    /// A new screen stands there.
    void Forget() { *this = {}; }

    /// The text that the cell must hold after the key.
    std::string After(ScreenId screen, std::string_view array, int index, const TextCell& cell,
                      int key);

private:
    struct Counters {
        int digits = 0;
        int points = 0;
    };

    std::string AfterNumber(Counters& counters, const TextCell& cell, int key);

    int cell_ = 0;
    Counters first_;   ///< of the sheet, of VLA-ED
    Counters second_;  ///< of VLA-EC
};

}  // namespace velmora::property
