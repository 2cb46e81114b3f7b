#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>

#include "property/invariant.h"
#include "property/judging.h"
#include "store/evaluation_file.h"

namespace velmora::property {

namespace {

using enum ScreenId;

/// What a text comes back as from the file: up to a quote in it, a "?" for what Windows-1252 lacks.
/// The only such letter that the runs write is the omega.
std::string FromTheFile(const std::string& text) {
    std::string back = text.substr(0, text.find('"'));
    const std::string omega = "Ω";
    for (std::size_t at = back.find(omega); at != std::string::npos; at = back.find(omega)) {
        back.replace(at, omega.size(), "?");
    }
    return back;
}

bool ComesBack(const std::string& saved, const std::string& read) {
    return FromTheFile(saved) == read;
}
bool ComesBack(Entero saved, Entero read) { return saved == read; }
bool ComesBack(Doble saved, Doble read) {  // fifteen digits
    return std::fabs(saved.Value() - read.Value()) <= 1e-14 * std::fabs(saved.Value());
}

bool HasQuotes(const EvaluacionRecord& record) {
    bool found = false;
    WalkTogether(record, record, [&](const Element&, const auto& value, const auto&) {
        if constexpr (std::is_same_v<std::decay_t<decltype(value)>, std::string>) {
            found = found || value.find('"') != std::string::npos;
        }
    });
    return found;
}

Verdict FilesChangeBySavingAlone(const Step& s) {
    if (s.action.kind != Action::Kind::Choose || s.action.target == "imprimir") {
        return Verdict::PassedOver();
    }
    std::size_t found = 0;
    for (const auto& entry : std::filesystem::directory_iterator(s.folder)) {
        const std::string name = entry.path().filename().string();
        const auto known = s.disk->find(name);
        if (known == s.disk->end()) return Verdict::Broken("a file ", name, " has appeared");
        if (BytesOf(entry.path()) != known->second.bytes) {
            return Verdict::Broken("the file ", name, " has changed");
        }
        ++found;
    }
    return found == s.disk->size() ? Verdict::Holds() : Verdict::Broken("a file is gone");
}

Verdict TheDialogIsSetAsItsActionTells(const Step& s) {
    const bool reads = s.Chose(Form2, "recuperardatos");
    const bool writes = s.Chose(Form6, "guardararchivo");
    if (s.outcome.file_dialogs.size() != (reads || writes ? 1 : 0)) {
        return Verdict::Broken(s.outcome.file_dialogs.size(), " dialogs");
    }
    if (!reads && !writes) return Verdict::PassedOver();
    const CommonDialog& dialog = s.outcome.file_dialogs.front();
    if (dialog.DialogTitle != " Guardar datos") return Verdict::Broken("title");
    if (dialog.DefaultExt != "doc") return Verdict::Broken("extension");
    if (dialog.Flags != (writes ? 2629634U : 524288U)) return Verdict::Broken("flags");
    return dialog.FileName == s.before.DialogFile() ? Verdict::Holds()
                                                    : Verdict::Broken("the name it held");
}

Verdict ASavedFileHasAllItsLines(const Step& s) {
    if (s.saved.empty()) {
        const bool due = s.Chose(Form6, "guardararchivo") && s.action.file &&
                         std::filesystem::path(*s.action.file).has_stem() && *s.action.file != ".";
        return due ? Verdict::Broken("nothing was written") : Verdict::PassedOver();
    }
    const std::string& bytes = s.disk->at(s.saved).bytes;
    int lines = 0;
    for (std::size_t at = bytes.find("\r\n"); at != std::string::npos;
         at = bytes.find("\r\n", at + 2)) {
        ++lines;
    }
    if (lines != kLinesOfAFile || !bytes.ends_with("\r\n")) return Verdict::Broken(lines, " lines");
    const auto ends = std::count(bytes.begin(), bytes.end(), '\n');
    return ends == lines ? Verdict::Holds() : Verdict::Broken(ends, " ends of lines");
}

Verdict ASavedFileGivesTheSavedPartBackAndTheSameBytesAgain(const Step& s) {
    if (s.saved.empty()) return Verdict::PassedOver();
    EvaluacionRecord fresh;
    ReadEvaluation((s.folder / s.saved).string(), fresh);
    std::string fault;
    WalkTogether(s.record_after, fresh, [&](const Element& e, const auto& saved, const auto& read) {
        const bool due = e.line > 0 ? ComesBack(saved, read)
                                    : read == std::decay_t<decltype(read)>();  // left at zero
        if (!due && fault.empty()) fault = NameOf(e);
    });
    if (!fault.empty()) return Verdict::Broken(fault, " came back otherwise");
    if (HasQuotes(s.record_after)) return Verdict::Holds();

    const std::filesystem::path again = s.folder / "otra vez";
    WriteEvaluation(again.string(), fresh);
    const bool same = BytesOf(again) == s.disk->at(s.saved).bytes;
    std::filesystem::remove(again);
    return same ? Verdict::Holds() : Verdict::Broken("saved again, the bytes differ");
}

Verdict ARestoreTakesWhatTheFileSuppliesAndNothingElse(const Step& s) {
    if (!s.Chose(Form2, "recuperardatos")) return Verdict::PassedOver();
    if (s.restored.empty()) {
        return s.written.empty() ? Verdict::Holds()
                                 : Verdict::Broken(NameOf(s.written.front()), " without a file");
    }
    const KnownFile& file = s.disk->at(s.restored);
    std::string fault;
    const auto judge = [&](const Element& e, const auto& before, const auto& after) {
        const bool supplied = e.line > 0 && e.line <= file.lines;
        if (file.odd.contains(e.line) || supplied) return;
        if (!(before == after) && fault.empty()) fault = NameOf(e);
    };
    WalkTogether(s.record_before, s.record_after, judge);
    if (!fault.empty()) return Verdict::Broken(fault, " changed, though the file lacks it");
    WalkTogether(file.record, s.record_after,
                 [&](const Element& e, const auto& saved, const auto& read) {
                     const bool supplied = e.line > 0 && e.line <= file.lines;
                     if (!supplied || file.odd.contains(e.line)) return;
                     if (!ComesBack(saved, read) && fault.empty()) fault = NameOf(e);
                 });
    return fault.empty() ? Verdict::Holds() : Verdict::Broken(fault, " isn't the file's");
}

}  // namespace

const std::vector<Invariant> kFileInvariants = {
    {"Files change by saving alone.", FilesChangeBySavingAlone},
    {"The file dialog has the title, extension, flags and name that its action tells.",
     TheDialogIsSetAsItsActionTells},
    {"A saved file has 1524 lines that end in CR LF.", ASavedFileHasAllItsLines},
    {"A saved file gives the saved part back, and saved again the same bytes.",
     ASavedFileGivesTheSavedPartBackAndTheSameBytesAgain},
    {"A restore takes the lines that the file supplies and leaves the rest of the record.",
     ARestoreTakesWhatTheFileSuppliesAndNothingElse},
};

}  // namespace velmora::property
