#include "property/process.h"

#include <exception>

#include "forms/screen.h"
#include "support/use.h"

namespace velmora::property {

namespace {

/// Thrown by the end of the process: nothing of the handler runs behind it.
struct Ended {};

}  // namespace

MsgBoxAnswer AnsweringHost::MsgBox(std::string_view prompt, MsgBoxStyle style,
                                   std::string_view title) {
    const MsgBoxAnswer answer = style == MsgBoxStyle::Ok ? MsgBoxAnswer::Ok : action_->answer;
    outcome.boxes.push_back({std::string(prompt), style, std::string(title), answer});
    return answer;
}

void AnsweringHost::ShowSave(CommonDialog& dialog) {
    outcome.file_dialogs.push_back(dialog);
    if (action_->file) dialog.FileName = (folder_ / *action_->file).string();
}

void AnsweringHost::ShowPrinter(CommonDialog& dialog) { outcome.print_dialogs.push_back(dialog); }

void AnsweringHost::PrintForm() { ++outcome.prints; }

std::tm AnsweringHost::Now() const {
    const auto day = std::chrono::floor<std::chrono::days>(now_);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(now_ - day);
    std::tm now{};
    now.tm_year = static_cast<int>(date.year()) - 1900;
    now.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    now.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    now.tm_hour = static_cast<int>(time.hours().count());
    now.tm_min = static_cast<int>(time.minutes().count());
    now.tm_sec = static_cast<int>(time.seconds().count());
    return now;
}

void AnsweringHost::End(int status) {
    outcome.ended = status;
    throw Ended{};
}

Process::Process(const std::filesystem::path& folder) : Core(folder) { chain.Go(ScreenId::Form1); }

void Process::Open(ScreenId id) {
    if (id != Current().Id()) chain.Go(id);
    chain.Settle();
}

bool Process::Offers(const Action& action) const {
    using Kind = Action::Kind;
    if (action.kind == Kind::Tick) return true;
    if (action.kind == Kind::Choose) {
        const MenuEntry* const entry = Current().FindEntry(action.target);
        return entry != nullptr && entry->Click != nullptr;
    }
    const Control* const control = Current().FindControl(action.target);
    if (control == nullptr) return false;
    switch (action.kind) {
        case Kind::Press:
            return use::TakesPress(*control);
        case Kind::Pick:
            return use::TakesPick(*control, action.text);
        case Kind::Key:
            return use::TakesKeys(*control);
        case Kind::Write:
            return use::TakesText(*control);
        case Kind::DoubleClick:
            return use::TakesDoubleClick(*control);
        default:
            return false;
    }
}

const Outcome& Process::Perform(const Action& action) {
    Outcome& outcome = host.outcome;
    outcome = {};
    const int made = screens_made;
    host.Answer(action);
    try {
        Do(action);
        if (!action.at_once) chain.Settle();
    } catch (const Ended&) {
    } catch (const ErrorEjecucion& error) {
        outcome.error = error.Kind();
    } catch (const std::exception& error) {
        outcome.foreign_exception = error.what();
    }
    outcome.screens_made = screens_made - made;
    return outcome;
}

void Process::Do(const Action& action) {
    using Kind = Action::Kind;
    Screen& screen = Current();
    switch (action.kind) {
        case Kind::Press:
            use::Press(screen, action.target);
            break;
        case Kind::DoubleClick:
            use::DoubleClick(screen, action.target);
            break;
        case Kind::Pick:
            use::Pick(screen, action.target, action.text);
            break;
        case Kind::Key:
            use::Key(use::Find(screen, action.target), action.number);
            break;
        case Kind::Write:
            use::Write(screen, action.target, action.text);
            break;
        case Kind::Choose:
            use::Choose(screen, action.target);
            break;
        case Kind::Tick:
            host.Wait(action.number);
            screen.Timer1_Timer();
            break;
        default:
            break;
    }
}

}  // namespace velmora::property
