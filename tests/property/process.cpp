#include "property/process.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "app/screens.h"
#include "forms/screen.h"

namespace velmora::property {

namespace {

/// Thrown by the end of the process: nothing of the handler runs behind it.
struct Ended {};

template <class T>
T* StateOf(const Control* control) {
    if (control == nullptr) return nullptr;
    auto* const* const state = std::get_if<T*>(&control->state);
    return state == nullptr ? nullptr : *state;
}

bool TakesFocus(const Control& control) { return control.row.tab != kNoTab; }

bool IsFreeText(const Control& control) {
    return control.events.free_text || !control.events.KeyPress;
}

bool HasItem(const Control& list, std::string_view item) {
    return std::ranges::find(list.row.items, item) != list.row.items.end();
}

bool TakesKeys(const Control* control) {
    if (control == nullptr || !TakesFocus(*control)) return false;
    if (const auto* const list = StateOf<ComboBox>(control)) return list->Visible;
    const auto* const cell = StateOf<TextCell>(control);
    return cell != nullptr && cell->Visible;
}

}  // namespace

std::string LetterOf(int key) {
    if (key < 128) return {static_cast<char>(key)};
    return {static_cast<char>(0xC0 | key >> 6), static_cast<char>(0x80 | (key & 0x3F))};
}

std::string WithoutLastLetter(std::string text) {
    while (!text.empty()) {
        const auto byte = static_cast<unsigned char>(text.back());
        text.pop_back();
        if ((byte & 0xC0U) != 0x80U) break;  // the first byte of the letter went
    }
    return text;
}

MsgBoxAnswer AnsweringHost::MsgBox(std::string_view prompt, MsgBoxStyle style,
                                   std::string_view title) {
    const MsgBoxAnswer answer = style == MsgBoxStyle::Ok ? MsgBoxAnswer::Ok : action_->answer;
    outcome_->boxes.push_back({std::string(prompt), style, std::string(title), answer});
    return answer;
}

void AnsweringHost::ShowSave(CommonDialog& dialog) {
    outcome_->file_dialogs.push_back(dialog);
    if (action_->file) dialog.FileName = (folder_ / *action_->file).string();
}

void AnsweringHost::ShowPrinter(CommonDialog& dialog) { outcome_->print_dialogs.push_back(dialog); }

void AnsweringHost::PrintForm() { ++outcome_->prints; }

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
    outcome_->ended = status;
    throw Ended{};
}

Process::Process(const std::filesystem::path& folder)
    : host_(folder, outcome_), chain_([this](ScreenId id) {
          ++outcome_.screens_made;
          return MakeScreen(id, Environment{record, chain_, host_});
      }) {
    chain_.Go(ScreenId::Form1);
}

void Process::Open(ScreenId id) {
    if (id != Current().Id()) chain_.Go(id);
    chain_.Settle();
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
    const auto* const button = StateOf<Button>(control);
    const auto* const list = StateOf<ComboBox>(control);
    const auto* const cell = StateOf<TextCell>(control);
    switch (action.kind) {
        case Kind::Press:
            return button != nullptr && button->Visible && button->Enabled;
        case Kind::Pick:
            return list != nullptr && list->Visible && !list->Locked &&
                   HasItem(*control, action.text);
        case Kind::Key:
            return TakesKeys(control);
        case Kind::Write:
            return cell != nullptr && TakesKeys(control) && !cell->Locked && IsFreeText(*control);
        case Kind::DoubleClick:
            return cell != nullptr && cell->Visible && control->events.DblClick != nullptr;
        default:
            return false;
    }
}

const Outcome& Process::Perform(const Action& action) {
    outcome_ = {};
    host_.Answer(action);
    try {
        Do(action);
        if (!action.at_once) chain_.Settle();
    } catch (const Ended&) {
    } catch (const ErrorEjecucion& error) {
        outcome_.error = error.Kind();
    } catch (const std::exception& error) {
        outcome_.foreign_exception = error.what();
    }
    return outcome_;
}

void Process::Do(const Action& action) {
    using Kind = Action::Kind;
    Screen& screen = Current();
    const Control* const control = screen.FindControl(action.target);
    switch (action.kind) {
        case Kind::Press:
        case Kind::DoubleClick:
            (action.kind == Kind::Press ? control->events.Click : control->events.DblClick)();
            break;
        case Kind::Pick:
            StateOf<ComboBox>(control)->Text = action.text;
            if (control->events.Click) control->events.Click();
            break;
        case Kind::Key:
            Type(*control, action.number);
            break;
        case Kind::Write:
            StateOf<TextCell>(control)->Text = action.text;
            break;
        case Kind::Choose:
            screen.FindEntry(action.target)->Click();
            break;
        case Kind::Tick:
            host_.Wait(action.number);
            screen.Timer1_Timer();
            break;
        default:
            break;
    }
}

void Process::Type(const Control& control, int key) {
    KeyCode code = key;
    if (control.events.KeyPress) control.events.KeyPress(code);
    auto* const cell = StateOf<TextCell>(&control);
    if (code == kKeyRefused || cell == nullptr || cell->Locked) return;
    if (code == kBackspace)
        cell->Text = WithoutLastLetter(cell->Text);
    else if (IsLetter(code))
        cell->Text += LetterOf(code);
}

}  // namespace velmora::property
