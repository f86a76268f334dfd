#include "platform/Chance.h"

#include "platform/Rounding.h"

#include <bit>
#include <cstdint>
#include <mutex>
#include <random>
#include <utility>

namespace platform {

namespace {

std::mutex gMutex; // guards the next two
std::mt19937_64 gGenerator;
std::function<double()> gSource;

} // namespace

void Randomize(double seed) {
    const std::lock_guard lock(gMutex);
    gGenerator.seed(std::bit_cast<std::uint64_t>(seed));
}

double Rnd() {
    const std::lock_guard lock(gMutex);
    if (gSource)
        return gSource();
    constexpr double kStep = 1.0 / 9007199254740992.0; // 2^-53, the finest a double below 1 has
    return static_cast<double>(gGenerator() >> 11) * kStep;
}

int RndRounded(int highest) { return RoundHalfEven(Rnd() * highest); }

std::function<double()> ReplaceRandom(std::function<double()> source) {
    const std::lock_guard lock(gMutex);
    return std::exchange(gSource, std::move(source));
}

} // namespace platform
