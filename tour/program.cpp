#include "program.h"

#include <QGuiApplication>

#include "app/screens.h"
#include "qt/text.h"
#include "store/path.h"

namespace velmora::tour {

namespace {

ScreenChain& Started(ScreenChain& chain) {
    chain.Go(ScreenId::Form1);
    return chain;
}

}  // namespace

Program::Program(const std::filesystem::path& printed_page, int pace)
    : chain([this](ScreenId id) {
          return MakeScreen(id, {record, chain, host});
      }),
      window(Started(chain), host),
      robot(window) {
    host.Attach(window);
    host.owner = [this] { return OwnerOf(chain.Current(), record); };
    host.end = [this](int status) { exit_status = status; };
    host.make_printer = [printed_page] {
        auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(ToQt(NameOf(printed_page)));
        return printer;
    };
    // Without a display there is no size to fit: one that makes good pictures.
    constexpr QSize kPictureSize(1238, 885);
    if (QGuiApplication::platformName() == QStringLiteral("offscreen")) {
        window.resize(kPictureSize);
        window.show();
    } else {
        window.Start();
    }
    robot.Act("showing the window", [] {});
    robot.pace = pace;
}

}  // namespace velmora::tour
