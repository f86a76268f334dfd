#include "platform/SingleInstance.h"

#include "platform/System.h"

#include <QByteArray>
#include <QDir>
#include <string>

#ifdef SONGRUSH_POSIX
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#else
#include <QLockFile>
#endif

namespace platform {

#ifdef SONGRUSH_POSIX

bool ClaimSingleInstance() {
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    const std::string folder =
        runtime.isEmpty() ? QDir::tempPath().toStdString() : runtime.toStdString();
    const std::string file = folder + "/songrush-" + std::to_string(getuid()) + ".lock";
    const int handle = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (handle < 0)
        return true; // no place for the lock: better two copies than none
    // The kernel drops the lock with the process, so a killed copy leaves none behind.
    if (flock(handle, LOCK_EX | LOCK_NB) == 0)
        return true;
    const bool held = errno == EWOULDBLOCK;
    close(handle);
    return !held;
}

#else

bool ClaimSingleInstance() {
    static QLockFile lock(QDir::temp().filePath(QStringLiteral("songrush.lock")));
    lock.setStaleLockTime(0);
    return lock.tryLock(0) || lock.error() != QLockFile::LockFailedError;
}

#endif

} // namespace platform
