#include "tools/songs/Limiter.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace songs {

namespace {

constexpr std::size_t kBlock = 64;
constexpr float kRecovery = 1.0F + kBlock / (0.25F * kSampleRate); // per block, about 0.25 s
constexpr float kAttack = 1.25F; // per block, a few milliseconds ahead of the peak

float Peak(std::span<const float> samples) {
    float peak = 0;
    for (const float sample : samples)
        peak = std::max(peak, std::abs(sample));
    return peak;
}

std::span<float> Block(Samples& channel, std::size_t block) {
    const std::size_t start = block * kBlock;
    return std::span(channel).subspan(start, std::min(kBlock, channel.size() - start));
}

/// The gain at each edge between blocks, low enough for the blocks on both sides.
std::vector<float> EdgeGains(Stereo& sound, float ceiling) {
    const std::size_t blocks = (sound.left.size() + kBlock - 1) / kBlock;
    std::vector<float> gains(blocks + 1, 1.0F);
    for (std::size_t i = 0; i < blocks; ++i) {
        const float peak = std::max(Peak(Block(sound.left, i)), Peak(Block(sound.right, i)));
        const float gain = peak > ceiling ? ceiling / peak : 1.0F;
        gains[i] = std::min(gains[i], gain);
        gains[i + 1] = gain;
    }
    for (std::size_t i = 1; i <= blocks; ++i)
        gains[i] = std::min(gains[i], gains[i - 1] * kRecovery);
    for (std::size_t i = blocks; i > 0; --i)
        gains[i - 1] = std::min(gains[i - 1], gains[i] * kAttack);
    return gains;
}

void Slide(std::span<float> samples, float from, float to) {
    const float step = (to - from) / kBlock;
    for (float& sample : samples) {
        sample *= from;
        from += step;
    }
}

} // namespace

void Limit(Stereo& sound, float ceiling) {
    const std::vector<float> gains = EdgeGains(sound, ceiling);
    for (std::size_t i = 0; i + 1 < gains.size(); ++i) {
        Slide(Block(sound.left, i), gains[i], gains[i + 1]);
        Slide(Block(sound.right, i), gains[i], gains[i + 1]);
    }
}

} // namespace songs
