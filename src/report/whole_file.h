#pragma once

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "store/path.h"

namespace velmora::report {

/// A file that could not be written: the Spanish sentence names it.
class FileError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A file that comes to be whole or not at all: it is written under a temporary name beside its
/// own, which it takes when it is finished. What stood there before stays until then; an
/// interrupted run leaves it, and perhaps the temporary file.
class WholeFile {
public:
    /// Throws `FileError` for a name that stands for something other than a file, that exists
    /// without `replace`, or beside which nothing can be written.
    WholeFile(const std::filesystem::path& target, bool replace);
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    std::ostream& Stream() { return stream_; }

    /// Gives the file its name. Throws `FileError` where anything could not be written.
    void Finish();

private:
    std::filesystem::path target_;
    std::filesystem::path temporary_;
    bool replace_;
    std::ofstream stream_;
};

}  // namespace velmora::report
