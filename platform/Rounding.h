#pragma once

namespace platform {

/// Nearest integer; halves go to the even neighbour.
int RoundHalfEven(double value);

} // namespace platform
