#pragma once

#include <ctime>
#include <functional>
#include <string>
#include <string_view>

#include "core/record.h"
#include "forms/host.h"
#include "sheet/form5.h"
#include "support/core.h"

namespace velmora::bench {

[[noreturn]] void Unexpected(std::string_view what);

/// The present date and time, local.
std::tm LocalTime();

/// A toolkit that opens nothing, from `Host` or what derives from it. A box, a dialog or an end,
/// which the measured uses don't have, throws std::logic_error.
template <class Base>
class Quiet : public Base {
public:
    MsgBoxAnswer MsgBox(std::string_view prompt, MsgBoxStyle /*style*/,
                        std::string_view /*title*/) override {
        Unexpected(prompt);
    }
    void ShowSave(CommonDialog& /*dialog*/) override { Unexpected("a file dialog"); }
    void ShowPrinter(CommonDialog& /*dialog*/) override { Unexpected("a print dialog"); }
    void PrintForm() override { Unexpected("a print"); }
    void End(int /*status*/) override { Unexpected("the end"); }
    std::tm Now() const override {
        ++ticks_;
        return LocalTime();
    }

    /// How often the time was asked for: once at each tick of the clock.
    long ticks() const { return ticks_; }

private:
    mutable long ticks_ = 0;
};

/// Fills the record with the worked day's plan.
void PlanWorkedDay(EvaluacionRecord& record);

/// Fills the record from an evaluation of three days.
void Restore(const std::string& file, EvaluacionRecord& record);

/// Record and screens, without a window.
using Core = velmora::Core<Quiet<Host>>;

/// Every button of the sheet, in the order of a day of three tasks: "Command1" to "Command8".
inline constexpr int kButtons = 8;
const std::function<void()>& HandlerOf(const Screen& screen, int button);

/// Lays the day out and types its measurements key by key, those that `slot` holds.
void TypeDay(const Form5& sheet, int day, const DaySheet& slot);

/// The three days of an evaluation and its final table, from a record that holds the plan, with the
/// measurements of `measured`. Throws std::logic_error unless the record comes to hold what
/// `measured` holds.
void Evaluate(Core& core, const EvaluacionRecord& measured);

/// The sheet of the worked day, from its plan: one task of eight hours, three contaminants, all its
/// buttons pressed.
Form5& WorkDay(Core& core);

/// The record without what the sheet and the final table came to.
EvaluacionRecord PlanOf(EvaluacionRecord record);

}  // namespace velmora::bench
