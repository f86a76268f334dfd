#pragma once

#include <QCoreApplication>
#include <QTimer>

/// Clears what a quit leaves in Qt's loops, as the end of the main loop does.
inline void ForgetQuit() {
    QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
    QCoreApplication::exec();
}
