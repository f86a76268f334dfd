#include "platform/Wait.h"

#include "platform/System.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QSocketNotifier>
#include <QTimer>
#include <memory>
#include <mutex>
#include <utility>

#ifdef SONGRUSH_POSIX
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace platform {

namespace {

bool gQuitting = false;

class QuitFilter : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == QCoreApplication::instance() && event->type() == QEvent::Quit)
            gQuitting = true;
        return false;
    }
};

#ifdef SONGRUSH_POSIX
int gSignalPipe[2] = {-1, -1};

/// The program ends this soon after a signal, even if a disk blocks the main thread.
constexpr unsigned kLongestEnd = 2; // seconds

extern "C" void EndNow(int) { _exit(0); }

extern "C" void SignalHandler(int) {
    alarm(kLongestEnd);
    const char byte = 1;
    // Nothing can be done about a failure inside a signal handler.
    [[maybe_unused]] const auto written = write(gSignalPipe[1], &byte, 1);
}

/// Turns termination signals into events of the main thread.
class SignalWatch {
public:
    SignalWatch() {
        if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, gSignalPipe) != 0)
            return;
        mNotifier = std::make_unique<QSocketNotifier>(gSignalPipe[0], QSocketNotifier::Read);
        QObject::connect(mNotifier.get(), &QSocketNotifier::activated, [] {
            char byte = 0;
            while (read(gSignalPipe[0], &byte, 1) == 1) {
            }
            RequestQuit();
        });
        for (const int number : {SIGTERM, SIGINT, SIGHUP})
            std::signal(number, SignalHandler);
        std::signal(SIGALRM, EndNow);
        std::signal(SIGXFSZ, SIG_IGN); // the write beyond the limit then only fails
    }
    ~SignalWatch() {
        alarm(0);
        for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGALRM, SIGXFSZ})
            std::signal(number, SIG_DFL);
        mNotifier.reset();
        for (int& end : gSignalPipe) {
            close(end);
            end = -1;
        }
    }
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

private:
    std::unique_ptr<QSocketNotifier> mNotifier;
};
#else
class SignalWatch {};
#endif

struct Watches {
    QuitFilter filter;
    SignalWatch signal;
};

std::unique_ptr<Watches> gWatches;

} // namespace

void PumpEvents() { QCoreApplication::processEvents(); }

void WaitWhile(const std::function<bool()>& condition) {
    while (!gQuitting && condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void WakeUp() {
    QCoreApplication* application = QCoreApplication::instance();
    QAbstractEventDispatcher* dispatcher =
        application != nullptr ? QAbstractEventDispatcher::instance(application->thread())
                               : nullptr;
    if (dispatcher != nullptr)
        dispatcher->wakeUp();
}

void CallLater(std::function<void()> act) {
    static std::mutex handOver; // Qt has one of its own, which the thread sanitizer cannot see
    const std::lock_guard lock(handOver);
    const auto taken = [act = std::move(act)] {
        handOver.lock();
        handOver.unlock();
        act();
    };
    QMetaObject::invokeMethod(QCoreApplication::instance(), taken, Qt::QueuedConnection);
}

void WaitFor(int milliseconds) {
    QTimer timer;
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    timer.start(milliseconds);
    WaitWhile([&timer] { return timer.isActive(); });
}

bool Quitting() { return gQuitting; }

void RequestQuit() {
    gQuitting = true;
    // Ends the loops of open dialogs too; `quit` leaves them alone outside the main loop.
    QCoreApplication::exit();
    WakeUp();
}

QuitWatch::QuitWatch() {
    gQuitting = false;
    gWatches = std::make_unique<Watches>();
    QCoreApplication::instance()->installEventFilter(&gWatches->filter);
}

QuitWatch::~QuitWatch() {
    gWatches.reset();
    gQuitting = false;
}

} // namespace platform
