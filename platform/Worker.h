#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>

namespace platform {

/// Does jobs one after the other on a thread of its own, which starts with the first one and sleeps
/// when there is none. Used by one thread.
class Worker {
public:
    Worker() = default;
    ~Worker() = default; ///< waits until all jobs are done
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    /// Hands a job over and returns at once.
    void Do(std::function<void()> job);

private:
    void Work(const std::stop_token& quit);

    std::mutex mMutex;
    std::condition_variable_any mChanged;
    std::deque<std::function<void()>> mJobs; // guarded by the mutex
    std::jthread mThread;
};

} // namespace platform
