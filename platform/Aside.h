#pragma once

#include <chrono>
#include <functional>
#include <stop_token>

class QObject;

namespace platform {

/// Work on a thread of its own that need not be waited for, because reading a disk or using a
/// device may hang for good. Its results reach the caller through data that both share.
class Aside {
public:
    /// Starts at once. `work` must own, or share, everything it uses, because it may outlive the
    /// object. It should end soon after a stop is requested.
    explicit Aside(std::function<void(const std::stop_token& stop)> work);
    ~Aside() { mStop.request_stop(); } ///< requests a stop and does not wait
    Aside(const Aside&) = delete;
    Aside& operator=(const Aside&) = delete;

private:
    std::stop_source mStop;
};

/// Does `work` on such a thread, then calls `then` from the event loop, on the user interface's
/// thread; not if `context` has been destroyed by that time.
void DoAside(const QObject* context, std::function<void()> work, std::function<void()> then);

/// Does `work` on such a thread and waits for it while events run, as long as `wanted` returns
/// true. False if it stopped waiting, or if the application was asked to quit; `work` may then
/// still be running. To be called on the user interface's thread.
bool AwaitAside(
    std::function<void()> work, const std::function<bool()>& wanted = [] { return true; });

/// Waits until all such work has ended, for `patience` at most, and returns whether it has. If not,
/// the process must exit without cleaning up, which would destroy what the work still uses.
bool AsidesEnd(std::chrono::milliseconds patience);

} // namespace platform
