#pragma once

#include <string>
#include <string_view>

namespace velmora {

/// UTF-8 to Windows-1252. A character without a code there becomes "?", as does each byte that is
/// no part of a character's UTF-8. The control characters 81, 8D, 8F, 90 and 9D keep their number.
std::string ToWindows1252(std::string_view utf8);

/// Windows-1252 to UTF-8. The bytes 81, 8D, 8F, 90 and 9D, which have no letter, become the control
/// characters of the same number, so that all 256 bytes come back as they were.
std::string FromWindows1252(std::string_view bytes);

}  // namespace velmora
