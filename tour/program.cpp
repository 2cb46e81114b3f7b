#include "program.h"

#include <QGuiApplication>

#include "qt/text.h"
#include "store/path.h"

namespace velmora::tour {

Program::Program(const std::filesystem::path& printed_page, int pace) {
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
