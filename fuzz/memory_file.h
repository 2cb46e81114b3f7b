#pragma once

#include <string>
#include <string_view>

namespace velmora::fuzz {

/// A file in memory that has a name, for as long as the process lives: nothing touches a disk.
class MemoryFile {
public:
    MemoryFile();
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    /// A name under which any code can open it.
    const std::string& Name() const { return name_; }

    void Fill(std::string_view bytes) const;
    std::string Content() const;

private:
    int descriptor_;
    std::string name_;
};

}  // namespace velmora::fuzz
