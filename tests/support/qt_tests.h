#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QString>
#include <QTemporaryDir>

#include <functional>

#include "qt/appearance.h"

namespace velmora::test {

/// Whether the toolkit says that a function of Windows fails which Wine has in part.
inline bool IsOfWine(const QString& message) {
    return message.startsWith(QStringLiteral("EnableNonClientDpiScaling() failed")) ||
           message.startsWith(QStringLiteral("SetProcessDpiAwarenessContext("));
}

/// `main` of the tests on the real window: a folder of their own for a home, no display unless one
/// is named, the program's look. A warning of the toolkit's fails the test that it comes in, but
/// for what the offscreen platform says of itself and the one that is `tolerated`. `prepare` runs
/// before the tests.
inline int RunQtTests(int& argc, char* argv[], const QString& tolerated = {},
                      const std::function<void()>& prepare = {}) {
    ::testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();  // asked for while building

    // The program leaves nothing in the user's folders; the tests look into this one.
    const QTemporaryDir home;
    for (const char* const variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME",
                                       "XDG_STATE_HOME", "XDG_RUNTIME_DIR"}) {
        qputenv(variable, home.path().toUtf8());
    }
    static QString also_said;
    also_said = tolerated;
    qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
            if (type == QtDebugMsg || type == QtInfoMsg) return;
            if (message.startsWith(QStringLiteral("This plugin does not support"))) return;
            if (IsOfWine(message)) return;
            if (!also_said.isEmpty() && message == also_said) return;
            ADD_FAILURE() << message.toStdString();
        });
#ifndef _WIN32  // where a display is always there
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    QApplication application(argc, argv);
    DressApplication(application);
    if (prepare) prepare();
    return RUN_ALL_TESTS();
}

}  // namespace velmora::test
