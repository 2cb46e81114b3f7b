#include <QApplication>
#include <QLocale>

#include <algorithm>
#include <csignal>
#include <iostream>
#include <string>

#include "app/screens.h"
#include "core/chain.h"
#include "core/numbers.h"
#include "core/record.h"
#include "qt/appearance.h"
#include "qt/qt_host.h"
#include "qt/window.h"

namespace {

/// For whoever starts the program by hand; the launcher sets the point.
constexpr const char* kNotAPoint =
    "velmora: los resultados no valen, porque el separador decimal no es el punto; arranque el "
    "programa con la orden velmora o con LC_NUMERIC=C. El separador es: ";

}  // namespace

int main(int argc, char* argv[]) {
    // A file that may not grow any further is an error of the step that writes it, not the end.
    std::signal(SIGXFSZ, SIG_IGN);

    // Read before the toolkit is told to speak Spanish: the separator is that of the user's locale.
    const std::string separator = QLocale::system().decimalPoint().toStdString();
    velmora::SetDecimalSeparator(separator);
    if (separator != ".") std::cerr << kNotAPoint << separator << '\n';

    // No argument is the toolkit's: it would take style sheets, platforms and plug-in paths from
    // them.
    int count = std::min(argc, 1);
    QApplication application(count, argv);
    velmora::DressApplication(application);

    velmora::EvaluacionRecord record;
    velmora::QtHost host;
    velmora::ScreenChain chain([&](velmora::ScreenId id) {
        return velmora::MakeScreen(id, {record, chain, host});
    });
    chain.Go(velmora::ScreenId::Form1);

    velmora::Window window(chain, host);
    host.Attach(window);
    host.owner = [&] { return velmora::OwnerOf(chain.Current(), record); };
    window.Start();
    return QApplication::exec();
}
