#pragma once

#include "platform/Wait.h"

#include <sys/resource.h>

/// While it lives, no file of the process grows beyond `size` bytes: as on a full disk, a write
/// that reaches the limit is cut short and the next one fails.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t size) {
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
