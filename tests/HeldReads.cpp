#include "tests/HeldReads.h"

#include <array>
#include <condition_variable>
#include <mutex>
#include <string_view>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

std::mutex gMutex; // guards the rest
std::condition_variable gChanged;
std::string gName; // empty while nothing is held
int gWaiting = 0;

bool IsHeld(int file) {
    std::array<char, 4096> path;
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const ssize_t length = readlink(link.c_str(), path.data(), path.size());
    return length > 0 && !gName.empty() &&
           std::string_view(path.data(), static_cast<std::size_t>(length)).find(gName) !=
               std::string_view::npos;
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
