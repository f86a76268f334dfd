#include "platform/Restart.h"

#include "platform/SingleInstance.h"

#include <QtGlobal>

#ifdef Q_OS_LINUX
#include <unistd.h>
#else
#include <QProcess>
#include <QStringList>
#include <cstdlib>
#endif

namespace platform {

#ifdef Q_OS_LINUX

void Restart(char* arguments[]) {
    ReleaseSingleInstance();
    // Found by the running program itself, which may have been moved meanwhile.
    execv("/proc/self/exe", arguments);
}

#else

void Restart(char* arguments[]) {
    ReleaseSingleInstance();
    QStringList others;
    for (char** argument = arguments + 1; *argument != nullptr; ++argument)
        others << QString::fromLocal8Bit(*argument);
    if (QProcess::startDetached(QString::fromLocal8Bit(arguments[0]), others))
        std::exit(0);
}

#endif

} // namespace platform
