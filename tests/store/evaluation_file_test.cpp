#include "store/evaluation_file.h"

#include <gtest/gtest.h>
#ifdef __unix__
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#elif defined(_WIN32)
#include <windows.h>
#endif

#include <array>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <locale>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "core/numbers.h"
#include "store/path.h"
#include "support/files.h"
#include "support/velmora_test.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;
using test::WithSeparator;

constexpr std::size_t kLines = 1524;

std::string Number(int n) { return TextoEntero(n); }

std::string Quoted(const std::string& text) { return '"' + text + '"'; }

/// The lines of a file of which each ends with CR LF; any other end of line fails the test.
std::vector<std::string> LinesOf(std::string_view bytes) {
    std::vector<std::string> lines;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find("\r\n");
        if (end == std::string_view::npos) {
            ADD_FAILURE() << "a line without CR LF: " << bytes;
            break;
        }
        lines.emplace_back(bytes.substr(0, end));
        EXPECT_EQ(lines.back().find_first_of("\r\n"), std::string::npos);
        bytes.remove_prefix(end + 2);
    }
    return lines;
}

std::string Joined(const std::vector<std::string>& lines, std::string_view end = "\r\n") {
    std::string bytes;
    for (const std::string& line : lines) bytes.append(line).append(end);
    return bytes;
}

/// One saved value of a record that holds another one in each field: how it is set, and the line
/// of the file that it must be.
struct Field {
    std::size_t line;
    std::string written;
};

/// The table of the file's lines, by formulas that give each value's line number from its indices.
/// `mark` tells one record's values from another's.
class DistinctValues {
public:
    explicit DistinctValues(int mark) : mark_(mark) {
        Plan();
        Contaminants();
        Sheets();
        FinalTable();
    }

    EvaluacionRecord record;
    std::vector<Field> fields;

private:
    void Set(std::string& field, std::size_t line, const std::string& what) {
        field = what + " " + Number(mark_);
        fields.push_back({line, Quoted(field)});
    }
    void Set(Entero& field, std::size_t line, int value) {
        field = value + mark_;
        fields.push_back({line, Number(value + mark_)});
    }
    /// The value and three quarters, which has an exact Double.
    void Set(Doble& field, std::size_t line, int value) {
        field = value + mark_ + 0.75;
        fields.push_back({line, Number(value + mark_) + ".75"});
    }

    static std::size_t Line(int n) { return static_cast<std::size_t>(n); }

    void Plan() {
        for (int i = 1; i <= 19; ++i) Set(record.DatosEmpresa(i), Line(i), "Dato " + Number(i));
        Set(record.NumJornadas, 20, 10);
        Set(record.NumTareas, 21, 11);
        for (int day = 1; day <= 3; ++day) {
            for (int task = 1; task <= 3; ++task) {
                const int line = 22 + 9 * (day - 1) + 3 * (task - 1);
                Set(record.TiempoExposicion(day, task), Line(line), 100 * day + 10 * task);
                Set(record.Muestras30(day, task), Line(line + 1), 100 * day + 10 * task + 1);
                Set(record.Muestras15(day, task), Line(line + 2), 100 * day + 10 * task + 2);
            }
        }
        for (int task = 1; task <= 3; ++task) {
            Set(record.NumContaminantes(task), Line(48 + task), 500 + task);
        }
    }

    void Contaminants() {
        for (int task = 1; task <= 3; ++task) {
            for (int agent = 1; agent <= 6; ++agent) {
                const int line = 52 + 36 * (task - 1) + 6 * (agent - 1);
                const int place = 1000 * task + 100 * agent;
                const std::string where = Number(task) + "." + Number(agent);
                Set(record.NombreContaminante(task, agent), Line(line), "Agente " + where);
                Set(record.VlaEd(task, agent), Line(line + 1), place + 1);
                Set(record.VlaEc(task, agent), Line(line + 2), place + 2);
                Set(record.TiempoMuestreo(task, agent), Line(line + 3), place + 3);
                Set(record.Aditivo(task, agent), Line(line + 4), place + 4);
                Set(record.Unidades(task, agent), Line(line + 5), "Unidad " + where);
            }
        }
    }

    void Sheets() {
        for (int entry = 1; entry <= 401; ++entry) {
            const int line = 160 + 3 * (entry - 1);
            Set(record.HojaPrimerDia(entry), Line(line), "Primero " + Number(entry));
            Set(record.HojaSegundoDia(entry), Line(line + 1), "Segundo " + Number(entry));
            Set(record.HojaTercerDia(entry), Line(line + 2), "Tercero " + Number(entry));
        }
    }

    void FinalTable() {
        for (int row = 1; row <= 18; ++row) {
            for (int column = 1; column <= 9; ++column) {
                Set(record.HojaFinal(row, column), Line(1363 + 9 * (row - 1) + column - 1),
                    "Final " + Number(row) + "." + Number(column));
            }
        }
    }

    int mark_;
};

/// Sets the four working arrays, which the file doesn't hold.
void SetWorkingValues(EvaluacionRecord& record, double value) {
    for (auto* array : {&record.MG, &record.GSD, &record.MGmas, &record.GSDmas}) {
        for (auto& day : *array) {
            for (auto& task : day) {
                for (Doble& agent : task) agent = value += 0.5;
            }
        }
    }
}

class EvaluationFileTest : public ::testing::Test {
protected:
    void SetUp() override { folder = test::MakeTemporaryFolder(); }
    void TearDown() override { fs::remove_all(folder); }

    std::string Path(std::string_view name) const { return NameOf(folder / PathOf(name)); }

    static std::string Bytes(const std::string& path) {
        std::ifstream in(PathOf(path), std::ios::binary);
        EXPECT_TRUE(in.is_open()) << path;
        std::string bytes(fs::file_size(PathOf(path)), '\0');
        in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return bytes;
    }

    std::string File(std::string_view bytes) const {
        std::string path = Path("datos.doc");
        fs::remove(PathOf(path));  // a new file is quicker than one that is cut and filled again
        std::ofstream(PathOf(path), std::ios::binary) << bytes;
        return path;
    }

    std::string Saved(const EvaluacionRecord& record) const {
        WriteEvaluation(Path("guardado.doc"), record);
        std::string bytes = Bytes(Path("guardado.doc"));
        fs::remove(Path("guardado.doc"));
        return bytes;
    }

    /// What a record becomes by a restore from a file of these bytes.
    EvaluacionRecord Restored(std::string_view bytes, EvaluacionRecord before = {}) const {
        ReadEvaluation(File(bytes), before);
        return before;
    }

    /// A file whose line `number` is `line`; all the others are those of a fresh record.
    std::string FreshFileWithLine(std::size_t number, const std::string& line) const {
        std::vector<std::string> lines = LinesOf(Saved({}));
        lines.at(number - 1) = line;
        return Joined(lines);
    }

    fs::path folder;
};

// Writing

TEST_F(EvaluationFileTest, AFreshEvaluationHasExactly1524LinesEndingInCrLf) {
    const std::string bytes = Saved({});
    EXPECT_TRUE(bytes.ends_with("\r\n"));
    EXPECT_EQ(LinesOf(bytes).size(), kLines);
}

TEST_F(EvaluationFileTest, AFreshEvaluationIsZerosAndEmptyStrings) {
    const std::vector<std::string> lines = LinesOf(Saved({}));
    ASSERT_EQ(lines.size(), kLines);
    for (std::size_t line = 1; line <= kLines; ++line) {
        const bool plan = line >= 20 && line <= 51;
        const bool agents = line >= 52 && line <= 159;
        const std::size_t part = (line - 52) % 6;  // name, ED, EC, TM, A+, unit
        const bool number = plan || (agents && part != 0 && part != 5);
        EXPECT_EQ(lines.at(line - 1), number ? "0" : R"("")") << "line " << line;
    }
}

TEST_F(EvaluationFileTest, EachValueStandsOnItsLine) {
    const DistinctValues values(0);
    const std::vector<std::string> lines = LinesOf(Saved(values.record));
    ASSERT_EQ(lines.size(), kLines);
    ASSERT_EQ(values.fields.size(), kLines);
    for (const Field& field : values.fields) {
        EXPECT_EQ(lines.at(field.line - 1), field.written) << "line " << field.line;
    }
}

TEST_F(EvaluationFileTest, TheFirstEntriesOfTheThreeDaysAreInterleaved) {
    EvaluacionRecord record;
    record.HojaPrimerDia(1) = "a";
    record.HojaSegundoDia(1) = "b";
    record.HojaTercerDia(1) = "c";
    record.HojaPrimerDia(2) = "d";
    const std::vector<std::string> lines = LinesOf(Saved(record));
    EXPECT_EQ(lines.at(159), R"("a")");
    EXPECT_EQ(lines.at(160), R"("b")");
    EXPECT_EQ(lines.at(161), R"("c")");
    EXPECT_EQ(lines.at(162), R"("d")");
}

TEST_F(EvaluationFileTest, TheLastLineIsTheLastCellOfTheFinalTable) {
    EvaluacionRecord record;
    record.HojaTercerDia(401) = "SI";
    record.HojaFinal(1, 1) = "x";
    record.HojaFinal(18, 9) = "50";
    const std::vector<std::string> lines = LinesOf(Saved(record));
    EXPECT_EQ(lines.at(1361), R"("SI")");
    EXPECT_EQ(lines.at(1362), R"("x")");
    EXPECT_EQ(lines.at(1523), R"("50")");
}

TEST_F(EvaluationFileTest, StringsAreWrittenInWindows1252WithBlanksKept) {
    EvaluacionRecord record;
    record.DatosEmpresa(1) = "  Señalización, 5 € ";
    record.DatosEmpresa(2) = "日";
    const std::vector<std::string> lines = LinesOf(Saved(record));
    EXPECT_EQ(lines.at(0),
              "\"  Se\xF1"
              "alizaci\xF3n, 5 \x80 \"");
    EXPECT_EQ(lines.at(1), R"("?")");
}

TEST_F(EvaluationFileTest, AQuoteInsideAStringIsWrittenAsItStands) {
    EvaluacionRecord record;
    record.DatosEmpresa(3) = R"(Parcela "12" bis)";
    EXPECT_EQ(LinesOf(Saved(record)).at(2), R"("Parcela "12" bis")");
}

TEST_F(EvaluationFileTest, IntegersAreWrittenAsDigitsWithAMinusSignIfNegative) {
    EvaluacionRecord record;
    record.NumJornadas = 32767;
    record.NumTareas = -32768;
    const std::vector<std::string> lines = LinesOf(Saved(record));
    EXPECT_EQ(lines.at(19), "32767");
    EXPECT_EQ(lines.at(20), "-32768");
}

TEST_F(EvaluationFileTest, DoublesAreWrittenPlainWithAPointAndUpToFifteenDigits) {
    struct Row {
        double value;
        std::string_view line;
    };
    for (const Row& row : {Row{8.5, "8.5"}, Row{0.5, "0.5"}, Row{-0.25, "-0.25"}, Row{192, "192"},
                           Row{1.0 / 3, "0.333333333333333"}, Row{0.00001, "0.00001"},
                           Row{1e20, "100000000000000000000"}, Row{-0.0, "0"}}) {
        EvaluacionRecord record;
        record.TiempoExposicion(1, 1) = row.value;
        EXPECT_EQ(LinesOf(Saved(record)).at(21), row.line);
    }
}

TEST_F(EvaluationFileTest, AnOldFileIsReplacedWhole) {
    std::ofstream(Path("guardado.doc")) << std::string(100000, 'x');
    EXPECT_EQ(LinesOf(Saved({})).size(), kLines);
}

TEST_F(EvaluationFileTest, TheWorkingValuesAreNotWritten) {
    EvaluacionRecord record;
    SetWorkingValues(record, 1);
    EXPECT_EQ(Saved(record), Saved({}));
}

// There and back

TEST_F(EvaluationFileTest, ARestoreInANewRunGivesEachValueBack) {
    const DistinctValues values(0);
    EXPECT_EQ(Restored(Saved(values.record)), values.record);
}

TEST_F(EvaluationFileTest, SavingRestoringAndSavingAgainGivesTheSameBytes) {
    EvaluacionRecord record = DistinctValues(0).record;
    record.DatosEmpresa(1) = "  Señalización, 5 € ";
    record.DatosEmpresa(2) = "\xC2\x81 y 日";  // a control character with a code, a letter without
    record.TiempoExposicion(1, 1) = 1.0 / 3;
    record.VlaEd(1, 1) = 0.1 + 0.2;
    record.VlaEd(1, 2) = 1e-7;
    record.VlaEd(1, 3) = 123456789.123456789;
    record.VlaEd(1, 4) = 1e300;
    record.VlaEd(1, 5) = 5e-324;
    const std::string bytes = Saved(record);
    EXPECT_EQ(Saved(Restored(bytes)), bytes);
}

TEST_F(EvaluationFileTest, RandomDoublesReadBackAsTheValueThatTheirLineShows) {
    std::mt19937_64 random(6);
    std::uniform_real_distribution<double> mantissa(1, 10);
    for (int round = 0; round < 100; ++round) {
        EvaluacionRecord record;
        for (auto& task : record.VlaEd) {
            for (Doble& value : task) {
                const int exponent = static_cast<int>(random() % 40) - 20;
                value = Doble(mantissa(random)) * Power(10.0, exponent);
            }
        }
        const std::string bytes = Saved(record);
        const EvaluacionRecord restored = Restored(bytes);
        EXPECT_EQ(Saved(restored), bytes);
        for (int agent = 1; agent <= 6; ++agent) {
            const double value = record.VlaEd(1, agent).Value();
            EXPECT_NEAR(restored.VlaEd(1, agent).Value(), value, 1e-14 * value);
        }
    }
}

TEST_F(EvaluationFileTest, AStringWithAQuoteComesBackUpToItAndTheRestIsUnharmed) {
    EvaluacionRecord record = DistinctValues(0).record;
    record.DatosEmpresa(3) = R"(Parcela "12" bis)";
    EvaluacionRecord expected = record;
    expected.DatosEmpresa(3) = "Parcela ";
    EXPECT_EQ(Restored(Saved(record)), expected);
}

TEST_F(EvaluationFileTest, ADayNeverValidatedComesBackAsEmptyStrings) {
    EvaluacionRecord before;
    before.HojaSegundoDia(5) = "192";
    EXPECT_EQ(Restored(Saved({}), before).HojaSegundoDia, DaySheet{});
}

TEST_F(EvaluationFileTest, ARestoreLeavesTheWorkingValuesAsTheyStood) {
    EvaluacionRecord before;
    SetWorkingValues(before, 1);
    EvaluacionRecord expected = DistinctValues(0).record;
    SetWorkingValues(expected, 1);
    EXPECT_EQ(Restored(Saved(DistinctValues(0).record), before), expected);
}

TEST_F(EvaluationFileTest, TheCommaSeparatorLeavesTheFilesDoublesAlone) {
    EvaluacionRecord record;
    record.TiempoExposicion(1, 1) = 8.5;
    record.VlaEd(2, 3) = 0.125;
    record.HojaFinal(1, 3) = "0,61";  // as a machine with a comma writes its cells
    const std::string with_point = Saved(record);
    const WithSeparator comma(",");
    EXPECT_EQ(Saved(record), with_point);
    EXPECT_EQ(Restored(with_point), record);
}

TEST_F(EvaluationFileTest, ACommaInCellTextStaysAndLeerValorStopsAtItOnAnyMachine) {
    EvaluacionRecord record;
    record.HojaFinal(1, 3) = "2,61";
    const EvaluacionRecord restored = Restored(Saved(record));
    EXPECT_EQ(restored.HojaFinal(1, 3), "2,61");
    EXPECT_EQ(LeerValor(restored.HojaFinal(1, 3)).Value(), 2.0);
}

TEST_F(EvaluationFileTest, TheStandardLibrarysLocaleChangesNoByte) {
    class Comma : public std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    EvaluacionRecord record;
    record.NumJornadas = 12345;
    record.TiempoExposicion(1, 1) = 1234.5;
    const std::string bytes = Saved(record);
    const std::locale before = std::locale::global(std::locale(std::locale(), new Comma));
    EXPECT_EQ(Saved(record), bytes);
    EXPECT_EQ(Restored(bytes), record);
    std::locale::global(before);
}

// Files cut short

/// Where each line of a file starts, and where the file ends.
std::vector<std::size_t> StartsOf(const std::string& bytes) {
    std::vector<std::size_t> starts = {0};
    while (starts.back() < bytes.size()) starts.push_back(bytes.find('\n', starts.back()) + 1);
    return starts;
}

TEST_F(EvaluationFileTest, AFileCutAtAnyLineGivesWhatItHoldsAndKeepsTheRest) {
    const DistinctValues before(5000);
    const std::string held = Saved(DistinctValues(0).record);
    const std::string kept = Saved(before.record);
    const std::vector<std::size_t> held_starts = StartsOf(held);
    const std::vector<std::size_t> kept_starts = StartsOf(kept);
    ASSERT_EQ(held_starts.size(), kLines + 1);
    for (std::size_t n = 0; n <= kLines; ++n) {
        const std::string cut = held.substr(0, held_starts.at(n));
        ASSERT_EQ(Saved(Restored(cut, before.record)), cut + kept.substr(kept_starts.at(n)))
            << "cut after line " << n;
    }
}

/// The line that a value is written to when only this part of its line, not empty, was read: of a
/// string what stands behind its quote, of a number the digits that are there.
std::string LineOfPart(std::string part) {
    if (part.ends_with('\r')) part.pop_back();
    if (part.starts_with('"')) return Quoted(part.substr(1, part.find('"', 1) - 1));
    if (part.ends_with('.')) part.pop_back();
    return part;
}

TEST_F(EvaluationFileTest, AFileCutInsideALineGivesTheValueThatIsLeftOfIt) {
    const DistinctValues before(5000);
    const std::string held = Saved(DistinctValues(0).record);
    const std::string kept = Saved(before.record);
    const std::vector<std::size_t> starts = StartsOf(held);
    const std::vector<std::size_t> kept_starts = StartsOf(kept);
    // Every line of the plan, and every thirteenth of the sheets and the final table.
    for (std::size_t n = 0; n < kLines; n += n < 160 ? 1 : 13) {
        // A cut right behind the first byte, one in the middle and one between CR and LF.
        const std::size_t length = starts.at(n + 1) - starts.at(n);
        for (const std::size_t part : {std::size_t{1}, length / 2, length - 1}) {
            const std::string whole_lines = held.substr(0, starts.at(n));
            const std::string cut_line = held.substr(starts.at(n), part);
            ASSERT_EQ(
                Saved(Restored(whole_lines + cut_line, before.record)),
                whole_lines + LineOfPart(cut_line) + "\r\n" + kept.substr(kept_starts.at(n + 1)))
                << "line " << n + 1 << " cut to " << cut_line;
        }
    }
}

TEST_F(EvaluationFileTest, ALastLineWithoutItsEndCounts) {
    std::string bytes = Saved(DistinctValues(0).record);
    bytes.resize(bytes.size() - 2);
    EXPECT_EQ(Restored(bytes), DistinctValues(0).record);
}

TEST_F(EvaluationFileTest, AnEmptyFileLeavesTheRecord) {
    const EvaluacionRecord before = DistinctValues(5000).record;
    EXPECT_EQ(Restored("", before), before);
}

TEST_F(EvaluationFileTest, LinesBeyondTheLastAreNotRead) {
    const EvaluacionRecord record = DistinctValues(0).record;
    EXPECT_EQ(Restored(Saved(record) + Saved(DistinctValues(5000).record)), record);
}

// Ends of lines

TEST_F(EvaluationFileTest, LfAloneEndsALineToo) {
    const EvaluacionRecord record = DistinctValues(0).record;
    EXPECT_EQ(Restored(Joined(LinesOf(Saved(record)), "\n")), record);
}

TEST_F(EvaluationFileTest, OneCrRightBeforeTheLfBelongsToTheLinesEnd) {
    EXPECT_EQ(Restored("\"a\r\r\n").DatosEmpresa(1), "a\r");
    EXPECT_EQ(Restored("\"a\r\n").DatosEmpresa(1), "a");
    EXPECT_EQ(Restored("\"a\r").DatosEmpresa(1), "a");
    EXPECT_EQ(Restored("\"a\rb\"\r\n").DatosEmpresa(1), "a\rb");
}

TEST_F(EvaluationFileTest, ACrAloneEndsNoLine) {
    const EvaluacionRecord restored = Restored("\"a\"\r\"b\"\r\n\"c\"\r\n");
    EXPECT_EQ(restored.DatosEmpresa(1), "a");
    EXPECT_EQ(restored.DatosEmpresa(2), "c");
}

// Lines of other shapes

struct StringLine {
    std::string_view line;
    std::string_view value;
};

// clang-format off
constexpr std::array kStringLines = {
    StringLine{R"("Parcela 12")",         "Parcela 12"},
    StringLine{R"("")",                   ""},
    StringLine{R"("  con blancos  ")",    "  con blancos  "},
    StringLine{R"("uno" "dos")",          "uno"},
    StringLine{R"("uno"dos)",             "uno"},
    StringLine{R"(antes "uno" después)",  "uno"},
    StringLine{R"(   "uno")",             "uno"},
    StringLine{R"(""uno"")",              ""},
    StringLine{R"("sin cerrar )",         "sin cerrar "},
    StringLine{R"(")",                    ""},
    StringLine{R"(sin comillas)",         "sin comillas"},
    StringLine{"  \tsin comillas \t ",    "sin comillas"},
    StringLine{"8.5",                     "8.5"},
    StringLine{"xileno x",                "xileno x"},
    StringLine{"",                        ""},
    StringLine{" \t ",                    ""},
    StringLine{R"("uno, dos")",           "uno, dos"},
    StringLine{"\"Se\xF1" "al\"",         "Señal"},
    StringLine{"\"\x81\x80\"",            "\xC2\x81€"},
};
// clang-format on

TEST_F(EvaluationFileTest, AStringIsWhatStandsBetweenTheFirstTwoQuotes) {
    for (const StringLine& row : kStringLines) {
        EvaluacionRecord before;
        before.DatosEmpresa(1) = "antes";
        const EvaluacionRecord restored =
            Restored(std::string(row.line) + "\r\n\"detrás\"\r\n", before);
        EXPECT_EQ(restored.DatosEmpresa(1), row.value) << row.line;
        EXPECT_NE(restored.DatosEmpresa(2), "") << row.line;
    }
}

struct DoubleLine {
    std::string_view line;
    double value;
};

constexpr double kKept = 77.25;  // what the field holds before

// clang-format off
constexpr std::array kDoubleLines = {
    DoubleLine{"8.5", 8.5},        DoubleLine{"0", 0},           DoubleLine{"-3", -3},
    DoubleLine{".5", 0.5},         DoubleLine{"-.5", -0.5},      DoubleLine{"5.", 5},
    DoubleLine{"+3", 3},           DoubleLine{"  8.5\t ", 8.5},  DoubleLine{"1E+20", 1e20},
    DoubleLine{"1e-05", 1e-5},     DoubleLine{"0008", 8},        DoubleLine{"1e-400", 0},
    DoubleLine{"8,5", kKept},      DoubleLine{"", kKept},        DoubleLine{"   ", kKept},
    DoubleLine{"ocho", kKept},     DoubleLine{"8 horas", kKept}, DoubleLine{R"("8.5")", kKept},
    DoubleLine{"1.2.3", kKept},    DoubleLine{"1 2", kKept},     DoubleLine{".", kKept},
    DoubleLine{"-", kKept},        DoubleLine{"1e", kKept},      DoubleLine{"nan", kKept},
    DoubleLine{"inf", kKept},      DoubleLine{"1e309", kKept},   DoubleLine{"-1e309", kKept},
    DoubleLine{"0x10", kKept},     DoubleLine{"8.5\r", kKept},   DoubleLine{"\xA0" "8", kKept},
};
// clang-format on

TEST_F(EvaluationFileTest, ADoubleTakesAnyDecimalFormAndKeepsItsValueOtherwise) {
    for (const DoubleLine& row : kDoubleLines) {
        EvaluacionRecord before;
        before.TiempoExposicion(1, 1) = kKept;
        const EvaluacionRecord restored =
            Restored(FreshFileWithLine(22, std::string(row.line)), before);
        EXPECT_EQ(restored.TiempoExposicion(1, 1).Value(), row.value) << row.line;
    }
}

TEST_F(EvaluationFileTest, DoublesAreReadWithAPointUnderACommaSeparator) {
    const WithSeparator comma(",");
    EvaluacionRecord before;
    before.TiempoExposicion(1, 1) = kKept;
    EXPECT_EQ(Restored(FreshFileWithLine(22, "8.5"), before).TiempoExposicion(1, 1), 8.5);
    EXPECT_EQ(Restored(FreshFileWithLine(22, "8,5"), before).TiempoExposicion(1, 1), kKept);
}

struct IntegerLine {
    std::string_view line;
    int value;
};

constexpr int kKeptInteger = 77;  // what the field holds before

// clang-format off
constexpr std::array kIntegerLines = {
    IntegerLine{"3", 3},              IntegerLine{" 3 ", 3},            IntegerLine{"-3", -3},
    IntegerLine{"0.5", 0},            IntegerLine{"1.5", 2},            IntegerLine{"2.5", 2},
    IntegerLine{"3.5", 4},            IntegerLine{"-2.5", -2},          IntegerLine{"2.51", 3},
    IntegerLine{"1E3", 1000},         IntegerLine{"32767", 32767},      IntegerLine{"32767.4", 32767},
    IntegerLine{"-32768", -32768},    IntegerLine{"-32768.5", -32768},  IntegerLine{"32767.5", kKeptInteger},
    IntegerLine{"32768", kKeptInteger}, IntegerLine{"-32769", kKeptInteger},
    IntegerLine{"-32768.6", kKeptInteger}, IntegerLine{"99999999999", kKeptInteger},
    IntegerLine{"1e309", kKeptInteger},    IntegerLine{"", kKeptInteger},
    IntegerLine{"tres", kKeptInteger},     IntegerLine{R"("3")", kKeptInteger},
    IntegerLine{"3,0", kKeptInteger},      IntegerLine{"1 2", kKeptInteger},
};
// clang-format on

TEST_F(EvaluationFileTest, AnIntegerRoundsHalvesToEvenAndMustFitSixteenBits) {
    for (const IntegerLine& row : kIntegerLines) {
        EvaluacionRecord before;
        before.NumJornadas = kKeptInteger;
        const EvaluacionRecord restored =
            Restored(FreshFileWithLine(20, std::string(row.line)), before);
        EXPECT_EQ(restored.NumJornadas.Value(), row.value) << row.line;
    }
}

TEST_F(EvaluationFileTest, AStepThatFailsSpendsItsLine) {
    EvaluacionRecord record = DistinctValues(0).record;
    std::vector<std::string> lines = LinesOf(Saved(record));
    lines.at(19) = "ninguna";  // NumJornadas
    lines.at(21) = "";         // TiempoExposicion of the first day and task
    EvaluacionRecord before;
    before.NumJornadas = 3;
    record.NumJornadas = 3;
    record.TiempoExposicion(1, 1) = 0;
    EXPECT_EQ(Restored(Joined(lines), before), record);
}

TEST_F(EvaluationFileTest, ValuesOutOfThePlansRangeAreAccepted) {
    EXPECT_EQ(Restored(FreshFileWithLine(20, "4")).NumJornadas, 4);
    EXPECT_EQ(Restored(FreshFileWithLine(21, "-7")).NumTareas, -7);
    EXPECT_EQ(Restored(FreshFileWithLine(49, "900")).NumContaminantes(1), 900);
}

TEST_F(EvaluationFileTest, LinesOfWrongTypesThroughoutLeaveTheNumbersAndFillTheStrings) {
    const EvaluacionRecord before = DistinctValues(0).record;
    const EvaluacionRecord restored =
        Restored(Joined(std::vector<std::string>(kLines, "texto")), before);
    EXPECT_EQ(restored.DatosEmpresa(19), "texto");
    EXPECT_EQ(restored.HojaFinal(18, 9), "texto");
    EXPECT_EQ(restored.Unidades(3, 6), "texto");
    EXPECT_EQ(restored.NumTareas, before.NumTareas);
    EXPECT_EQ(restored.Aditivo, before.Aditivo);
    EXPECT_EQ(restored.VlaEc, before.VlaEc);
}

// Files of other contents

TEST_F(EvaluationFileTest, BinaryNoiseGivesARecordThatSavesAndComesBackAsItIs) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        std::mt19937 random(seed);
        std::string noise(20000 + random() % 200000, '\0');
        for (char& c : noise) c = static_cast<char>(random());
        const std::string bytes = Saved(Restored(noise));
        ASSERT_EQ(Saved(Restored(bytes)), bytes) << "seed " << seed;
    }
}

TEST_F(EvaluationFileTest, NoiseMadeOfTheFilesOwnBytesGivesARecordThatSavesAndComesBackAsItIs) {
    constexpr std::string_view kAlphabet = "\"\"\"\r\n\n\n0123456789.,-+eE ab\t\xF1\x80";
    for (unsigned seed = 1; seed <= 300; ++seed) {
        std::mt19937 random(seed);
        std::string noise(random() % 12000, '\0');
        for (char& c : noise) c = kAlphabet.at(random() % kAlphabet.size());
        const std::string bytes = Saved(Restored(noise));
        ASSERT_EQ(Saved(Restored(bytes)), bytes) << "seed " << seed;
    }
}

TEST_F(EvaluationFileTest, ZeroBytesArePartOfAString) {
    const std::string line("\"a\0b\"\r\n", 7);
    EXPECT_EQ(Restored(line).DatosEmpresa(1), std::string("a\0b", 3));
}

TEST_F(EvaluationFileTest, ALongLineComesBackWhole) {
    EvaluacionRecord record;
    record.DatosEmpresa(1) = std::string(60000, 'x');
    record.DatosEmpresa(2) = "y";
    EXPECT_EQ(Restored(Saved(record)), record);
}

TEST_F(EvaluationFileTest, AnOverlongLineIsCutAndTheNextOneReadAsUsual) {
    constexpr std::size_t kKeptBytes = std::size_t{64} << 10U;
    const EvaluacionRecord restored =
        Restored('"' + std::string(3 * kKeptBytes, 'x') + "\"\r\n\"siguiente\"\r\n");
    EXPECT_EQ(restored.DatosEmpresa(1).size(), kKeptBytes - 1);  // the quote is one of them
    EXPECT_EQ(restored.DatosEmpresa(2), "siguiente");
}

TEST_F(EvaluationFileTest, ACrBeyondTheCutIsDroppedWithTheRestOfItsLine) {
    constexpr std::size_t kKeptBytes = std::size_t{64} << 10U;
    const std::string kept = '"' + std::string(kKeptBytes - 1, 'x');
    const EvaluacionRecord restored = Restored(kept + "\ry\r\n\"siguiente\"\r\n");
    EXPECT_EQ(restored.DatosEmpresa(1).size(), kKeptBytes - 1);  // the quote is one of them
    EXPECT_EQ(restored.DatosEmpresa(1).back(), 'x');
    EXPECT_EQ(restored.DatosEmpresa(2), "siguiente");
}

TEST_F(EvaluationFileTest, ALineOfExactlyTheLengthThatIsKeptComesBackWhole) {
    constexpr std::size_t kKeptBytes = std::size_t{64} << 10U;
    const std::string line = '"' + std::string(kKeptBytes - 3, 'x') + "\ry";
    const EvaluacionRecord restored = Restored(line + "\r\n");
    EXPECT_EQ(restored.DatosEmpresa(1), line.substr(1));
}

TEST_F(EvaluationFileTest, OnceTheLinesHaveComeToAMiBALineKeeps256Bytes) {
    const std::string line = '"' + std::string(70000, 'x') + "\"\r\n";
    std::string file;
    for (int i = 0; i < 19; ++i) file += line;
    const EvaluacionRecord restored = Restored(file + "3\r\n");
    EXPECT_EQ(restored.DatosEmpresa(16).size(), 65535) << "16 x 64 KiB are a MiB";
    EXPECT_EQ(restored.DatosEmpresa(17).size(), 255);
    EXPECT_EQ(restored.DatosEmpresa(19).size(), 255);
    EXPECT_EQ(restored.NumJornadas, 3);
}

TEST_F(EvaluationFileTest, OneOverlongLineWithoutAnEndSpendsOneStep) {
    const EvaluacionRecord before = DistinctValues(0).record;
    EvaluacionRecord restored = Restored(std::string(20'000'000, '0'), before);
    EXPECT_EQ(restored.DatosEmpresa(1).size(), std::size_t{64} << 10U);
    restored.DatosEmpresa(1) = before.DatosEmpresa(1);
    EXPECT_EQ(restored, before);
}

TEST_F(EvaluationFileTest, ADoubleWhoseFifteenDigitsExceedTheLargestOneIsNotReadBack) {
    EvaluacionRecord saved;  // by hand: it is 1.7976931348623157E308, in fifteen digits ...232E308
    saved.VlaEd(1, 1) = std::numeric_limits<double>::max();
    EvaluacionRecord before;
    before.VlaEd(1, 1) = 7;
    EXPECT_EQ(Restored(Saved(saved), before).VlaEd(1, 1), 7);
}

TEST_F(EvaluationFileTest, AFileIsTakenAsEndedAfter64MiB) {
    const EvaluacionRecord before = DistinctValues(0).record;
    const std::string first = std::string((std::size_t{64} << 20U) - 21, ' ') + '\n';
    const EvaluacionRecord restored =
        Restored(first + "\"dos\"\n\"abcdefghijklmnop\"\n\"cuatro\"\n", before);
    EXPECT_EQ(restored.DatosEmpresa(1), "");
    EXPECT_EQ(restored.DatosEmpresa(2), "dos");
    EXPECT_EQ(restored.DatosEmpresa(3), "abcdefghijklm") << "20 bytes less 6 less the quote";
    EXPECT_EQ(restored.DatosEmpresa(4), before.DatosEmpresa(4));
}

TEST_F(EvaluationFileTest, TheLastByteOfThe64MiBIsALineAndTheNextByteIsNone) {
    constexpr std::size_t kReadBytes = std::size_t{64} << 20U;
    const EvaluacionRecord before = DistinctValues(0).record;
    const EvaluacionRecord one_left =
        Restored(std::string(kReadBytes - 2, ' ') + "\n7\n\"tres\"\n", before);
    EXPECT_EQ(one_left.DatosEmpresa(2), "7");
    EXPECT_EQ(one_left.DatosEmpresa(3), before.DatosEmpresa(3));
    const EvaluacionRecord none_left =
        Restored(std::string(kReadBytes - 1, ' ') + "\n\n\"tres\"\n", before);
    EXPECT_EQ(none_left.DatosEmpresa(1), "");
    EXPECT_EQ(none_left.DatosEmpresa(2), before.DatosEmpresa(2));
    EXPECT_EQ(none_left.DatosEmpresa(3), before.DatosEmpresa(3));
}

TEST_F(EvaluationFileTest, ANumberOfManyDigitsIsRead) {
    const std::string zeros(60000, '0');
    EXPECT_EQ(Restored(FreshFileWithLine(22, zeros + "8.5")).TiempoExposicion(1, 1), 8.5);
    EXPECT_EQ(Restored(FreshFileWithLine(20, zeros + "3")).NumJornadas, 3);
}

// Names that are no file

class NoFileTest : public EvaluationFileTest {
protected:
    void ExpectNothingRead(const std::string& name) {
        const EvaluacionRecord before = DistinctValues(0).record;
        EvaluacionRecord record = before;
        ReadEvaluation(name, record);
        EXPECT_EQ(record, before) << name;
    }
};

TEST_F(NoFileTest, AMissingFileLeavesTheRecord) { ExpectNothingRead(Path("no está.doc")); }

TEST_F(NoFileTest, AnEmptyNameLeavesTheRecordAndMakesNoFile) {
    ExpectNothingRead("");
    const fs::path before = fs::current_path();
    fs::current_path(folder);
    WriteEvaluation("", {});
    fs::current_path(before);
    EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(NoFileTest, AFolderIsNeitherReadNorWritten) {
    fs::create_directory(folder / "carpeta");
    ExpectNothingRead(Path("carpeta"));
    WriteEvaluation(Path("carpeta"), {});
    EXPECT_TRUE(fs::is_directory(folder / "carpeta"));
    EXPECT_TRUE(fs::is_empty(folder / "carpeta"));
}

TEST_F(NoFileTest, AMissingFolderIsNotMade) {
    ExpectNothingRead(Path("no/está.doc"));
    WriteEvaluation(Path("no/está.doc"), {});
    EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(NoFileTest, APathThroughAFileIsNotOpened) {
    const std::string file = File("contenido");
    ExpectNothingRead(file + "/dentro.doc");
    WriteEvaluation(file + "/dentro.doc", {});
    EXPECT_EQ(Bytes(file), "contenido");
}

TEST_F(NoFileTest, ANameTooLongIsNotOpened) {
    const std::string name = Path(std::string(300, 'n'));
    ExpectNothingRead(name);
    WriteEvaluation(name, {});
    EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(NoFileTest, ANameWithAccentsAndBlanksIsAFileLikeAnyOther) {
    WriteEvaluation(Path("evaluación nº 1.doc"), {});
    EXPECT_EQ(Bytes(Path("evaluación nº 1.doc")), Saved({}));
}

#ifdef _WIN32

// What Windows alone has

TEST_F(NoFileTest, TheReservedNamesAreNoFiles) {
    for (const char* const name : {"NUL", "nul", "CON", "PRN", "AUX", "COM1", "LPT9"}) {
        ExpectNothingRead(name);
        WriteEvaluation(name, {});
        EXPECT_EQ(TypeOf(PathOf(name)), fs::file_type::character) << name;
    }
}

TEST_F(NoFileTest, BlanksAndPointsAtTheEndOfANameDoNotCount) {
    WriteEvaluation(Path("plan.doc. "), {});
    EXPECT_EQ(Bytes(Path("plan.doc")), Saved({}));
    WriteEvaluation(Path("plan.doc "), DistinctValues(0).record);
    EvaluacionRecord record;
    ReadEvaluation(Path("plan.doc.."), record);
    EXPECT_EQ(record, DistinctValues(0).record);
}

TEST_F(NoFileTest, AReadOnlyFileStaysAsItIs) {
    const std::string path = File("contenido");
    ASSERT_TRUE(SetFileAttributesW(PathOf(path).c_str(), FILE_ATTRIBUTE_READONLY));
    const bool written_everywhere = std::ofstream(PathOf(path), std::ios::app).is_open();
    WriteEvaluation(path, {});
    SetFileAttributesW(PathOf(path).c_str(), FILE_ATTRIBUTE_NORMAL);
    if (written_everywhere) GTEST_SKIP() << "by this user";
    EXPECT_EQ(Bytes(path), "contenido");
}

TEST_F(NoFileTest, ALongPathTakesTheFormThatTheOldLimitDoesNotBind) {
    const std::string long_name = "\\" + std::string(250, 'c');
    EXPECT_EQ(NameOf(PathOf("C:" + long_name)), R"(\\?\C:)" + long_name);
    EXPECT_EQ(NameOf(PathOf("C:/a/.." + long_name)), R"(\\?\C:)" + long_name);
    EXPECT_EQ(NameOf(PathOf(R"(\\casa\datos)" + long_name)), R"(\\?\UNC\casa\datos)" + long_name);
    EXPECT_EQ(NameOf(PathOf(R"(C:\corto)")), R"(C:\corto)");
}

TEST_F(NoFileTest, APathBeyondTheOldLimitIsWrittenAndRead) {
    std::string name = NameOf(folder);
    for (int depth = 0; depth < 5; ++depth) {
        name += "\\" + std::string(90, 'c') + "ñ";
        fs::create_directory(PathOf(name));
    }
    name += "\\plan.doc";
    WriteEvaluation(name, DistinctValues(0).record);
    EvaluacionRecord record;
    ReadEvaluation(name, record);
    EXPECT_EQ(record, DistinctValues(0).record);
    EXPECT_EQ(fs::file_size(PathOf(name)), Saved(DistinctValues(0).record).size());
    DeleteFileW(PathOf(name).c_str());
    for (int depth = 0; depth < 5; ++depth) {
        name.resize(name.find_last_of('\\'));
        RemoveDirectoryW(PathOf(name).c_str());
    }
}

#endif

#ifdef __unix__

// Other things than files, and disks without room

/// While it lives this process can open no file.
class NoMoreFiles {
public:
    NoMoreFiles() {
        getrlimit(RLIMIT_NOFILE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = 0;
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    ~NoMoreFiles() { setrlimit(RLIMIT_NOFILE, &before_); }
    NoMoreFiles(const NoMoreFiles&) = delete;
    NoMoreFiles& operator=(const NoMoreFiles&) = delete;

private:
    rlimit before_{};
};

TEST_F(NoFileTest, APipeWithoutAWriterIsNotWaitedFor) {
    ASSERT_EQ(mkfifo(Path("tubo").c_str(), 0600), 0);
    ExpectNothingRead(Path("tubo"));  // opening it would wait for ever
}

TEST_F(NoFileTest, APipeWithoutAReaderIsNotWaitedFor) {
    ASSERT_EQ(mkfifo(Path("tubo").c_str(), 0600), 0);
    WriteEvaluation(Path("tubo"), {});  // opening it would wait for ever
    EXPECT_TRUE(fs::is_fifo(folder / "tubo"));
}

TEST_F(NoFileTest, NothingIsWrittenIntoAPipeThatIsRead) {
    ASSERT_EQ(mkfifo(Path("tubo").c_str(), 0600), 0);
    const int reader = open(Path("tubo").c_str(), O_RDONLY | O_NONBLOCK);
    ASSERT_GE(reader, 0);
    WriteEvaluation(Path("tubo"), {});
    char byte = 0;
    EXPECT_EQ(read(reader, &byte, 1), 0);
    close(reader);
}

TEST_F(NoFileTest, ADeviceIsNotRead) {
    ExpectNothingRead("/dev/zero");  // a line without an end
    ExpectNothingRead("/dev/null");
}

TEST_F(NoFileTest, AFileThatFailsToBeReadLeavesTheRecord) {
    ASSERT_TRUE(fs::is_regular_file("/proc/self/mem"));
    ExpectNothingRead("/proc/self/mem");  // its first read is an input error
}

TEST_F(NoFileTest, AFileThatCannotBeOpenedLeavesTheRecordAndItself) {
    const std::string path = File(Saved({}));
    const EvaluacionRecord before = DistinctValues(0).record;
    // Once with files to be had: the sanitizers open files of their own on a first call.
    EvaluacionRecord record = before;
    ReadEvaluation(path, record);
    EXPECT_NE(record, before);
    WriteEvaluation(Path("otro.doc"), before);

    record = before;
    {
        const NoMoreFiles none;
        ReadEvaluation(path, record);
        WriteEvaluation(path, before);
    }
    EXPECT_EQ(record, before);
    EXPECT_EQ(Bytes(path), Saved({}));
}

TEST_F(NoFileTest, ALinkThatLeadsToItselfIsNotOpened) {
    fs::create_symlink("bucle", folder / "bucle");
    ExpectNothingRead(Path("bucle"));
    WriteEvaluation(Path("bucle"), {});
    EXPECT_TRUE(fs::is_symlink(folder / "bucle"));
}

TEST_F(NoFileTest, ALinkToAFileIsReadAndWritten) {
    File(Saved(DistinctValues(0).record));
    fs::create_symlink("datos.doc", folder / "enlace");
    EvaluacionRecord record;
    ReadEvaluation(Path("enlace"), record);
    EXPECT_EQ(record, DistinctValues(0).record);
    WriteEvaluation(Path("enlace"), {});
    EXPECT_TRUE(fs::is_symlink(folder / "enlace"));
    EXPECT_EQ(Bytes(Path("datos.doc")), Saved({}));
}

/// While it lives no file of this process grows beyond a size: a write that would fails, as on a
/// full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, signal_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*signal_)(int);
    rlimit before_{};
};

TEST_F(EvaluationFileTest, AWriteThatFailsLeavesTheFileCutAndTheOldContentGone) {
    const EvaluacionRecord record = DistinctValues(0).record;
    const std::string whole = Saved(record);
    ASSERT_GT(whole.size(), 20000U);
    const std::string path = File(std::string(5000, 'x') + "contenido anterior");
    {
        const FileSizeLimit full_disk(12345);
        WriteEvaluation(path, record);
    }
    EXPECT_EQ(Bytes(path), whole.substr(0, 12345));
}

TEST_F(EvaluationFileTest, AFileCutByAFullDiskIsReadUpToItsEnd) {
    const EvaluacionRecord record = DistinctValues(0).record;
    const std::string path = Path("cortado.doc");
    {
        const FileSizeLimit full_disk(12345);
        WriteEvaluation(path, record);
    }
    EvaluacionRecord restored;
    ReadEvaluation(path, restored);
    EXPECT_EQ(restored.VlaEc, record.VlaEc);
    EXPECT_EQ(restored.HojaPrimerDia(100), record.HojaPrimerDia(100));
    EXPECT_EQ(restored.HojaFinal(18, 9), "");
}

TEST_F(EvaluationFileTest, AFileWithoutRoomForAByteIsLeftEmpty) {
    const std::string path = File("contenido anterior");
    {
        const FileSizeLimit full_disk(0);
        WriteEvaluation(path, {});
    }
    EXPECT_EQ(Bytes(path), "");
}

#endif

}  // namespace
}  // namespace velmora
