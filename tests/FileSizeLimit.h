#pragma once

#include "platform/System.h"
#include "platform/Wait.h"

#include <csignal>
#include <sys/resource.h>

/// While it lives, no file of the process grows beyond `size` bytes: as on a full disk, a write
/// that reaches the limit is cut short and the next one fails.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t size) {
#ifndef SONGRUSH_POSIX
        std::signal(SIGXFSZ, SIG_IGN); // other systems have no such signal
#endif
        getrlimit(RLIMIT_FSIZE, &mOld);
        const rlimit limit{size, mOld.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &mOld); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    const platform::QuitWatch mWatch; // as in the program, a limit is no reason to die
    rlimit mOld{};
};
