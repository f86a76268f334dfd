#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace platform {

/// Does jobs one after the other on a thread of its own. May be used by any thread.
class Worker {
public:
    Worker() = default;
    ~Worker(); ///< waits until all jobs are done
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    /// Queues a job and returns at once.
    void Do(std::function<void()> job);

private:
    void Work();

    std::mutex mMutex;
    std::condition_variable mChanged;
    std::deque<std::function<void()>> mJobs; // guarded by the mutex; the first one is being done
};

} // namespace platform
