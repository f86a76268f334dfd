#pragma once

#include <chrono>
#include <functional>
#include <stop_token>

class QObject;

namespace platform {

/// Work on a thread of its own that nobody ever waits for: what reads a disk or asks a device may
/// hang for good. Whoever makes it sees what it has done only through what they share.
class Aside {
public:
    /// Begins at once. `work` must own, or share, all that it uses, as it may outlive the object,
    /// and ends soon once a stop is requested, unless it hangs.
    explicit Aside(std::function<void(const std::stop_token& stop)> work);
    ~Aside() { mStop.request_stop(); } ///< asks the work to end, and leaves it to that
    Aside(const Aside&) = delete;
    Aside& operator=(const Aside&) = delete;

private:
    std::stop_source mStop;
};

/// Does `work` so and `then`, by the thread of the user interface, as soon as events run; not if
/// `context` is gone by then.
void DoAside(const QObject* context, std::function<void()> work, std::function<void()> then);

/// Does `work` so, and waits for it letting events run, for as long as it is `wanted`. False if it
/// was not in the end, or if the application was asked to quit; then `work` may still go on. Called
/// by the thread of the user interface.
bool AwaitAside(
    std::function<void()> work, const std::function<bool()>& wanted = [] { return true; });

/// Waits until all such work has ended, `patience` at most, and returns whether it has. If not, the
/// process must end without a clean-up, which would take away what the work still uses.
bool AsidesEnd(std::chrono::milliseconds patience);

} // namespace platform
