#include "app/report_program.h"

#include <QApplication>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <span>
#include <string>
#include <vector>

#include "app/report_dialog.h"
#include "qt/appearance.h"
#include "report/command_line.h"
#include "report/session.h"
#include "report/version.h"

namespace velmora {

namespace {

std::vector<std::string> Words(int argc, char* argv[]) {
    const std::span all(argv, static_cast<std::size_t>(argc));
    if (all.empty()) return {};
    return {all.begin() + 1, all.end()};
}

}  // namespace

int MakeReportsOnDesktop(int argc, char* argv[]) {
    // No argument is the toolkit's.
    int count = std::min(argc, 1);
    QApplication application(count, argv);
    DressApplication(application);
    if (argc <= 1) return ReportAskedFor();
    int status = EXIT_SUCCESS;
    for (const std::string& evaluation : Words(argc, argv)) {
        status = std::max(status, MakeReportFor(evaluation));
    }
    return status;
}

int ObeyReportOrder(int argc, char* argv[], bool terminal) try {
    const report::Order order = report::ReadOrder(Words(argc, argv));
    if (order.help) {
        std::cout << report::UsageText();
        return EXIT_SUCCESS;
    }
    if (order.version) {
        std::cout << "velmora-informe " << report::Version() << '\n';
        return EXIT_SUCCESS;
    }
    return report::Run(order, {std::cout, std::cerr, terminal});
} catch (const report::UsageError& error) {
    constexpr int kNotUnderstood = 2;
    std::cerr << report::kMessageHead << error.what() << '\n' << report::UsageText();
    return kNotUnderstood;
}

}  // namespace velmora
