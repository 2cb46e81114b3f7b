#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace velmora {

inline QString ToQt(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace velmora
