#include "property/world.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <string_view>

#include "core/numbers.h"
#include "property/say.h"
#include "support/files.h"
#include "support/menus.h"

namespace velmora::property {

namespace {

void WriteBytes(const std::filesystem::path& file, std::string_view bytes) {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// Where line `line`, counted from 1, begins; line 1525 is the end.
std::size_t StartOfLine(std::string_view bytes, int line) {
    std::size_t at = 0;
    for (int i = 1; i < line; ++i) at = std::min(bytes.find('\n', at), bytes.size() - 1) + 1;
    return at;
}

std::string Cut(const std::string& bytes, int lines, bool and_a_half) {
    const std::size_t end = StartOfLine(bytes, lines + 1);
    const std::size_t next = StartOfLine(bytes, lines + 2);
    return bytes.substr(0, and_a_half ? end + (next - end) / 2 : end);
}

std::string WithLine(const std::string& bytes, int line, const std::string& text) {
    const std::size_t start = StartOfLine(bytes, line);
    const std::size_t next = StartOfLine(bytes, line + 1);
    return bytes.substr(0, start) + text + "\r\n" + bytes.substr(next);
}

std::string WithBareLines(const std::string& bytes) {
    std::string bare;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes.compare(i, 2, "\r\n") != 0) bare += bytes[i];
    }
    if (bare.ends_with('\n')) bare.pop_back();
    return bare;
}

std::string MeaninglessBytes(int count) {
    std::mt19937 random(static_cast<unsigned>(count));
    std::string bytes;
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(random() % 256);
    return bytes;
}

bool RunsAClick(const Action& action) {
    return action.kind == Action::Kind::Press || action.kind == Action::Kind::Pick ||
           action.kind == Action::Kind::Choose;
}

bool IsFileAction(const Action& action) { return action.kind >= Action::Kind::CutFile; }

}  // namespace

std::optional<std::string> BytesOf(const std::filesystem::path& file) {
    if (!std::filesystem::is_regular_file(file)) return std::nullopt;
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

bool Step::Refused() const {
    return std::ranges::any_of(outcome.boxes,
                               [](const ShownBox& box) { return box.style == MsgBoxStyle::Ok; });
}

bool Step::Pressed(ScreenId screen, std::string_view button) const {
    return action.kind == Action::Kind::Press && before.Id() == screen && action.target == button;
}

bool Step::Chose(ScreenId screen, std::string_view entry) const {
    return action.kind == Action::Kind::Choose && before.Id() == screen && action.target == entry;
}

World::World(std::string separator)
    : folder_(test::MakeTemporaryFolder()), separator_before_(DecimalSeparator()) {
    SetDecimalSeparator(std::move(separator));
    Start();
}

World::~World() {
    SetDecimalSeparator(separator_before_);
    std::error_code ignored;  // a folder left behind is no fault of the program
    std::filesystem::remove_all(folder_, ignored);
}

void World::Start() {
    process_ = std::make_unique<Process>(folder_);
    started_ = true;
    shown_.Take(process_->Current());
    previous_.reset();
    own_ = true;
}

bool World::OffersFileAction(const Action& action) const {
    const auto file = disk_.find(action.target);
    if (file == disk_.end()) return false;
    // What was cut or filled with bytes isn't touched again: its lines can't be told any more.
    const bool whole = file->second.lines == kLinesOfAFile;
    return whole && (action.kind != Action::Kind::OddLine ||
                     (action.number >= 1 && action.number <= kLinesOfAFile));
}

void World::ChangeFile(const Action& action) {
    using Kind = Action::Kind;
    KnownFile& file = disk_[action.target];
    switch (action.kind) {
        case Kind::CutFile:
            file.bytes = Cut(file.bytes, action.number, action.number % 2 == 1);
            file.lines = action.number;
            if (action.number % 2 == 1) file.odd.insert(action.number + 1);
            break;
        case Kind::OddLine:
            file.bytes = WithLine(file.bytes, action.number, action.text);
            file.odd.insert(action.number);
            break;
        case Kind::BareLines:
            file.bytes = WithBareLines(file.bytes);
            break;
        default:
            file.bytes = MeaninglessBytes(action.number);
            file.lines = 0;
            for (int line = 1; line <= kLinesOfAFile; ++line) file.odd.insert(line);
            break;
    }
    WriteBytes(folder_ / action.target, file.bytes);
}

/// Keeps account of the file that the action saved to or read from.
void World::NoteFiles(const Action& action) {
    if (action.kind != Action::Kind::Choose || step_.outcome.file_dialogs.empty()) return;
    const std::string& held = step_.after.DialogFile();
    if (held.empty() || !step_.Lives()) return;
    const std::string name = std::filesystem::path(held).filename().string();
    if (action.target == "guardararchivo") {
        const auto bytes = BytesOf(held);
        if (!bytes) return;
        step_.saved = name;
        disk_[name] = {*bytes, step_.record_after, kLinesOfAFile, {}, own_};
    } else if (const auto file = disk_.find(name); file != disk_.end()) {
        step_.restored = name;
        own_ = own_ && file->second.own && file->second.IsWhole();
    }
}

/// Puts what the last step left, or what the start gave, ahead of this one.
void World::Begin(const Action& action) {
    step_.action = action;
    step_.folder = folder_;
    step_.disk = &disk_;
    step_.previous = previous_;
    step_.own_before = own_;
    step_.saved.clear();
    step_.restored.clear();
    std::swap(step_.before, step_.after);
    if (!step_.written.empty()) step_.record_before = step_.record_after;
    if (started_) {
        step_.before = shown_;
        step_.record_before = process_->record;
        step_.record_after = process_->record;
        started_ = false;
    }
}

/// Notes what the action has come to.
void World::TakeIn(const Action& action) {
    step_.now = process_->Now();
    step_.after.Take(process_->Current());
    step_.menu.reset();
    if (RunsAClick(action)) step_.menu = TextOf(process_->Current().Menu());
    step_.written = Differences(step_.record_before, process_->record);
    if (!step_.written.empty()) step_.record_after = process_->record;
    NoteFiles(action);
    step_.own_after = own_;
}

bool World::Perform(const Action& action) {
    const bool on_file = IsFileAction(action);
    if (on_file ? !OffersFileAction(action) : !process_->Offers(action)) return false;

    Begin(action);
    if (on_file) {
        ChangeFile(action);
        step_.outcome = {};
    } else {
        step_.outcome = process_->Perform(action);
    }
    TakeIn(action);

    previous_.reset();
    if (!step_.Lives())
        Start();
    else if (!step_.Moved())
        previous_ = action;
    return true;
}

}  // namespace velmora::property
