#pragma once

#include <functional>

namespace platform {

/// Lets pending window events run, without sleeping.
void PumpEvents();

/// Waits as long as `condition` holds, checking it after each event and sleeping in between. Also
/// returns once the application is asked to quit, so every caller must cope with the condition
/// still being true.
void WaitWhile(const std::function<bool()>& condition);

/// Makes a sleeping `WaitWhile` check its condition again. Any thread may call this.
void WakeUp();

/// Calls `act` from the event loop, on the user interface's thread. Any thread may call this.
void CallLater(std::function<void()> act);

/// Sleeps for `milliseconds`, letting events run meanwhile; shorter when asked to quit.
void WaitFor(int milliseconds);

/// True once the application was asked to quit.
bool Quitting();

/// Asks the application to quit: every open and later wait returns, and the main loop ends.
void RequestQuit();

/// While it lives, requests to quit that come from the system (the session's end, a termination
/// signal) become a `RequestQuit`. One at a time, made after the application object.
class QuitWatch {
public:
    QuitWatch();
    ~QuitWatch();
    QuitWatch(const QuitWatch&) = delete;
    QuitWatch& operator=(const QuitWatch&) = delete;
};

} // namespace platform
