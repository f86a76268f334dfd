#include "platform/Aside.h"

#include <QApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// Tests drive the real forms without a display, play into no device, and keep their settings in a
// folder of their own.
int main(int argc, char* argv[]) {
    const QTemporaryDir home;
    const QByteArray folder = home.path().toLocal8Bit();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("SDL_AUDIODRIVER", "dummy");
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(name, folder);
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const int failed = RUN_ALL_TESTS();
    platform::AsidesEnd(std::chrono::seconds(20));
    return failed;
}
