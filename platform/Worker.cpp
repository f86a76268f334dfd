#include "platform/Worker.h"

#include <utility>

namespace platform {

void Worker::Do(std::function<void()> job) {
    {
        const std::lock_guard lock(mMutex);
        mJobs.push_back(std::move(job));
    }
    mChanged.notify_one();
    if (!mThread.joinable())
        mThread = std::jthread([this](const std::stop_token& quit) { Work(quit); });
}

void Worker::Work(const std::stop_token& quit) {
    std::unique_lock lock(mMutex);
    const auto waiting = [this] { return !mJobs.empty(); };
    while (mChanged.wait(lock, quit, waiting)) {
        const std::function<void()> job = std::move(mJobs.front());
        mJobs.pop_front();
        lock.unlock();
        job();
        lock.lock();
    }
}

} // namespace platform
