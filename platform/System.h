#pragma once

#include <QtGlobal>

/// SONGRUSH_POSIX: POSIX calls may be used. Each use has a portable alternative beside it, which
/// the preset `portable` builds on any system, so that it is tested.
#if defined(Q_OS_UNIX) && !defined(SONGRUSH_PORTABLE)
#define SONGRUSH_POSIX
#endif
