#include <algorithm>
#include <array>
#include <cmath>

#include "core/numbers.h"
#include "property/invariant.h"
#include "property/judging.h"

namespace velmora::property {

namespace {

using enum ScreenId;

/// Half of the last digit of a text with two decimals, and the dust of its reading.
double RoundingOf(double number) { return 0.005 + 1e-9 * std::fabs(number); }

/// Numbers that no sum or product of the sheet takes out of the range of exact texts.
bool IsPlain(const Step& s) {
    return HasSoundSamples(s.record_before) && HasSoundCounts(s.record_before) &&
           !HasExtremeCells(s.before) && !HasExtremeNumbers(s.record_before);
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

Verdict AValidationGivesEachRowAMeanThatSuitsIt(const Step& s) {
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
        const std::string fault = FaultOfMean(s, task, r);
        if (!fault.empty()) return Verdict::Broken("row ", r, ": ", fault);
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

}  // namespace

const std::vector<Invariant> kCalculationInvariants = {
    {"A validation gives each row in use a mean that suits its samples, and no other row.",
     AValidationGivesEachRowAMeanThatSuitsIt},
    {"MG and GSD on the sheet are those of the record.",
     TheDailyIndexShowsTheStatisticsOfTheRecord},
    {"A mixture's limit lies between those of its members, in the cell of its first one.",
     AMixturesLimitLiesBetweenThoseOfItsMembers},
    {"A mixture's mean lies between the sums of its members' samples.",
     AMixturesMeanLiesBetweenItsSums},
    {"A probability is one of seven classes, and the right one at both ends.",
     AProbabilityIsAClassAndTheRightOneAtBothEnds},
};

}  // namespace velmora::property
