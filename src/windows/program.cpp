// The two programs as a library; starter.c tells who runs it.

#include <io.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <span>
#include <string_view>

#include "app/program.h"
#include "app/report_program.h"
#include "qt/platform.h"

namespace velmora {

namespace {

bool IsHeard(DWORD channel) { return GetFileType(GetStdHandle(channel)) != FILE_TYPE_UNKNOWN; }

/// Where a program with windows speaks: where it is told to, or else in the console that it was
/// started from, which it has to ask for. Started from the desktop it has neither.
class Voice {
public:
    Voice() : heard_(out_ || err_) {
        if ((out_ && err_) || AttachConsole(ATTACH_PARENT_PROCESS) == 0) return;
        heard_ = true;
        page_before_ = GetConsoleOutputCP();
        SetConsoleOutputCP(CP_UTF8);
        if (!out_) static_cast<void>(std::freopen("CONOUT$", "w", stdout));
        if (!err_) static_cast<void>(std::freopen("CONOUT$", "w", stderr));
    }
    ~Voice() {
        std::fflush(nullptr);
        if (page_before_ != 0) SetConsoleOutputCP(page_before_);
    }
    Voice(const Voice&) = delete;
    Voice& operator=(const Voice&) = delete;

    bool Heard() const { return heard_; }

private:
    const bool out_ = IsHeard(STD_OUTPUT_HANDLE);
    const bool err_ = IsHeard(STD_ERROR_HANDLE);
    bool heard_;
    UINT page_before_ = 0;
};

bool HasOptions(std::span<char* const> words) {
    return std::ranges::any_of(words, [](std::string_view word) { return word.starts_with('-'); });
}

int RunReportProgram(int argc, char* argv[]) {
    const Voice voice;
    const std::span words(argv, static_cast<std::size_t>(argc));
    const bool dropped = !voice.Heard() && !HasOptions(words.subspan(1));
    if (argc == 1 || dropped) return MakeReportsOnDesktop(argc, argv);
    return ObeyReportOrder(argc, argv, _isatty(2) != 0);
}

}  // namespace

}  // namespace velmora

extern "C" __declspec(dllexport) int velmora_main(int argc, char* argv[]) {
    // Read before the toolkit is told to speak Spanish.
    return velmora::RunProgram(argc, argv, velmora::SeparatorOfTheRegion());
}

extern "C" __declspec(dllexport) int velmora_informe_main(int argc, char* argv[]) {
    return velmora::RunReportProgram(argc, argv);
}
