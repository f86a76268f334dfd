#include "tests/HeldReads.h"

#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

std::mutex gMutex; // guards the rest
std::condition_variable gChanged;
std::string gName; // empty while nothing is held
int gWaiting = 0;

bool IsHeld(int file) {
    std::error_code ignored;
    const auto path =
        std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(file), ignored);
    return !gName.empty() && path.string().find(gName) != std::string::npos;
}

} // namespace

// Replaces the system's function, through which the program reads all files of the player.
extern "C" ssize_t pread(int file, void* to, size_t count, off_t offset) {
    {
        std::unique_lock lock(gMutex);
        const bool held = IsHeld(file);
        gWaiting += held;
        gChanged.wait(lock, [file] { return !IsHeld(file); });
        gWaiting -= held;
    }
    return syscall(SYS_pread64, file, to, count, offset);
}

HeldReads::HeldReads(const std::string& name) {
    const std::lock_guard lock(gMutex);
    gName = name;
}

void HeldReads::LetGo() {
    const std::lock_guard lock(gMutex);
    gName.clear();
    gChanged.notify_all();
}

int HeldReads::Waiting() const {
    const std::lock_guard lock(gMutex);
    return gWaiting;
}
