#include "platform/Restart.h"

#include "platform/SingleInstance.h"
#include "platform/System.h"

#include <QProcess>
#include <QStringList>

#ifdef SONGRUSH_POSIX
#include <unistd.h>
#endif

namespace platform {

void Restart(char* arguments[]) {
    ReleaseSingleInstance();
#ifdef SONGRUSH_POSIX
    // On Linux, found by the running program itself, which may have been moved meanwhile.
    execv("/proc/self/exe", arguments);
#endif
    QStringList others;
    for (char** argument = arguments + 1; *argument != nullptr; ++argument)
        others << QString::fromLocal8Bit(*argument);
    QProcess::startDetached(QString::fromLocal8Bit(arguments[0]), others);
}

} // namespace platform
