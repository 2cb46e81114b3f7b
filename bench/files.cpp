#include <fstream>
#include <iterator>
#include <stdexcept>

#include "core/record.h"
#include "rows.h"
#include "store/evaluation_file.h"

namespace velmora::bench {

namespace {

std::string BytesOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

Rows MeasureFiles(const Places& places) {
    constexpr int kRepetitions = 401;
    constexpr double kBudget = 3;
    const std::string saved = places.scratch + "/saved.doc";
    const std::string copied = places.scratch + "/copied.doc";
    const std::string bytes = BytesOf(places.examples);
    EvaluacionRecord record;
    ReadEvaluation(places.examples, record);

    const auto save = [&] { WriteEvaluation(saved, record); };
    const auto write = [&] {
        std::ofstream out(copied, std::ios::binary | std::ios::trunc);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    };
    EvaluacionRecord restored;
    const auto restore = [&] { ReadEvaluation(saved, restored); };
    std::string read_bytes(bytes.size(), '\0');
    const auto read = [&] {
        std::ifstream in(copied, std::ios::binary);
        in.read(read_bytes.data(), static_cast<std::streamsize>(read_bytes.size()));
    };
    Rows rows = {
        Compare("saving", "writing the same bytes", {save}, {write}, kRepetitions, kBudget),
        Compare("restoring", "reading the same bytes", {restore}, {read}, kRepetitions, kBudget),
    };
    if (BytesOf(saved) != bytes || read_bytes != bytes || !(restored == record)) {
        throw std::logic_error("the files differ");
    }
    return rows;
}

}  // namespace velmora::bench
