#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "property/invariant.h"
#include "property/judging.h"
#include "support/menus.h"

namespace velmora::property {

namespace {

bool IsDivisionBy0(ErrorKind error) {
    return error == ErrorKind::InvalidOperation || error == ErrorKind::DivisionByZero;
}

bool IsOutOfBounds(ErrorKind error) {
    return error == ErrorKind::SubscriptOutOfRange || error == ErrorKind::Overflow;
}

bool HasNegativeSamples(const Screenshot& sheet) {
    const auto Text1 = sheet.Cells("Text1");
    for (int row = 0; row < 18; ++row) {
        for (int c = Col::kC1; c <= Col::kC6; ++c) {
            if (Text1(row * 18 + c).Text.starts_with('-')) return true;
        }
    }
    return false;
}

/// Whether a row's samples lie so far apart that the correction factor overflows.
bool HasWideSamples(const Screenshot& sheet, int task) {
    for (int c = 1; c <= 6; ++c) {
        const std::vector<double> samples = UsableSamples(sheet, task, c);
        if (samples.size() < 3) continue;
        const auto [least, most] = std::ranges::minmax(samples);
        if (!(std::log(most / least) < 8)) return true;
    }
    return false;
}

/// Whether arithmetic on the screen and the plan goes beyond what these sentences follow.
bool IsBeyondCalculation(const Step& s) {
    return HasExtremeCells(s.before) || HasExtremeNumbers(s.record_before);
}

/// A row that a press of a task's "Validar" computes with a single sample.
int RowWithOneSample(const Step& s, int task) {
    const int rows = std::min(6, SampledRows(s.record_before, s.before.Day(), task));
    for (int row = 1; row <= rows; ++row) {
        if (UsableSamples(s.before, task, row).size() == 1) return row;
    }
    return 0;
}

/// Whether the record is such that the move or the press may look for an element that isn't there.
bool MayMissAnElement(const Step& s) {
    const EvaluacionRecord& record = s.record_before;
    const bool sound_counts = HasSoundCounts(record);
    if (s.before.Id() == ScreenId::Form4 && s.action.target == "Combo1") return !sound_counts;
    if (s.Pressed(ScreenId::Form6, "Command1")) return !sound_counts;
    if (ValidatedTask(s) != 0 || EvaluatedTask(s) != 0) return !sound_counts;
    if (s.before.Id() == ScreenId::Form5 &&
        (s.action.target.starts_with("intro") || s.action.target.starts_with("recup"))) {
        return !HasSoundSamples(record);
    }
    const bool opens_plan = s.action.target == "datosiniciales";
    return opens_plan && !HasSoundSize(record);
}

/// The sheet with its plan is one that these sentences follow to the end.
bool IsPlainSheet(const Step& s) {
    return HasSoundCounts(s.record_before) && HasSoundSamples(s.record_before) &&
           !IsBeyondCalculation(s) && !HasNegativeSamples(s.before);
}

Verdict NothingElseIsThrown(const Step& s) {
    if (s.outcome.foreign_exception.empty()) return Verdict::Holds();
    return Verdict::Broken("thrown: ", s.outcome.foreign_exception);
}

Verdict ASubscriptErrorNeedsAnOddPlan(const Step& s) {
    if (!s.outcome.error || *s.outcome.error != ErrorKind::SubscriptOutOfRange) {
        return Verdict::Holds();
    }
    if (MayMissAnElement(s)) return Verdict::Holds();
    const int task = EvaluatedTask(s);
    if (task != 0) {  // a group whose first row has lost its number
        const auto Text1 = s.before.Cells("Text1");
        for (const Group& group :
             GroupsOf(s.before, task, s.record_before.NumContaminantes(task).Value())) {
            const double number = Value(Text1(At(task, group.members.front(), Col::kNumber)).Text);
            if (number < 0.5 || number >= 6.5) return Verdict::Holds();
        }
    }
    return Verdict::Broken("an array was asked for an element that it doesn't have");
}

Verdict AnErrorComesOnlyWhereItIsNamed(const Step& s) {
    if (!s.outcome.error || *s.outcome.error == ErrorKind::SubscriptOutOfRange) {
        return Verdict::Holds();
    }
    const ErrorKind error = *s.outcome.error;
    if (IsOutOfBounds(error) && (MayMissAnElement(s) || IsBeyondCalculation(s))) {
        return Verdict::Holds();
    }
    const int task = ValidatedTask(s);
    if (task != 0) {
        const bool wide = error == ErrorKind::Overflow && HasWideSamples(s.before, task);
        const bool negative = error == ErrorKind::InvalidArgument && HasNegativeSamples(s.before);
        const bool single = error == ErrorKind::InvalidOperation && RowWithOneSample(s, task) != 0;
        if (wide || negative || single) return Verdict::Holds();
    }
    if (EvaluatedTask(s) != 0) {
        const bool negative = error == ErrorKind::InvalidArgument && HasNegativeSamples(s.before);
        if (negative || IsDivisionBy0(error)) return Verdict::Holds();
    }
    if (s.Pressed(ScreenId::Form6, "Command1") && error == ErrorKind::InvalidOperation) {
        for (int row = 1; row <= 18; ++row) {
            for (int column = 3; column <= 5; ++column) {
                if (s.record_before.HojaFinal(row, column).starts_with('-')) {
                    return Verdict::Holds();
                }
            }
        }
    }
    return Verdict::Broken(MessageOf(error));
}

Verdict ASingleSampleIsNeverGivenAValue(const Step& s) {
    const int task = ValidatedTask(s);
    if (task == 0 || s.Refused() || !IsPlainSheet(s) || HasWideSamples(s.before, task)) {
        return Verdict::PassedOver();
    }
    const int row = RowWithOneSample(s, task);
    const bool failed = s.outcome.error == ErrorKind::InvalidOperation;
    if (failed == (row != 0)) return Verdict::Holds();
    return row == 0 ? Verdict::Broken("no row has a single sample, and yet it failed")
                    : Verdict::Broken("row ", row, " has a single sample, and it didn't fail");
}

/// Whether laying out this plan must look for an element that isn't there.
bool MustMissAnElement(const Step& s) {
    const EvaluacionRecord& record = s.record_before;
    const int days = record.NumJornadas.Value();
    const int tasks = record.NumTareas.Value();
    const std::string& target = s.action.target;
    if (target == "datosiniciales" && s.action.kind == Action::Kind::Choose) {
        const bool opens = s.before.Id() != ScreenId::Form2 || !s.Refused();
        return opens && days > 0 && tasks > 0 && (days > 3 || tasks > 3);
    }
    if (s.before.Id() == ScreenId::Form4 && target == "Combo1" &&
        s.action.kind == Action::Kind::Pick) {
        const int task = static_cast<int>(Value(s.action.text));
        return task <= tasks && record.NumContaminantes(task) > 6;
    }
    const auto* const begun = std::ranges::find(kBeginDay, target);
    if (s.before.Id() == ScreenId::Form5 && begun != kBeginDay.end() && !s.Refused()) {
        const int day = 1 + static_cast<int>(begun - kBeginDay.begin());
        bool beyond = tasks >= 1 && SampledRows(record, day, 1) > 6;
        beyond = beyond || (tasks >= 2 && SampledRows(record, day, 2) > 6);
        return beyond || (tasks == 3 && SampledRows(record, day, 3) > 6);
    }
    return false;
}

Verdict APlanBeyondItsBoundsEndsTheProgram(const Step& s) {
    if (!MustMissAnElement(s)) return Verdict::PassedOver();
    if (s.outcome.error && IsOutOfBounds(*s.outcome.error)) return Verdict::Holds();
    return Verdict::Broken("it was laid out");
}

Verdict OnlyAConfirmedSalirEndsTheProcess(const Step& s) {
    const bool salir = s.action.kind == Action::Kind::Choose && s.action.target == "salir";
    const bool due = salir && s.action.answer != MsgBoxAnswer::No;
    if (due != s.outcome.ended.has_value()) {
        return Verdict::Broken(due ? "it didn't end" : "it ended");
    }
    if (due && *s.outcome.ended != 0) return Verdict::Broken("status ", *s.outcome.ended);
    return salir ? Verdict::Holds() : Verdict::PassedOver();
}

}  // namespace

const std::vector<Invariant> kErrorInvariants = {
    {"Nothing but a run-time error is ever thrown.", NothingElseIsThrown},
    {"An array lacks an element only for a plan beyond its bounds or a row without its number.",
     ASubscriptErrorNeedsAnOddPlan},
    {"A plan with more days, tasks or samples than there are rows ends the program when laid "
     "out.",
     APlanBeyondItsBoundsEndsTheProgram},
    {"A run-time error comes only where the rules name it, a division by 0 anywhere in a short "
     "exposure.",
     AnErrorComesOnlyWhereItIsNamed},
    {"A row in use with a single usable sample ends the program, and no other does.",
     ASingleSampleIsNeverGivenAValue},
    {"The process ends by a Salir that isn't answered No, with status 0, and by nothing else.",
     OnlyAConfirmedSalirEndsTheProcess},
};

}  // namespace velmora::property
