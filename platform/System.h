#pragma once

#include <QtGlobal>

/// SONGRUSH_POSIX: the calls of POSIX systems may be used. Beside each use of them stands the
/// portable way; the preset `portable` takes it on every system, so that it is tested.
#if defined(Q_OS_UNIX) && !defined(SONGRUSH_PORTABLE)
#define SONGRUSH_POSIX
#endif
