#include "platform/Chance.h"

#include "platform/Rounding.h"

#include <bit>
#include <cstdint>
#include <random>
#include <utility>

namespace platform {

namespace {

std::mt19937_64& Generator() {
    static std::mt19937_64 generator;
    return generator;
}

std::function<double()> gSource;

} // namespace

void Randomize(double seed) { Generator().seed(std::bit_cast<std::uint64_t>(seed)); }

double Rnd() {
    if (gSource)
        return gSource();
    constexpr double kStep = 1.0 / 9007199254740992.0; // 2^-53, the finest a double below 1 has
    return static_cast<double>(Generator()() >> 11) * kStep;
}

int RndRounded(int highest) { return RoundHalfEven(Rnd() * highest); }

std::function<double()> ReplaceRandom(std::function<double()> source) {
    return std::exchange(gSource, std::move(source));
}

} // namespace platform
