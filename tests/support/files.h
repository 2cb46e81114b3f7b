#pragma once

#include <cstdint>
#include <filesystem>
#include <random>
#include <string>

namespace velmora::test {

#ifdef _WIN32
constexpr const char* kNullDevice = "NUL";
#else
constexpr const char* kNullDevice = "/dev/null";
#endif

/// A new folder of its own, empty.
inline std::filesystem::path MakeTemporaryFolder() {
    std::random_device random;
    for (;;) {
        const std::string name = "velmora-" + std::to_string(std::uint64_t{random()});
        auto folder = std::filesystem::temp_directory_path() / name;
        if (std::filesystem::create_directory(folder)) return folder;
    }
}

}  // namespace velmora::test
