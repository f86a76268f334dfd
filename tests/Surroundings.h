#pragma once

#include <QApplication>
#include <QTemporaryDir>

/// What tests run in: the real forms without a display, no sound device, and settings in a folder
/// of their own.
class Surroundings {
public:
    Surroundings(int& argc, char** argv) : mApplication((Prepare(mHome), argc), argv) {
        QApplication::setQuitOnLastWindowClosed(false);
    }

private:
    static void Prepare(const QTemporaryDir& home) {
        const QByteArray folder = home.path().toLocal8Bit();
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("SDL_AUDIODRIVER", "dummy");
        for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
            qputenv(name, folder);
    }

    const QTemporaryDir mHome;
    QApplication mApplication;
};
