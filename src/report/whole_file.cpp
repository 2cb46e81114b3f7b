#include "report/whole_file.h"
#include "report/text.h"

#include <cstdint>
#include <random>
#include <system_error>

namespace velmora::report {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Refuse(const fs::path& target, const std::string& reason) {
    throw FileError("«" + NameOf(target) + "»: " + reason);
}

/// Whether the name may be taken.
void Check(const fs::path& target, bool replace) {
    const fs::file_type type = TypeOf(target);
    if (type == fs::file_type::not_found || type == fs::file_type::none) return;
    if (type != fs::file_type::regular) Refuse(target, "no es un fichero corriente");
    if (!replace) Refuse(target, "ya existe; --reemplazar escribe encima");
}

/// A name in the same folder that nobody else comes to use.
fs::path TemporaryFor(const fs::path& target) {
    std::random_device chance;
    const std::uint64_t number = std::uint64_t{chance()} << 32U | chance();
    fs::path temporary = target;
    temporary += "." + Whole(number) + ".tmp";  // plain: a name, 64 bits
    return temporary;
}

}  // namespace

WholeFile::WholeFile(const fs::path& target, bool replace)
    : target_(target), temporary_(TemporaryFor(target)), replace_(replace) {
    Check(target_, replace_);
    stream_.open(temporary_, std::ios::binary | std::ios::trunc);
    if (!stream_) Refuse(target_, "no se puede escribir");
}

WholeFile::~WholeFile() {
    if (temporary_.empty()) return;
    stream_.close();
    std::error_code ignored;
    fs::remove(temporary_, ignored);
}

void WholeFile::Finish() {
    stream_.close();
    if (!stream_) Refuse(target_, "no se ha podido escribir entero");
    Check(target_, replace_);
    std::error_code trouble;
    fs::rename(temporary_, target_, trouble);
    if (trouble) Refuse(target_, "no se puede escribir");
    temporary_.clear();
}

}  // namespace velmora::report
