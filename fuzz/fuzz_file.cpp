// The evaluation file: any bytes are read, and what came of them is written and read again.
//
// Input: the bytes of the file.

#include <algorithm>
#include <cmath>
#include <type_traits>
#include <vector>

#include "fuzz/check.h"
#include "fuzz/exact_decimal.h"
#include "fuzz/memory_file.h"
#include "property/record_walk.h"
#include "store/evaluation_file.h"

namespace velmora::fuzz {
namespace {

using property::Element;
using property::kLinesOfAFile;
using property::NameOf;
using property::WalkTogether;

constexpr int kSignificantDigits = 15;

/// An element of the record by its name, which is made only when it is wanted.
struct Named {
    const Element& element;

    friend std::ostream& operator<<(std::ostream& out, const Named& named) {
        return out << NameOf(named.element);
    }
};

/// The lines of a file, without their ends. A CR is part of the end of its line, or of the file.
std::vector<std::string_view> LinesOf(std::string_view bytes) {
    std::vector<std::string_view> lines;
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        std::string_view line = bytes.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        lines.push_back(line);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
    return lines;
}

std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(" \t"), text.size());
    text.remove_prefix(first);
    return text.substr(0, text.find_last_not_of(" \t") + 1);
}

/// The bytes of the string on a line: between the first two quotes, or behind the first one, or
/// without any all but the blanks around.
std::string_view StringOn(std::string_view line) {
    const std::size_t quote = line.find('"');
    if (quote == std::string_view::npos) return WithoutBlanks(line);
    line.remove_prefix(quote + 1);
    return line.substr(0, line.find('"'));
}

/// The number on a line; nothing where there is none that a Double can hold.
std::optional<double> NumberOn(std::string_view line) {
    std::string_view text = WithoutBlanks(line);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    const auto number = ReadUnsigned(text, ".");
    if (!number || number->length != text.size()) return std::nullopt;
    const auto nearest = NearestDouble(number->value);
    return nearest && negative ? -*nearest : nearest;
}

/// Whether a text is UTF-8, each of its characters at most U+FFFF, and how many there are.
std::optional<std::size_t> LettersOf(std::string_view text) {
    std::size_t letters = 0;
    for (std::size_t i = 0; i < text.size(); ++letters) {
        const auto head = static_cast<unsigned char>(text[i]);
        const std::size_t length = head < 0x80 ? 1 : head >= 0xC2 && head < 0xE0 ? 2 : 3;
        if ((head >= 0x80 && head < 0xC2) || head >= 0xF0 || i + length > text.size()) return {};
        for (std::size_t j = 1; j < length; ++j) {
            if ((static_cast<unsigned char>(text[i + j]) & 0xC0U) != 0x80U) return {};
        }
        i += length;
    }
    return letters;
}

/// A record whose elements differ from their neighbours, and from those of another mark. Its texts
/// are short: what a run costs is the bytes that it writes and reads.
EvaluacionRecord MarkedRecord(int mark) {
    EvaluacionRecord record;
    WalkTogether(record, record, [&](const Element& element, auto& value, auto&) {
        using Value = std::decay_t<decltype(value)>;
        const int number = element.line > 0 ? element.line : 2000 + element.i + element.j;
        if constexpr (std::is_same_v<Value, std::string>)
            value = std::string(1, static_cast<char>('0' + (mark + number) % 64));
        else if constexpr (std::is_same_v<Value, Entero>)
            value = -mark - number;
        else
            value = mark + number + 0.25;
    });
    return record;
}

/// The bytes that a file of the record must have, where its strings are told by their bytes.
class ExpectedFile {
public:
    explicit ExpectedFile(const EvaluacionRecord& before) : before_(before) {}

    /// Judges what a reading made of the record, line by line.
    void Judge(const std::vector<std::string_view>& lines, const EvaluacionRecord& after) {
        written_.resize(static_cast<std::size_t>(kLinesOfAFile));
        WalkTogether(before_, after, [&](const Element& element, const auto& was, const auto& is) {
            const auto line = static_cast<std::size_t>(element.line);
            if (line == 0 || line > lines.size()) {
                Require(was == is, "what the file doesn't supply stays", Named{element});
                if (line > 0) Write(line, is);
            } else {
                JudgeLine(element, lines[line - 1], was, is);
            }
        });
    }

    std::string Bytes() const {
        std::string bytes;
        for (const std::string& line : written_) bytes.append(line).append("\r\n");
        return bytes;
    }

private:
    void JudgeLine(const Element& element, std::string_view line, const std::string&,
                   const std::string& is) {
        const std::string_view text = StringOn(line);
        Require(LettersOf(is) == text.size(), "each byte becomes a letter", Named{element});
        Write(static_cast<std::size_t>(element.line), std::string(text));
    }
    void JudgeLine(const Element& element, std::string_view line, Entero was, Entero is) {
        const auto number = NumberOn(line);
        const auto whole = number ? NearestWhole(*number, -32768, 32767) : std::nullopt;
        const auto due = whole.value_or(was.Value());
        Require(is.Value() == due, "an Integer is the line's number, if it fits", Named{element},
                " is ", is.Value(), ", due ", due);
        Write(static_cast<std::size_t>(element.line), is);
    }
    void JudgeLine(const Element& element, std::string_view line, Doble was, Doble is) {
        const double due = NumberOn(line).value_or(was.Value());
        Require(is == due, "a Double is the line's number, if it fits", Named{element}, " is ",
                is.Value(), ", due ", due);
        Write(static_cast<std::size_t>(element.line), is);
    }

    void Write(std::size_t line, const std::string& text) {
        written_.at(line - 1) = '"' + text + '"';
    }
    void Write(std::size_t line, Entero number) {
        written_.at(line - 1) = (number < 0 ? "-" : "") + Plain(Exactly(number.Value()), ".");
    }
    void Write(std::size_t line, Doble number) {
        const ExactDecimal shown = ToSignificantDigits(Exactly(number.Value()), kSignificantDigits);
        written_.at(line - 1) = (number < 0 ? "-" : "") + Plain(shown, ".");
    }

    const EvaluacionRecord& before_;
    std::vector<std::string> written_;
};

std::string Written(const MemoryFile& file, const EvaluacionRecord& record) {
    WriteEvaluation(file.Name(), record);
    return file.Content();
}

void RequireSame(const std::string& came, const std::string& due, std::string_view rule) {
    if (came == due) return;
    const auto parting = std::ranges::mismatch(came, due).in1;
    Fail(rule, "they part on line ", std::count(came.begin(), parting, '\n') + 1);
}

/// What a Double is once it has been saved: the value of its fifteen digits. Those of the very
/// largest ones stand for more than a Double holds, so that nothing is read.
std::optional<double> Saved(Doble number) {
    const ExactDecimal shown = ToSignificantDigits(Exactly(number.Value()), kSignificantDigits);
    const auto nearest = NearestDouble(shown);
    return nearest && number < 0 ? -*nearest : nearest;
}

void JudgeRestored(const EvaluacionRecord& saved, const EvaluacionRecord& before,
                   const EvaluacionRecord& restored) {
    WalkTogether(saved, restored, [&](const Element& element, const auto& was, const auto& is) {
        using Value = std::decay_t<decltype(was)>;
        if (element.line == 0) return;
        if constexpr (std::is_same_v<Value, Doble>) {
            const auto due = Saved(was);
            if (due) Require(is == *due, "a saved Double comes back", Named{element});
        } else {
            Require(was == is, "what was saved comes back", Named{element});
        }
    });
    Require(before.MG == restored.MG && before.GSD == restored.GSD &&
                before.MGmas == restored.MGmas && before.GSDmas == restored.GSDmas,
            "a restore leaves the working values");
}

bool HasNumbersTooLargeToSave(const EvaluacionRecord& record) {
    bool found = false;
    WalkTogether(record, record, [&](const Element&, const auto& value, const auto&) {
        using Value = std::decay_t<decltype(value)>;
        if constexpr (std::is_same_v<Value, Doble>)
            found = found || (std::fabs(value.Value()) > 1e308 && !Saved(value));
    });
    return found;
}

void Run(std::string_view bytes) {
    static const MemoryFile file;
    static const EvaluacionRecord before = MarkedRecord(1);
    static const EvaluacionRecord other = MarkedRecord(30);

    file.Fill(bytes);
    EvaluacionRecord record = before;
    ReadEvaluation(file.Name(), record);
    ExpectedFile expected(before);
    expected.Judge(LinesOf(bytes), record);

    const std::string written = Written(file, record);
    RequireSame(written, expected.Bytes(), "the file has 1524 lines, each with its value");

    EvaluacionRecord restored = other;
    ReadEvaluation(file.Name(), restored);
    JudgeRestored(record, other, restored);
    if (HasNumbersTooLargeToSave(record)) return;
    RequireSame(Written(file, restored), written,
                "saved, restored and saved again gives the same bytes");
}

}  // namespace
}  // namespace velmora::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    velmora::fuzz::Run(std::string(data, data + size));
    return 0;
}
