#include <algorithm>
#include <array>
#include <cmath>

#include "core/numbers.h"
#include "property/invariant.h"
#include "property/judging.h"

namespace velmora::property {

namespace {

using enum ScreenId;

bool IsPoint() { return DecimalSeparator() == "."; }

/// Half of the last digit of a text with two decimals, and the dust of its reading.
double RoundingOf(double number) { return 0.005 + 1e-9 * std::fabs(number); }

/// Numbers that no sum or product of the sheet takes out of the range of exact texts.
bool IsPlain(const Step& s) {
    return HasSoundSamples(s.record_before) && HasSoundCounts(s.record_before) &&
           !HasExtremeCells(s.before) && !HasExtremeNumbers(s.record_before);
}

/// The message that must refuse a validation; empty when the task is to be computed.
std::string_view RefusalOfValidation(const Step& s, int task) {
    const auto Text1 = s.before.Cells("Text1");
    const auto filled = [&](int t, int r, int c) { return !Text1(At(t, r, c)).Text.empty(); };
    const int contaminants = s.record_before.NumContaminantes(task).Value();
    for (int r = 1; r <= contaminants; ++r) {
        if (Value(Text1(At(task, r, Col::kEd)).Text) == 0 &&
            Value(Text1(At(task, r, Col::kEc)).Text) == 0) {
            return "No se dispone de datos relativos a los contaminantes ";
        }
    }
    bool any = false;  // the first task's samples, whichever task is validated
    for (int r = 1; r <= 6; ++r) {
        for (int c = Col::kC1; c <= Col::kC6; ++c) any = any || filled(1, r, c);
    }
    if (!any) return task == 1 ? "No hay datos para operar" : " No hay datos para operar";
    for (int r = 1; r <= contaminants; ++r) {
        int samples = 0;
        for (int c = Col::kC1; c <= Col::kC6; ++c) samples += filled(task, r, c) ? 1 : 0;
        if (samples < 2) return "No hay datos suficientes para operar ";
    }
    for (int r = 1; r <= 6; ++r) {
        for (int c = Col::kC1; c < Col::kC6; ++c) {
            if (filled(task, r, c + 1) && Value(Text1(At(task, r, c)).Text) == 0) {
                return "No deje espacios vacios";
            }
        }
    }
    return {};
}

Verdict AValidationIsRefusedByItsFirstBrokenRule(const Step& s) {
    const int task = ValidatedTask(s);
    if (task == 0 || !HasSoundCounts(s.record_before) || HasExtremeCells(s.before)) {
        return Verdict::PassedOver();
    }
    const std::string_view due = RefusalOfValidation(s, task);
    const std::string_view shown =
        s.Refused() ? std::string_view(s.outcome.boxes.front().prompt) : std::string_view();
    if (shown == due) return Verdict::Holds();
    return Verdict::Broken("it said \"", shown, "\" and not \"", due, "\"");
}

/// A text of two decimals at most, with the separator and without a leading zero.
bool IsTwoDecimals(const std::string& text) {
    const std::string& separator = DecimalSeparator();
    const std::size_t at = text.find(separator);
    if (at == std::string::npos) return false;
    return text.size() - at - separator.size() <= 2 && !text.starts_with('0');
}

/// A geometric deviation is at least 1, and 1 for equal samples alone.
bool IsDeviation(double deviation, double least, double most) {
    if (least == most) return deviation >= 1 && deviation < 1 + 1e-7;
    const bool apart = most > least * (1 + 1e-6);
    return deviation >= (apart ? 1 + 1e-7 : 1);
}

/// What is wrong with the mean of a row that has just been computed.
std::string FaultOfMean(const Step& s, int task, int row) {
    const std::vector<double> samples = UsableSamples(s.before, task, row);
    const int day = s.before.Day();
    const std::string& text = s.after.Cells("Text1")(At(task, row, Col::kMmp)).Text;
    if (!IsTwoDecimals(text)) return Say("MMP is written ", text);
    const double mmp = Shows(text);
    const double mg = s.record_after.MG(day, task, row).Value();
    const double gsd = s.record_after.GSD(day, task, row).Value();
    if (samples.empty()) {
        const bool kept =
            s.record_before.MG(day, task, row) == mg && s.record_before.GSD(day, task, row) == gsd;
        return mmp == 0 && kept ? "" : "a row without samples has a mean";
    }
    const auto [least, most] = std::ranges::minmax(samples);
    if (mg < least * (1 - 1e-12) || mg > most * (1 + 1e-12)) {
        return Say("MG ", mg, " doesn't lie between its samples");
    }
    if (!IsDeviation(gsd, least, most)) return Say("GSD is ", gsd);
    // The factor is 1 for two samples, and otherwise never less, nor more than this.
    const double factor = samples.size() == 2 ? 1 : std::max(1.0, 0.8 * std::exp(0.2511 * gsd));
    if (mmp < mg - RoundingOf(mg) || mmp > mg * factor + RoundingOf(mg * factor)) {
        return Say("MMP ", mmp, " doesn't suit MG ", mg, " and GSD ", gsd);
    }
    return {};
}

/// What is wrong with the index of a row that has just been computed.
std::string FaultOfIndex(const Step& s, int task, int row) {
    const auto Text1 = s.after.Cells("Text1");
    const std::string& text = Text1(At(task, row, Col::kIndex)).Text;
    if (!IsTwoDecimals(text)) return Say("Indice is written ", text);
    const double limit = s.record_after.VlaEd(task, row).Value();
    if (limit == 0) return Shows(text) == 0 ? "" : "an index without a limit";
    // The sixth row of the second task takes the first day's time.
    const int day = task == 2 && row == 6 ? 1 : s.before.Day();
    const double per_mean = s.record_after.TiempoExposicion(day, task).Value() / (8 * limit);
    const double mmp = Shows(Text1(At(task, row, Col::kMmp)).Text);
    const double due = per_mean * mmp;
    const double margin = RoundingOf(due) + std::fabs(per_mean) * RoundingOf(mmp);
    if (std::fabs(Shows(text) - due) <= margin) return {};
    return Say("Indice is ", text, " where about ", due, " is due");
}

Verdict AValidationGivesEachRowItsMeanAndIndex(const Step& s) {
    const int task = ValidatedTask(s);
    if (task == 0 || s.Refused() || !s.Lives() || !IsPlain(s)) return Verdict::PassedOver();
    const int rows = SampledRows(s.record_before, s.before.Day(), task);
    const auto before = s.before.Cells("Text1");
    const auto after = s.after.Cells("Text1");
    for (int r = 1; r <= 6; ++r) {
        if (r > rows) {
            for (const int c : {Col::kMmp, Col::kIndex}) {
                if (before(At(task, r, c)).Text != after(At(task, r, c)).Text) {
                    return Verdict::Broken("row ", r, " isn't in use");
                }
            }
            continue;
        }
        for (const std::string& fault : {FaultOfMean(s, task, r), FaultOfIndex(s, task, r)}) {
            if (!fault.empty()) return Verdict::Broken("row ", r, ": ", fault);
        }
    }
    return Verdict::Holds();
}

constexpr int kRows = 18;
using Column = std::array<double, kRows + 1>;  ///< by sheet row, from 1

Column Values(const Screenshot& sheet, int column) {
    const auto Text1 = sheet.Cells("Text1");
    Column values{};
    for (int R = 1; R <= kRows; ++R) {
        values.at(static_cast<std::size_t>(R)) = Value(Text1(18 * (R - 1) + column).Text);
    }
    return values;
}

/// The sum of each group on its first row, and on the others if the group bears that row's number;
/// NaN where the cell is to be empty. Rows without a group hold their own index.
Column IndexPlusDue(const Column& groups, const Column& indices) {
    Column due;
    due.fill(std::nan(""));
    for (int k = 1; k <= 20; ++k) {
        std::size_t first = 0;
        double sum = 0;
        for (std::size_t R = 1; R <= kRows; ++R) {
            if (groups.at(R) != k) continue;
            if (first == 0) first = R;
            sum += indices.at(R);
        }
        if (first == 0) continue;
        const bool alone = Agree(sum, indices.at(first));
        if (!alone) due.at(first) = sum;
    }
    for (std::size_t R = 1; R <= kRows; ++R) {
        if (groups.at(R) == 0) due.at(R) = indices.at(R);
    }
    for (std::size_t R = 1; R <= kRows; ++R) {
        if (groups.at(R) != static_cast<double>(R)) continue;
        for (std::size_t M = R + 1; M <= kRows; ++M) {
            if (groups.at(M) == static_cast<double>(R)) {
                due.at(M) = std::isnan(due.at(R)) ? 0 : due.at(R);
            }
        }
    }
    return due;
}

Verdict TheDailyIndexSumsEachGroupOnce(const Step& s) {
    if (!s.Pressed(Form5, "Command4") || !s.Lives() || !IsPlain(s)) return Verdict::PassedOver();
    const auto Text1 = s.after.Cells("Text1");
    const Column groups = Values(s.before, Col::kGroup);
    const Column indices = Values(s.before, Col::kIndex);
    const Column due = IndexPlusDue(groups, indices);
    const bool small = std::ranges::max(indices) < 1e9;  // sums whose texts keep every decimal
    for (int R = 1; R <= kRows; ++R) {
        const auto at = static_cast<std::size_t>(R);
        const int row = 18 * (R - 1);
        const std::string& index_plus = Text1(row + Col::kIndexPlus).Text;
        if (groups.at(at) == 0) {
            if (index_plus != Text1(row + Col::kIndex).Text) {
                return Verdict::Broken("row ", R, " doesn't copy its index");
            }
        } else if (IsPoint() && small) {
            const bool agrees = std::isnan(due.at(at))
                                    ? index_plus.empty()
                                    : !index_plus.empty() && Agree(Value(index_plus), due.at(at));
            if (!agrees) return Verdict::Broken("Indic.+ of row ", R, " is \"", index_plus, "\"");
        }
    }
    return Verdict::Holds();
}

Verdict TheDailyIndexShowsTheStatisticsOfTheRecord(const Step& s) {
    if (!s.Pressed(Form5, "Command4") || !s.Lives() || !IsPlain(s)) return Verdict::PassedOver();
    const auto Text1 = s.after.Cells("Text1");
    for (int task = 1; task <= 3; ++task) {
        for (int c = 1; c <= 6; ++c) {
            const double mg = s.record_before.MG(s.before.Day(), task, c).Value();
            const double gsd = s.record_before.GSD(s.before.Day(), task, c).Value();
            const double mg_shown = Shows(Text1(At(task, c, Col::kMg)).Text);
            const double gsd_shown = Shows(Text1(At(task, c, Col::kGsd)).Text);
            if (std::fabs(mg_shown - mg) > RoundingOf(mg)) return Verdict::Broken("MG of ", c);
            if (std::fabs(gsd_shown - gsd) > RoundingOf(gsd)) return Verdict::Broken("GSD of ", c);
        }
    }
    return Verdict::Holds();
}

Verdict TheDailyIndexTakesTheFirstRowsThirdSampleIfItReadsAsTheSecond(const Step& s) {
    if (!s.Pressed(Form5, "Command4") || !s.Lives()) return Verdict::PassedOver();
    const auto Text1 = s.before.Cells("Text1");
    const bool equal = Value(Text1(8).Text) == Value(Text1(9).Text);
    const std::string due = equal ? "" : Text1(9).Text;
    if (s.after.Cells("Text1")(9).Text == due) return Verdict::Holds();
    return Verdict::Broken("C3 is \"", s.after.Cells("Text1")(9).Text, "\"");
}

Verdict AContaminantByItselfIsJudgedByItsOwnLimit(const Step& s) {
    const int task = EvaluatedTask(s);
    if (task == 0 || !s.Lives() || !IsPlain(s)) return Verdict::PassedOver();
    const auto Text1 = s.after.Cells("Text1");
    const auto Text3 = s.after.Cells("Text3");
    bool any = false;
    for (const int c : SinglesOf(s.before, task, s.record_before.NumContaminantes(task).Value())) {
        any = true;
        const double ec = Value(Text1(At(task, c, Col::kEc)).Text);
        const double limit = ec != 0 ? ec : 3 * Value(Text1(At(task, c, Col::kEd)).Text);
        const double mg = Value(Text1(At(task, c, Col::kMg)).Text);
        const double gsd = Value(Text1(At(task, c, Col::kGsd)).Text);
        if (!Agree(Shows(Text3(At3(task, c, Col::kEcPlus)).Text), limit)) {
            return Verdict::Broken("EC+ of contaminant ", c);
        }
        if (!Agree(Shows(Text3(At3(task, c, Col::kMgPlus)).Text), mg)) {
            return Verdict::Broken("MG+ of contaminant ", c);
        }
        if (!Agree(Shows(Text3(At3(task, c, Col::kGsdPlus)).Text), gsd)) {
            return Verdict::Broken("GSD+ of contaminant ", c);
        }
    }
    return any ? Verdict::Holds() : Verdict::PassedOver();
}

/// Index of the cell that takes the limit of a group, by the task and the group's first member.
int CellOfLimit(int task, int first) {
    const int right = At3(task, first, Col::kEcPlus);
    return task == 2 && first >= 3 ? right - 1 : right;
}

/// What the judge says of the groups of the task evaluated, the first broken one before all.
template <class Judge>
Verdict OfEachGroup(const Step& s, Judge judge) {
    const int task = EvaluatedTask(s);
    if (task == 0 || !s.Lives() || !IsPlain(s)) return Verdict::PassedOver();
    Verdict of_all = Verdict::PassedOver();
    for (const Group& group :
         GroupsOf(s.before, task, s.record_before.NumContaminantes(task).Value())) {
        const Verdict verdict = judge(task, group);
        if (verdict.IsBroken()) return verdict;
        if (verdict.Applies()) of_all = verdict;
    }
    return of_all;
}

Verdict AMixturesLimitLiesBetweenThoseOfItsMembers(const Step& s) {
    const auto Text1 = s.before.Cells("Text1");
    const auto Text3 = s.after.Cells("Text3");
    return OfEachGroup(s, [&](int task, const Group& group) {
        std::vector<double> limits;
        bool plain = true;
        double means = 0;
        for (const int c : group.members) {
            const double ec = Value(Text1(At(task, c, Col::kEc)).Text);
            limits.push_back(ec != 0 ? ec : 3 * Value(Text1(At(task, c, Col::kEd)).Text));
            const double mean = Value(Text1(At(task, c, Col::kMmp)).Text);
            plain = plain && mean >= 0 && limits.back() > 0;
            means += mean;
        }
        const int first = group.members.front();
        const int cell = CellOfLimit(task, first);
        const auto Prob = At3(task, first - 1, Col::kProb);
        // The row above has a class of its own to write where a limit has strayed.
        const bool overwritten =
            first > 1 && cell == Prob && !Text3(At3(task, first - 1, Col::kEcPlus)).Text.empty();
        if (!plain || means == 0 || overwritten) return Verdict::PassedOver();
        const auto [least, most] = std::ranges::minmax(limits);
        const double limit = Shows(Text3(cell).Text);
        if (limit < least * (1 - 1e-9) || limit > most * (1 + 1e-9)) {
            return Verdict::Broken("Text3(", cell, ") shows ", limit, ", not between ", least,
                                   " and ", most);
        }
        return Verdict::Holds();
    });
}

Verdict AMixturesMeanLiesBetweenItsSums(const Step& s) {
    const auto Text1 = s.before.Cells("Text1");
    const auto Text3 = s.after.Cells("Text3");
    return OfEachGroup(s, [&](int task, const Group& group) {
        const int number =
            static_cast<int>(Value(Text1(At(task, group.members.front(), Col::kNumber)).Text));
        if (number != group.members.front())
            return Verdict::PassedOver();  // a number that came from a file
        const auto [least, most] = std::ranges::minmax(group.sums);
        const double mean = s.record_after.MGmas(s.before.Day(), task, number).Value();
        const double deviation = s.record_after.GSDmas(s.before.Day(), task, number).Value();
        if (mean < least * (1 - 1e-12) || mean > most * (1 + 1e-12)) {
            return Verdict::Broken("MGmas is ", mean, ", not between ", least, " and ", most);
        }
        if (!IsDeviation(deviation, least, most)) {
            return Verdict::Broken("GSDmas is ", deviation);
        }
        if (!Agree(Shows(Text3(At3(task, number, Col::kMgPlus)).Text), mean) ||
            !Agree(Shows(Text3(At3(task, number, Col::kGsdPlus)).Text), deviation)) {
            return Verdict::Broken("the row of contaminant ", number, " shows something else");
        }
        return Verdict::Holds();
    });
}

Verdict AProbabilityIsAClassAndTheRightOneAtBothEnds(const Step& s) {
    const int task = EvaluatedTask(s);
    if (task == 0 || !s.Lives() || !IsPlain(s)) return Verdict::PassedOver();
    constexpr std::array kClasses = {0.0, 0.001, 0.01, 0.1, 1.0, 5.0, 50.0};
    const auto Text3 = s.after.Cells("Text3");
    for (int c = 1; c <= s.record_before.NumContaminantes(task).Value(); ++c) {
        if (Text3(At3(task, c, Col::kEcPlus)).Text.empty()) continue;
        const double p = Shows(Text3(At3(task, c, Col::kProb)).Text);
        if (std::ranges::find(kClasses, p) == kClasses.end()) {
            return Verdict::Broken("contaminant ", c, " has ", p);
        }
        const double limit = Value(Text3(At3(task, c, Col::kEcPlus)).Text);
        const double ratio = limit / Value(Text3(At3(task, c, Col::kMgPlus)).Text);
        const double deviation = Value(Text3(At3(task, c, Col::kGsdPlus)).Text);
        // Below a ratio of 0.9 all five curves are below 1; at 1.1 the first is above it.
        const bool sure = ratio > 0 && ratio < 0.9 && deviation >= 1;
        const bool safe = ratio > 1.1 && deviation == 1;
        if ((ratio <= 0 && p != 0) || (sure && p != 50) || (safe && p != 0.001)) {
            return Verdict::Broken("contaminant ", c, " has ", p, " at a ratio of ", ratio);
        }
    }
    return Verdict::Holds();
}

double Greatest(const Screenshot& sheet, std::string_view array, int first, int step, int last) {
    double greatest = 0;
    for (int i = first; i <= last; i += step) {
        greatest = std::max(greatest, Value(sheet.Cells(array)(i).Text));
    }
    return greatest;
}

Verdict TheConclusionsGiveTheGreatestIndexAndClass(const Step& s) {
    if (!s.Pressed(Form5, "Command8") || !s.Lives()) return Verdict::PassedOver();
    const double index = std::max(Greatest(s.before, "Text1", Col::kIndex, 18, 320),
                                  Greatest(s.before, "Text1", Col::kIndexPlus, 18, 321));
    const double probability = Greatest(s.before, "Text3", Col::kProb, 4, 71);
    if (!Agree(Shows(s.after.Cell("Text2").Text), index)) return Verdict::Broken("Text2");
    if (!Agree(Shows(s.after.Cell("Text4").Text), probability)) return Verdict::Broken("Text4");

    const std::size_t low_middle_high = index <= 0.1 ? 0 : index <= 1 ? 1 : 2;
    constexpr std::array<std::array<std::string_view, 2>, 3> kIndexSentences = {{
        {"EXPOSICIÓN INFERIOR AL VALOR LÍMITE/10: SITUACIÓN SEGURA",
         "DEBE PROCEDERSE A LA VALORACIÓN DE DOS DÍAS MÁS"},
        {"EXPOSICIÓN INFERIOR AL VALOR LÍMITE/10: SITUACIÓN SEGURA",
         "SE CONTINUA  CON EL PLAN DE MEDICIONES"},
        {"EXPOSICIÓN INFERIOR AL VALOR LÍMITE: SITUACIÓN SEGURA", "PLAN DE MEDICIONES FINALIZADO"},
    }};
    const std::string_view sentence =
        low_middle_high == 2
            ? "RIESGO INACEPTABLE DEBE PROCEDERSE A CORREGIR LA EXPOSICIÓN"
            : kIndexSentences.at(static_cast<std::size_t>(s.before.Day() - 1)).at(low_middle_high);
    if (s.after.Cell("Text5").Text != sentence) return Verdict::Broken("Text5 at ", index);
    const std::string_view class_sentence =
        probability <= 0.1 ? " BAJA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS"
        : probability <= 5 ? " SITUACIÓN DE INCERTIDUMBRE PARA EXPOSICIONES EN PERIODOS CORTOS"
                           : "ALTA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS";
    if (s.after.Cell("Text6").Text == class_sentence) return Verdict::Holds();
    return Verdict::Broken("Text6 at ", probability);
}

/// Index in `Text1` of the first sample over its limit among the rows of a sampling time, -1 when
/// there is none; `rows` counts the rows of that time.
int FirstSampleOver(const Screenshot& sheet, int minutes, int& rows) {
    const auto Text1 = sheet.Cells("Text1");
    const auto value = [&](int i) { return Value(Text1(i).Text); };
    for (int row = 0; row < 324; row += 18) {
        if (value(row + Col::kTm) != minutes) continue;
        ++rows;
        const double limit = minutes == 30 ? 3 * value(row + Col::kEd) : value(row + Col::kEc);
        for (int c = Col::kC1; c <= Col::kC6; ++c) {
            if (value(row + c) >= limit) return row + c;
        }
    }
    return -1;
}

Verdict TheFirstSampleOverItsLimitIsMarkedAndAnswered(const Step& s) {
    if (!s.Pressed(Form5, "Command8") || !s.Lives()) return Verdict::PassedOver();
    int rows = 0;
    Color mark = 250;
    int over = FirstSampleOver(s.before, 30, rows);
    if (over < 0) {
        over = FirstSampleOver(s.before, 15, rows);
        mark = 255;
    }
    const std::string due = over >= 0 ? "SI" : rows > 0 ? "NO" : s.before.Cell("Text7").Text;
    if (s.after.Cell("Text7").Text != due) return Verdict::Broken("Text7 isn't ", due);
    if (over < 0) return Verdict::Holds();
    const TextCell& cell = s.after.Cells("Text1")(over);
    if (cell.BackColor == mark && cell.ForeColor == kWindowBackground) return Verdict::Holds();
    return Verdict::Broken("Text1(", over, ") isn't marked");
}

Verdict TheFinalTableTakesTheIndicesAndClassesThatAreThere(const Step& s) {
    if (!s.Pressed(Form5, "Command8") || !s.Lives()) return Verdict::PassedOver();
    const auto Text1 = s.before.Cells("Text1");
    const auto Text3 = s.before.Cells("Text3");
    const int day = s.before.Day();
    for (int row = 1; row <= kRows; ++row) {
        const auto agrees = [&](const std::string& cell, int column) {
            const std::string& was = s.record_before.HojaFinal(row, column);
            const std::string& is = s.record_after.HojaFinal(row, column);
            return cell.empty() ? is == was : is == TextoDoble(Value(cell));
        };
        if (!agrees(Text1(row * 18 - 3).Text, 2 + day)) return Verdict::Broken("I of row ", row);
        if (!agrees(Text3(row * 4 - 1).Text, 6 + day)) return Verdict::Broken("P of row ", row);
    }
    return Verdict::Holds();
}

}  // namespace

const std::vector<Invariant> kCalculationInvariants = {
    {"A validation is refused by the first of its rules that is broken, with its own message.",
     AValidationIsRefusedByItsFirstBrokenRule},
    {"A validation gives each row in use a mean that suits its samples, and the index of it.",
     AValidationGivesEachRowItsMeanAndIndex},
    {"Indic.+ is the row's own index or the sum of its group, where the group's number lets "
     "it.",
     TheDailyIndexSumsEachGroupOnce},
    {"MG and GSD on the sheet are those of the record.",
     TheDailyIndexShowsTheStatisticsOfTheRecord},
    {"Command4 takes the first row's C3 if it reads as C2, and only then.",
     TheDailyIndexTakesTheFirstRowsThirdSampleIfItReadsAsTheSecond},
    {"A contaminant by itself is judged by its own limit, mean and deviation.",
     AContaminantByItselfIsJudgedByItsOwnLimit},
    {"A mixture's limit lies between those of its members, in the cell of its first one.",
     AMixturesLimitLiesBetweenThoseOfItsMembers},
    {"A mixture's mean lies between the sums of its members' samples.",
     AMixturesMeanLiesBetweenItsSums},
    {"A probability is one of seven classes, and the right one at both ends.",
     AProbabilityIsAClassAndTheRightOneAtBothEnds},
    {"The conclusions give the greatest index and class, and the sentences of the day.",
     TheConclusionsGiveTheGreatestIndexAndClass},
    {"The first sample over its limit is marked and answered, the 30-minute rows first.",
     TheFirstSampleOverItsLimitIsMarkedAndAnswered},
    {"HojaFinal takes the day's indices and classes that are there and keeps the others.",
     TheFinalTableTakesTheIndicesAndClassesThatAreThere},
};

}  // namespace velmora::property
