#include "app/program.h"

#include <QApplication>

#include <algorithm>
#include <iostream>

#include "app/screens.h"
#include "core/chain.h"
#include "core/numbers.h"
#include "core/record.h"
#include "qt/appearance.h"
#include "qt/qt_host.h"
#include "qt/window.h"

namespace velmora {

namespace {

/// For whoever starts the program by hand; the launcher sets the point.
constexpr const char* kNotAPoint =
    "velmora: los resultados no valen, porque el separador decimal no es el punto; arranque el "
    "programa con la orden velmora o con LC_NUMERIC=C. El separador es: ";

}  // namespace

int RunProgram(int argc, char* argv[], const std::string& separator) {
    SetDecimalSeparator(separator);
    if (separator != ".") std::cerr << kNotAPoint << separator << '\n';

    // No argument is the toolkit's: it would take style sheets, platforms and plug-in paths from
    // them.
    int count = std::min(argc, 1);
    QApplication application(count, argv);
    DressApplication(application);

    EvaluacionRecord record;
    QtHost host;
    ScreenChain chain([&](ScreenId id) { return MakeScreen(id, {record, chain, host}); });
    chain.Go(ScreenId::Form1);

    Window window(chain, host);
    host.Attach(window);
    host.owner = [&] { return OwnerOf(chain.Current(), record); };
    window.Start();
    return QApplication::exec();
}

}  // namespace velmora
