// Compares the program with the tables beside this file. They were computed by `reference.py`, an
// independent program, in decimal arithmetic of 60 digits; no figure in them is the program's own.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <iostream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "runtime/error.h"
#include "sheet/form5.h"
#include "stats/statistics.h"
#include "support/velmora_test.h"

namespace velmora {
namespace {

/// One line of a table, by the names of its columns.
using Line = std::map<std::string, std::string, std::less<>>;

std::vector<std::string> Split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (std::size_t end = 0; end != std::string_view::npos;) {
        end = text.find(separator);
        parts.emplace_back(text.substr(0, end));
        if (end != std::string_view::npos) text.remove_prefix(end + 1);
    }
    return parts;
}

/// The lines of a table of this folder; no cell holds a comma or a quote.
std::vector<Line> Table(const std::string& name) {
    std::ifstream file(REFERENCE_FOLDER "/" + name);
    std::string text;
    std::getline(file, text);
    const std::vector<std::string> columns = Split(text, ',');
    std::vector<Line> lines;
    while (std::getline(file, text)) {
        const std::vector<std::string> cells = Split(text, ',');
        EXPECT_EQ(cells.size(), columns.size()) << name << ": " << text;
        Line& line = lines.emplace_back();
        for (std::size_t i = 0; i < std::min(cells.size(), columns.size()); ++i) {
            line[columns[i]] = cells[i];
        }
    }
    return lines;
}

const std::vector<Line>& DataSets() {
    static const std::vector<Line> lines = Table("data_sets.csv");
    return lines;
}

double Number(std::string_view text) { return LeerValor(text).Value(); }

/// What the table says of a column that stands within 1e-12 of a border: the text on the other
/// side of the border, or "~" where every Double of this size is near one.
std::optional<std::string> OtherText(const Line& set, std::string_view column) {
    for (const std::string& entry : Split(set.at("near"), '|')) {
        if (entry.starts_with(std::string(column) + ":")) return entry.substr(column.size() + 1);
    }
    return std::nullopt;
}

/// Whether the ladder's `column` stands within 1e-12 of a threshold.
bool IsNearAThreshold(const Line& set, std::string_view column) {
    const auto entries = Split(set.at("near"), '|');
    return std::ranges::find(entries, column) != entries.end();
}

/// An error of a few roundings. The factor of the mean is an exponential of the deviation, so that
/// the deviation's own error grows with it.
double Tolerance(const Line& set) { return 1e-14 * std::max(1.0, Number(set.at("gsd"))); }

void ExpectClose(Doble value, const std::string& expected, double tolerance) {
    EXPECT_NEAR(value.Value(), Number(expected), tolerance * std::fabs(Number(expected)));
}

Muestras SamplesOf(const Line& set) {
    Muestras samples;
    int i = 0;
    for (const std::string& text : Split(set.at("samples"), ' ')) samples(++i) = LeerValor(text);
    return samples;
}

constexpr int kC1 = 7;  ///< columns of `Text1`
constexpr int kMmp = 13;
constexpr int kIndex = 14;
constexpr int kMg = 16;
constexpr int kGsd = 17;
constexpr int kEcPlus = 0;  ///< columns of `Text3`
constexpr int kMgPlus = 1;
constexpr int kGsdPlus = 2;
constexpr int kProb = 3;

/// The sheet of one day, one task and one contaminant in its first row.
class ReferenceTest : public test::VelmoraTest {
protected:
    /// Lays the sheet out and types the measurements through the key filter.
    void TypeInto(const Line& set) {
        record = EvaluacionRecord{};
        record.NumJornadas = 1;
        record.NumTareas = 1;
        record.NumContaminantes(1) = 1;
        record.Muestras15(1, 1) = 1;
        record.TiempoExposicion(1, 1) = LeerValor(set.at("hours"));
        record.VlaEd(1, 1) = LeerValor(set.at("ed"));
        record.VlaEc(1, 1) = LeerValor(set.at("ec"));
        auto& form = Open<Form5>(ScreenId::Form5);
        Choose("introprimero");
        int cell = kC1;
        for (const std::string& text : Split(set.at("samples"), ' ')) {
            Type(Indexed("Text1", cell), text);
            EXPECT_EQ(form.Text1(cell).Text, text);
            ++cell;
        }
    }

    /// Presses the buttons up to the class of probability, or to the run-time error that the
    /// outcome stands for; true when the row's cells are to be compared.
    bool PressThrough(const std::string& outcome) {
        if (outcome == "one usable sample") {
            test::ExpectError(ErrorKind::InvalidOperation, [&] { Press("Command1"); });
            return false;
        }
        if (outcome == "mean too large") {
            test::ExpectError(ErrorKind::Overflow, [&] { Press("Command1"); });
            return false;
        }
        Press("Command1");
        Press("Command4");
        if (outcome == "mean shown as zero") {
            test::ExpectError(ErrorKind::DivisionByZero, [&] { Press("Command5"); });
        } else {
            EXPECT_EQ(outcome, "shown");
            Press("Command5");
        }
        return true;
    }

    /// The text of the table; near a border the text on its other side will do, and a number
    /// without decimals to compare is compared as a number. Tells whether the table's text is it.
    bool ExpectText(const Line& set, const std::string& column, int cell) {
        const std::string& shown = Current<Form5>().Text1(cell).Text;
        const std::string& expected = set.at(column + "_text");
        const auto other = OtherText(set, column);
        if (!other) {
            EXPECT_EQ(shown, expected) << column;
            return shown == expected;
        }
        Near& near = *other == "~" ? beyond_ : ties_;
        ++near.cells;
        if (shown == expected) ++near.as_told;
        if (*other == "~") {
            EXPECT_NEAR(Number(shown), Number(expected), Number(expected) * 2 * Tolerance(set))
                << column;
        } else {
            EXPECT_TRUE(shown == expected || shown == *other)
                << column << " shows " << shown << ", not " << expected << " nor " << *other;
        }
        return shown == expected;
    }

    void ExpectShort(const Line& set) {
        Form5& form = Current<Form5>();
        EXPECT_EQ(form.Text3(kEcPlus).Text, set.at("ec_plus"));
        EXPECT_EQ(form.Text3(kMgPlus).Text, set.at("mg_plus"));
        EXPECT_EQ(form.Text3(kGsdPlus).Text, set.at("gsd_plus"));
        if (!IsNearAThreshold(set, "prob")) {
            EXPECT_EQ(form.Text3(kProb).Text, set.at("prob"));
        }
    }

    /// Cells within 1e-12 of a border, and how many of these show the table's own text.
    struct Near {
        int cells = 0;
        int as_told = 0;
    };
    Near ties_;    ///< below 1e10: on the border itself, but for chance
    Near beyond_;  ///< from 1e10 on, where the second decimal lies beyond the twelfth digit
};

TEST(ReferenceTables, HoldAThousandDifferentDataSets) {
    std::set<std::string> ids;
    std::set<std::string> inputs;
    for (const Line& set : DataSets()) {
        ids.insert(set.at("id"));
        inputs.insert(set.at("samples") + "/" + set.at("ed") + "/" + set.at("ec"));
    }
    EXPECT_EQ(ids.size(), DataSets().size());
    EXPECT_GE(inputs.size(), 1000U);
}

TEST_F(ReferenceTest, TheSheetShowsWhatTheIndependentProgramComputes) {
    int behind = 0;  // the rest of the row follows from a text on the other side of its border
    for (const Line& set : DataSets()) {
        SCOPED_TRACE(set.at("id") + ": " + set.at("samples"));
        TypeInto(set);
        if (!PressThrough(set.at("outcome"))) continue;
        ExpectText(set, "mmp", kMmp);
        ExpectText(set, "index", kIndex);
        const bool mg_as_told = ExpectText(set, "mg", kMg);
        const bool gsd_as_told = ExpectText(set, "gsd", kGsd);
        if (mg_as_told && gsd_as_told) {
            ExpectShort(set);
        } else {
            ++behind;
        }
        if (HasFailure()) break;  // one row tells enough
    }
    std::ptrdiff_t told = 0;
    for (const Line& set : DataSets()) told += std::ranges::count(set.at("near"), ':');
    EXPECT_EQ(ties_.cells + beyond_.cells, told);
    EXPECT_GE(ties_.cells, 100);
    EXPECT_LE(behind, ties_.cells - ties_.as_told);
    std::cout << DataSets().size() << " data sets. Within 1e-12 of a border: " << ties_.cells
              << " cells below 1e10, " << ties_.as_told << " with the table's own text; "
              << beyond_.cells << " cells from 1e10 on, " << beyond_.as_told
              << " with the table's own text. Rows not compared behind such a cell: " << behind
              << "\n";
}

TEST(ReferenceRoutines, GiveTheMeansAndDeviationsOfSixtyDigits) {
    int compared = 0;
    for (const Line& set : DataSets()) {
        SCOPED_TRACE(set.at("id") + ": " + set.at("samples"));
        EvaluacionRecord record;
        if (set.at("outcome") == "one usable sample") {
            test::ExpectError(ErrorKind::InvalidOperation,
                              [&] { MediaEstimada(record, SamplesOf(set), 1, 1, 1); });
            continue;
        }
        if (set.at("outcome") == "mean too large") {
            test::ExpectError(ErrorKind::Overflow,
                              [&] { MediaEstimada(record, SamplesOf(set), 1, 1, 1); });
            continue;
        }
        const Doble mean = MediaEstimada(record, SamplesOf(set), 3, 2, 6);
        ExpectClose(mean, set.at("mean"), Tolerance(set));
        ExpectClose(record.MG(3, 2, 6), set.at("mg"), 1e-14);
        ExpectClose(record.GSD(3, 2, 6), set.at("gsd"), 1e-14);
        ++compared;
    }
    EXPECT_GE(compared, 1000);
}

TEST(ReferenceRoutines, GiveTheClassOfUnroundedFigures) {
    int compared = 0;
    for (const Line& set : DataSets()) {
        if (set.at("raw_class").empty() || IsNearAThreshold(set, "raw_class")) continue;
        SCOPED_TRACE(set.at("id"));
        const Doble ratio = LeerValor(set.at("ec_plus")) / LeerValor(set.at("mg"));
        EXPECT_EQ(ProbabilidadExceso(ratio, LeerValor(set.at("gsd"))).Value(),
                  Number(set.at("raw_class")));
        ++compared;
    }
    EXPECT_GE(compared, 1000);
}

TEST(ReferenceLadder, TurnsAtEachThreshold) {
    const std::vector<Line> lines = Table("ladder.csv");
    EXPECT_EQ(lines.size() % 5, 0U);
    EXPECT_GE(lines.size(), 50U);
    for (const Line& line : lines) {
        SCOPED_TRACE(line.at("ratio") + ", rung " + line.at("rung"));
        const Doble ratio = LeerValor(line.at("ratio"));
        const Doble threshold = LeerValor(line.at("threshold"));
        EXPECT_EQ(ProbabilidadExceso(ratio, threshold * (1 - 1e-9)).Value(),
                  Number(line.at("class_below")));
        EXPECT_EQ(ProbabilidadExceso(ratio, threshold * (1 + 1e-9)).Value(),
                  Number(line.at("class_above")));
    }
}

TEST(ReferenceLadder, DiffersFromTheExactTailAsTheTableCounts) {
    std::map<std::pair<std::string, std::string>, int> counts;
    for (const Line& set : DataSets()) {
        if (set.at("outcome") != "shown") continue;
        const Doble ratio = LeerValor(set.at("ec_plus")) / LeerValor(set.at("mg_plus"));
        const Doble shown = ProbabilidadExceso(ratio, LeerValor(set.at("gsd_plus")));
        ++counts[{TextoDoble(shown), set.at("exact_class")}];
    }
    int differ = 0;
    for (const Line& line : Table("differences.csv")) {
        const auto pair = std::pair(line.at("ladder"), line.at("exact"));
        EXPECT_EQ(counts[pair], Number(line.at("data_sets"))) << pair.first << ", " << pair.second;
        if (pair.first != pair.second) differ += counts[pair];
    }
    EXPECT_GT(differ, 0);
}

TEST(ReferenceLadder, ExactClassesAreThoseOfTheNormalTail) {
    // std::erfc, good to fifteen digits, against the table's tails of sixty.
    int compared = 0;
    for (const Line& set : DataSets()) {
        if (set.at("outcome") != "shown" || set.at("gsd_plus") == "1") continue;
        SCOPED_TRACE(set.at("id"));
        const double ratio = Number(set.at("ec_plus")) / Number(set.at("mg_plus"));
        const double z = std::log(ratio) / std::log(Number(set.at("gsd_plus")));
        const double percent = 50 * std::erfc(z / std::sqrt(2.0));
        if (percent < 1e-200) continue;  // the relative error of erfc grows with z
        EXPECT_NEAR(percent, Number(set.at("tail_percent")), 1e-7 * Number(set.at("tail_percent")));
        ++compared;
    }
    EXPECT_GE(compared, 1000);
}

TEST_F(ReferenceTest, PublishedDataSetsShowTheFiguresPrintedWithThem) {
    int printed = 0;
    for (const Line& set : DataSets()) {
        if (set.at("printed_mg").empty()) continue;
        SCOPED_TRACE(set.at("source"));
        TypeInto(set);
        PressThrough(set.at("outcome"));
        EXPECT_EQ(Current<Form5>().Text1(kMg).Text, set.at("printed_mg"));
        EXPECT_EQ(Current<Form5>().Text1(kGsd).Text, set.at("printed_gsd"));
        ++printed;
    }
    EXPECT_GE(printed, 1);
}

}  // namespace
}  // namespace velmora
