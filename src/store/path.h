#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace velmora {

/// A path from a name in UTF-8, whatever the platform's own code. On Windows a long one takes the
/// form that the old limit of 260 letters doesn't bind.
std::filesystem::path PathOf(std::string_view name);

/// The name of a path in UTF-8.
std::string NameOf(const std::filesystem::path& path);

/// What the path stands for, links followed; `not_found` where nothing is there, `none` where it
/// can't be looked at. Nothing is opened. On Windows the reserved names such as NUL are
/// `character`.
std::filesystem::file_type TypeOf(const std::filesystem::path& path);

}  // namespace velmora
