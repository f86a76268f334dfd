#include "platform/Aside.h"

#include "platform/Wait.h"

#include <QPointer>
#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace platform {

namespace {

struct Count {
    std::mutex mutex;
    std::condition_variable changed;
    int running = 0;
};

/// Never destroyed: work that was left behind may end at any time.
Count& Running() {
    static auto* count = new Count;
    return *count;
}

void Change(int by) {
    Count& count = Running();
    const std::lock_guard lock(count.mutex);
    count.running += by;
    count.changed.notify_all();
}

} // namespace

Aside::Aside(std::function<void(const std::stop_token& stop)> work) {
    Change(1);
    std::thread([work = std::move(work), stop = mStop.get_token()]() mutable {
        work(stop);
        work = nullptr; // destroys what it owns before it counts as ended
        Change(-1);
    }).detach();
}

void DoAside(const QObject* context, std::function<void()> work, std::function<void()> then) {
    const Aside aside([work = std::move(work), then = std::move(then),
                       context = QPointer(context)](const std::stop_token&) {
        work();
        CallLater([then, context] {
            if (context)
                then();
        });
    });
}

bool AwaitAside(std::function<void()> work, const std::function<bool()>& wanted) {
    const auto done = std::make_shared<std::atomic<bool>>(false);
    const Aside aside([work = std::move(work), done](const std::stop_token&) {
        work();
        *done = true;
        WakeUp();
    });
    WaitWhile([&] { return !*done && wanted(); });
    return *done && !Quitting();
}

bool AsidesEnd(std::chrono::milliseconds patience) {
    Count& count = Running();
    std::unique_lock lock(count.mutex);
    return count.changed.wait_for(lock, patience, [&count] { return count.running == 0; });
}

} // namespace platform
