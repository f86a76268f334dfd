#pragma once

#include <functional>

namespace platform {

// Any thread may call these.

/// Reseeds the generator; the games pass the seconds since midnight.
void Randomize(double seed);

/// Uniform random number in [0, 1).
double Rnd();

/// Random integer from 0 to `highest`, by multiplying and rounding half to even: both end values
/// are half as likely as the others.
int RndRounded(int highest);

/// Takes random numbers from `source` from now on and returns the previous source. An empty one
/// means the program's own generator, the only one that `Randomize` reseeds.
std::function<double()> ReplaceRandom(std::function<double()> source);

} // namespace platform
