#include "store/evaluation_file.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string_view>

#include "core/numbers.h"
#include "runtime/error.h"
#include "runtime/text.h"
#include "store/path.h"
#include "store/windows1252.h"

namespace velmora {

namespace {

constexpr char kQuote = '"';

/// Visits the saved part of the record, one value after another, in the order of the file. Writer
/// and reader both go by this walk, so that they can't drift apart.
template <class Record, class Visitor>
void ForEachValue(Record& record, Visitor&& visit) {
    for (auto& element : record.DatosEmpresa) visit(element);
    visit(record.NumJornadas);
    visit(record.NumTareas);
    for (int day = 1; day <= 3; ++day) {
        for (int task = 1; task <= 3; ++task) {
            visit(record.TiempoExposicion(day, task));
            visit(record.Muestras30(day, task));
            visit(record.Muestras15(day, task));
        }
    }
    for (auto& number : record.NumContaminantes) visit(number);
    for (int task = 1; task <= 3; ++task) {
        for (int contaminant = 1; contaminant <= 6; ++contaminant) {
            visit(record.NombreContaminante(task, contaminant));
            visit(record.VlaEd(task, contaminant));
            visit(record.VlaEc(task, contaminant));
            visit(record.TiempoMuestreo(task, contaminant));
            visit(record.Aditivo(task, contaminant));
            visit(record.Unidades(task, contaminant));
        }
    }
    for (int entry = DaySheet::kFirst; entry <= DaySheet::kLast; ++entry) {
        for (int day = 1; day <= 3; ++day) visit(record.Hoja(day)(entry));
    }
    for (auto& row : record.HojaFinal) {
        for (auto& cell : row) visit(cell);
    }
}

/// Writes each value on a line of its own.
class LineWriter {
public:
    explicit LineWriter(std::ostream& out) : out_(out) {}

    void operator()(const std::string& text) { WriteLine(kQuote + ToWindows1252(text) + kQuote); }
    void operator()(Entero number) { WriteLine(TextoEntero(number)); }
    void operator()(Doble number) { WriteLine(PlainDecimalText(number)); }

private:
    void WriteLine(const std::string& line) { out_ << line << kLineEnd; }

    std::ostream& out_;
};

/// The lines of a file, in a memory that doesn't grow with it: what a line has beyond 64 KiB is
/// passed over, as is, once the lines have come to a MiB, what one has beyond 256 bytes. That is
/// more than anybody types, and as much as text cells lay out without keeping their user waiting:
/// their layout is the toolkit's, and takes in the whole text. Beyond the first 64 MiB the file is
/// taken as ended.
class Lines {
public:
    explicit Lines(std::istream& in) : in_(in) {}

    /// The next line without its end, up to the next call; nothing at the end of the file.
    std::optional<std::string_view> Next() {
        const std::streamsize room = std::min({kLongestLine, std::max(kAlwaysKept, slack_), left_});
        if (room == 0) return std::nullopt;
        in_.getline(line_.get(), room + 1);
        const std::streamsize read = in_.gcount();  // the line's end, where it has one, too
        if (read == 0) return std::nullopt;

        const bool cut = in_.fail();
        const bool ended = !cut && !in_.eof();
        std::string_view line(line_.get(), static_cast<std::size_t>(read - (ended ? 1 : 0)));
        left_ -= read;
        slack_ -= read;
        if (cut) {
            in_.clear();
            in_.ignore(left_, '\n');
            left_ -= in_.gcount();
        } else if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        return line;
    }

private:
    static constexpr std::streamsize kLongestLine = std::streamsize{64} << 10U;
    static constexpr std::streamsize kAlwaysKept = 256;

    std::istream& in_;
    std::streamsize left_ = std::streamsize{64} << 20U;
    std::streamsize slack_ = std::streamsize{1} << 20U;  ///< for lines longer than `kAlwaysKept`
    // A place more for the zero that getline adds. NOLINTNEXTLINE(modernize-avoid-c-arrays)
    std::unique_ptr<char[]> line_ = std::make_unique_for_overwrite<char[]>(kLongestLine + 1);
};

/// What stands between the first two quotes; without a closing one up to the end of the line,
/// without any the text without the blanks around it.
std::string_view StringOf(std::string_view line) {
    const std::size_t opening = line.find(kQuote);
    if (opening == std::string_view::npos) return Trimmed(line);
    line.remove_prefix(opening + 1);
    return line.substr(0, line.find(kQuote));
}

/// Whether the line is a text between its only two quotes, as the writer leaves it.
bool IsQuoted(std::string_view line) {
    const std::string_view text = Trimmed(line);
    return text.size() >= 2 && text.front() == kQuote && text.find(kQuote, 1) == text.size() - 1;
}

/// Reads each value from the next line. What can't be read leaves its field as it was.
class LineReader {
public:
    LineReader(std::istream& in, ReadingNotes& notes) : lines_(in), notes_(notes) {}

    void operator()(std::string& text) {
        const auto line = NextLine();
        if (!line) return;
        text = FromWindows1252(StringOf(*line));
        if (!IsQuoted(*line)) notes_.unquoted_strings.push_back(notes_.lines);
    }
    void operator()(Entero& number) {
        ReadNumber([&](double read) { number = RedondearEntero(read); });
    }
    void operator()(Doble& number) {
        ReadNumber([&](double read) { number = read; });
    }

private:
    std::optional<std::string_view> NextLine() {
        const auto line = lines_.Next();
        if (line) ++notes_.lines;
        return line;
    }

    /// Hands on the number of the next line, unless there is none or it doesn't fit.
    template <class Store>
    void ReadNumber(Store store) {
        const auto line = NextLine();
        if (!line) return;
        const auto number = CompleteNumber(Trimmed(*line), ".");
        bool read = false;
        if (number && std::isfinite(*number)) {
            Intentar([&] {
                store(*number);
                read = true;
            });
        }
        if (!read) notes_.unread_numbers.push_back(notes_.lines);
    }

    Lines lines_;
    ReadingNotes& notes_;
};

}  // namespace

void WriteEvaluation(const std::string& file_name, const EvaluacionRecord& record) {
    // Opening a pipe would wait for its reader: only a file, or a name yet to be made, is opened.
    const std::filesystem::path file = PathOf(file_name);
    const auto type = TypeOf(file);
    if (type != std::filesystem::file_type::regular &&
        type != std::filesystem::file_type::not_found) {
        return;
    }
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    if (out) ForEachValue(record, LineWriter(out));
}

void ReadEvaluation(const std::string& file_name, EvaluacionRecord& record, ReadingNotes& notes) {
    const std::filesystem::path file = PathOf(file_name);
    if (TypeOf(file) != std::filesystem::file_type::regular) return;
    std::ifstream in(file, std::ios::binary);
    if (!in) return;
    LineReader reader(in, notes);
    ForEachValue(record, [&](auto& value) { reader(value); });
    notes.more =
        notes.lines == kLinesOfEvaluation && in.peek() != std::ifstream::traits_type::eof();
}

void ReadEvaluation(const std::string& file_name, EvaluacionRecord& record) {
    ReadingNotes unused;
    ReadEvaluation(file_name, record, unused);
}

}  // namespace velmora
