// velmora-informe: reports of evaluations. With arguments it needs no display.

#include <QApplication>

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include "app/report_dialog.h"
#include "qt/appearance.h"
#include "report/command_line.h"
#include "report/session.h"
#include "report/version.h"

namespace report = velmora::report;

namespace {

bool ErrorsGoToATerminal() {
#ifdef _WIN32
    return _isatty(2) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

bool HasDesktop() {
#ifdef _WIN32
    return true;
#else
    const auto is_set = [](const char* name) {
        const char* const value = std::getenv(name);
        return value != nullptr && *value != '\0';
    };
    return is_set("DISPLAY") || is_set("WAYLAND_DISPLAY");
#endif
}

int Obey(const std::vector<std::string>& words) try {
    const report::Order order = report::ReadOrder(words);
    if (order.help) {
        std::cout << report::UsageText();
        return EXIT_SUCCESS;
    }
    if (order.version) {
        std::cout << "velmora-informe " << report::Version() << '\n';
        return EXIT_SUCCESS;
    }
    return report::Run(order, {std::cout, std::cerr, ErrorsGoToATerminal()});
} catch (const report::UsageError& error) {
    constexpr int kNotUnderstood = 2;
    std::cerr << report::kMessageHead << error.what() << '\n' << report::UsageText();
    return kNotUnderstood;
}

}  // namespace

int main(int argc, char* argv[]) {
#ifndef _WIN32
    // A file that may not grow any further is an error of its writing, not the end.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    if (argc <= 1 && HasDesktop()) {
        QApplication application(argc, argv);
        velmora::DressApplication(application);
        return velmora::ReportAskedFor();
    }
    return Obey(argc > 1 ? std::vector<std::string>(argv + 1, argv + argc)
                         : std::vector<std::string>());
}
