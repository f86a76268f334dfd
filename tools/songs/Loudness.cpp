#include "tools/songs/Loudness.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace songs {

namespace {

constexpr std::size_t kHop = kSampleRate / 10;
constexpr std::size_t kHopsPerBlock = 4;
constexpr double kSilence = -70; // LUFS
constexpr double kGate = 10;     // LU below the loudness of what is not silence

/// A second-order filter.
class Biquad {
public:
    Biquad(double b0, double b1, double b2, double a1, double a2)
        : mB0(b0), mB1(b1), mB2(b2), mA1(a1), mA2(a2) {}

    double Next(double in) {
        const double out = mB0 * in + mZ1;
        mZ1 = mB1 * in - mA1 * out + mZ2;
        mZ2 = mB2 * in - mA2 * out;
        return out;
    }

private:
    double mB0, mB1, mB2, mA1, mA2;
    double mZ1 = 0;
    double mZ2 = 0;
};

/// The standard's first filter: what the head does, a shelf of 4 dB above 1.7 kHz.
Biquad HeadFilter() {
    const double k = std::tan(std::numbers::pi * 1681.974450955533 / kSampleRate);
    const double q = 0.7071752369554196;
    const double high = std::pow(10, 3.999843853973347 / 20);
    const double middle = std::pow(high, 0.4996667741545416);
    const double a0 = 1 + k / q + k * k;
    return {(high + middle * k / q + k * k) / a0, 2 * (k * k - high) / a0,
            (high - middle * k / q + k * k) / a0, 2 * (k * k - 1) / a0, (1 - k / q + k * k) / a0};
}

/// The standard's second filter: a high-pass at 38 Hz.
Biquad LowCut() {
    const double k = std::tan(std::numbers::pi * 38.13547087602444 / kSampleRate);
    const double q = 0.5003270373238773;
    const double a0 = 1 + k / q + k * k;
    return {1, -2, 1, 2 * (k * k - 1) / a0, (1 - k / q + k * k) / a0};
}

/// Adds the weighted energy of each tenth of a second.
void AddEnergies(const Samples& channel, std::vector<double>& energies) {
    Biquad head = HeadFilter();
    Biquad cut = LowCut();
    const float* sample = channel.data();
    for (double& energy : energies) {
        double sum = 0;
        for (std::size_t i = 0; i < kHop; ++i) {
            const double weighted = cut.Next(head.Next(static_cast<double>(*sample++)));
            sum += weighted * weighted;
        }
        energy += sum / static_cast<double>(kHop);
    }
}

double InLufs(double energy) { return -0.691 + 10 * std::log10(energy + 1e-12); }

double MeanAbove(const std::vector<double>& blocks, double lufs) {
    double sum = 0;
    int count = 0;
    for (const double block : blocks) {
        if (InLufs(block) > lufs) {
            sum += block;
            ++count;
        }
    }
    return count == 0 ? 0 : sum / count;
}

} // namespace

double Loudness(std::initializer_list<const Samples*> channels) {
    std::vector<double> hops((*channels.begin())->size() / kHop);
    for (const Samples* channel : channels)
        AddEnergies(*channel, hops);
    std::vector<double> blocks;
    for (std::size_t i = 0; i + kHopsPerBlock <= hops.size(); ++i) {
        const auto first = hops.begin() + static_cast<std::ptrdiff_t>(i);
        blocks.push_back(std::accumulate(first, first + kHopsPerBlock, 0.0) / kHopsPerBlock);
    }
    const double ungated = InLufs(MeanAbove(blocks, kSilence));
    return InLufs(MeanAbove(blocks, std::max(kSilence, ungated - kGate)));
}

} // namespace songs
