#pragma once

#include <QCoreApplication>
#include <QTimer>

/// Wipes off the mark that a quit leaves on Qt's loops, as the end of the main loop does.
inline void ForgetQuit() {
    QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
    QCoreApplication::exec();
}
