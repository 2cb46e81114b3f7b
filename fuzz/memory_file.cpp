#include "fuzz/memory_file.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "fuzz/check.h"
#include "property/say.h"

namespace velmora::fuzz {

MemoryFile::MemoryFile() : descriptor_(memfd_create("velmora", MFD_CLOEXEC)) {
    Require(descriptor_ >= 0, "a file in memory can be made");
    name_ = property::Say("/proc/self/fd/", descriptor_);
}

MemoryFile::~MemoryFile() { close(descriptor_); }

void MemoryFile::Fill(std::string_view bytes) const {
    const bool emptied = ftruncate(descriptor_, 0) == 0;
    const auto written = pwrite(descriptor_, bytes.data(), bytes.size(), 0);
    Require(emptied && written == static_cast<ssize_t>(bytes.size()), "a file in memory has room");
}

std::string MemoryFile::Content() const {
    struct stat state {};
    Require(fstat(descriptor_, &state) == 0, "a file in memory has a size");
    std::string bytes(static_cast<std::size_t>(state.st_size), '\0');
    const auto read = pread(descriptor_, bytes.data(), bytes.size(), 0);
    Require(read == static_cast<ssize_t>(bytes.size()), "a file in memory is read whole");
    return bytes;
}

}  // namespace velmora::fuzz
