#pragma once

#include <csignal>
#include <sys/resource.h>

/// While it lives, no file of the process grows beyond `size` bytes: as on a full disk, a write
/// that reaches the limit is cut short and the next one fails.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t size) : mHandler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &mOld);
        const rlimit limit{size, mOld.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &mOld);
        std::signal(SIGXFSZ, mHandler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*mHandler)(int);
    rlimit mOld{};
};
