#pragma once

#include <cstdint>
#include <functional>

namespace platform {

/// Local time of day in seconds since midnight, fractions included. For seeds only: it goes back at
/// midnight and jumps when the clock is set.
double SecondsSinceMidnight();

/// Milliseconds of a clock that never jumps; only differences mean something.
std::int64_t TickCount();

/// Where the two clocks above come from.
struct TimeSource {
    std::function<double()> secondsSinceMidnight;
    std::function<std::int64_t()> tickCount;
};

/// Takes the time from `source` from now on and returns the previous source.
TimeSource ReplaceTimeSource(TimeSource source);

} // namespace platform
