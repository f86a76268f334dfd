#include "platform/Worker.h"

#include "platform/Aside.h"

#include <utility>

namespace platform {

Worker::~Worker() {
    std::unique_lock lock(mMutex);
    mChanged.wait(lock, [this] { return mJobs.empty(); });
}

void Worker::Do(std::function<void()> job) {
    const std::lock_guard lock(mMutex);
    mJobs.push_back(std::move(job));
    if (mJobs.size() == 1)
        Aside([this](const std::stop_token&) { Work(); });
}

void Worker::Work() {
    std::unique_lock lock(mMutex);
    while (!mJobs.empty()) {
        const std::function<void()> job = std::move(mJobs.front());
        lock.unlock();
        job();
        lock.lock();
        mJobs.pop_front();
    }
    mChanged.notify_all();
}

} // namespace platform
