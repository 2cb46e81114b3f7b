// velmora-informe: reports of evaluations. With arguments it needs no display.

#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "app/report_program.h"

namespace {

bool HasDesktop() {
    const auto is_set = [](const char* name) {
        const char* const value = std::getenv(name);
        return value != nullptr && *value != '\0';
    };
    return is_set("DISPLAY") || is_set("WAYLAND_DISPLAY");
}

}  // namespace

int main(int argc, char* argv[]) {
    // A file that may not grow any further is an error of its writing, not the end.
    std::signal(SIGXFSZ, SIG_IGN);
    if (argc <= 1 && HasDesktop()) return velmora::MakeReportsOnDesktop(argc, argv);
    return velmora::ObeyReportOrder(argc, argv, isatty(STDERR_FILENO) != 0);
}
