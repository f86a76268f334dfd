#include "bench/SlowDisk.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <string>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

std::atomic<Disk> gDisk = Disk::Fast;
std::atomic<int> gReads = 0;

/// Whether the file is one of the program's pictures, which are not where the music is.
bool IsPicture(int file) {
    std::error_code error;
    const auto link = std::filesystem::path("/proc/self/fd") / std::to_string(file);
    return std::filesystem::read_symlink(link, error).extension() == ".bmp";
}

/// Waits as long as a read of that many bytes takes on the disk.
void Delay(std::size_t bytes) {
    constexpr int kStallEvery = 40;
    if (gDisk == Disk::FiveMegabytes)
        std::this_thread::sleep_for(std::chrono::microseconds(bytes / 5));
    else if (gDisk == Disk::Stalls && ++gReads % kStallEvery == 0)
        std::this_thread::sleep_for(3s);
}

} // namespace

// Replaces the system's function, through which songs are read.
extern "C" ssize_t pread(int file, void* to, size_t count, off_t offset) {
    const auto got = syscall(SYS_pread64, file, to, count, offset);
    if (gDisk != Disk::Fast && !IsPicture(file))
        Delay(static_cast<std::size_t>(std::max<long>(got, 0)));
    return got;
}

void SetDisk(Disk disk) { gDisk = disk; }
