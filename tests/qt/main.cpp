#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

#include "qt/appearance.h"

namespace {

/// A warning of the toolkit's fails the test that it comes in, but for what the offscreen platform
/// says of itself, and for a print without a printer.
void FailOnWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    if (type == QtDebugMsg || type == QtInfoMsg) return;
    if (message.startsWith(QStringLiteral("This plugin does not support"))) return;
    if (message == QStringLiteral("QPainter::begin(): Returned false")) return;
    ADD_FAILURE() << message.toStdString();
}

}  // namespace

int main(int argc, char* argv[]) {
    ::testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();  // asked for while building

    // The program leaves nothing in the user's folders; the tests look into this one.
    const QTemporaryDir home;
    for (const char* const variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME",
                                       "XDG_STATE_HOME", "XDG_RUNTIME_DIR"}) {
        qputenv(variable, home.path().toUtf8());
    }
    qInstallMessageHandler(FailOnWarning);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    velmora::DressApplication(application);
    return RUN_ALL_TESTS();
}
