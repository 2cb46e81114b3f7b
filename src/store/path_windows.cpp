#include <windows.h>

#include <cstddef>
#include <string>

#include "store/path.h"

namespace velmora {

namespace fs = std::filesystem;

namespace {

/// The whole path as Windows reads it: blanks and points at its end gone, reserved names as
/// devices. Empty where it can't be read.
std::wstring FullPath(const fs::path& path) {
    const DWORD room = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(room, L'\0');
    full.resize(GetFullPathNameW(path.c_str(), room, full.data(), nullptr));
    return full;
}

bool IsPrefixed(std::wstring_view path) {
    return path.starts_with(LR"(\\?\)") || path.starts_with(LR"(\\.\)");
}

}  // namespace

fs::path PathOf(std::string_view name) {
    // Below the limit with room for what is written beside the file or in front of its name.
    constexpr std::size_t kLong = 200;
    fs::path path(std::u8string(name.begin(), name.end()));
    if (path.native().size() < kLong && path.is_absolute()) return path;
    const std::wstring full = FullPath(path);
    if (full.size() < kLong || IsPrefixed(full)) return path;
    const bool on_the_network = full.starts_with(LR"(\\)");
    return on_the_network ? LR"(\\?\UNC)" + full.substr(1) : LR"(\\?\)" + full;
}

fs::file_type TypeOf(const fs::path& path) {
    if (FullPath(path).starts_with(LR"(\\.\)")) return fs::file_type::character;
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        const DWORD error = GetLastError();
        const bool missing = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
        return missing ? fs::file_type::not_found : fs::file_type::none;
    }
    const bool folder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return folder ? fs::file_type::directory : fs::file_type::regular;
}

}  // namespace velmora
