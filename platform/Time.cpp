#include "platform/Time.h"

#include <QTime>
#include <chrono>
#include <utility>

namespace platform {

namespace {

double SystemSecondsSinceMidnight() { return QTime::currentTime().msecsSinceStartOfDay() / 1000.0; }

std::int64_t SystemTickCount() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

TimeSource& Source() {
    static TimeSource source{SystemSecondsSinceMidnight, SystemTickCount};
    return source;
}

} // namespace

double SecondsSinceMidnight() { return Source().secondsSinceMidnight(); }

std::int64_t TickCount() { return Source().tickCount(); }

TimeSource ReplaceTimeSource(TimeSource source) {
    return std::exchange(Source(), std::move(source));
}

} // namespace platform
