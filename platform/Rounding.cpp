#include "platform/Rounding.h"

#include <cmath>

namespace platform {

int RoundHalfEven(double value) { return static_cast<int>(std::nearbyint(value)); }

} // namespace platform
