#include "tools/songs/Sound.h"
#include "tools/songs/voices/Noise.h"
#include "tools/songs/voices/Voice.h"

#include <algorithm>
#include <cmath>

namespace songs {

namespace {

constexpr float kDamping = 0.35F;   // how much of the sample before is mixed in on each way round
constexpr double kRing = 3.5;       // seconds until a string of 220 Hz is softer by 60 dB
constexpr double kRingLetGo = 0.25; // and once it is let go

/// A string as a delay line that a burst of noise goes round in, losing its high partials first
/// (after Karplus and Strong), tuned by an all-pass filter.
class String {
public:
    String(double hertz, float loudness);

    void SetRing(double seconds) {
        mGain = static_cast<float>(std::pow(10.0, -3 / (seconds * mHertz)));
    }

    float Next() {
        float& place = mLine[mAt];
        mAt = mAt + 1 == mLine.size() ? 0 : mAt + 1;
        const float damped = place + kDamping * (mBefore - place);
        mBefore = place;
        const float tuned = mTuning * (damped - mTuned) + mDamped;
        mDamped = damped;
        mTuned = tuned;
        place = mGain * tuned;
        return place;
    }

private:
    void Excite(float loudness);

    double mHertz;
    Samples mLine;
    std::size_t mAt = 0;
    float mGain = 1;
    float mTuning = 0;
    float mBefore = 0;
    float mDamped = 0;
    float mTuned = 0;
};

String::String(double hertz, float loudness) : mHertz(hertz) {
    const double delay = kSampleRate / hertz - static_cast<double>(kDamping);
    const double whole = std::floor(delay - 0.3);
    const double rest = delay - whole;
    mLine.resize(static_cast<std::size_t>(whole));
    mTuning = static_cast<float>((1 - rest) / (1 + rest));
    Excite(loudness);
}

/// Pulls the string into a slanted triangle near its end, with a little noise of the finger.
void String::Excite(float loudness) {
    constexpr float kPoint = 0.08F; // where it is pulled, as a part of its length
    constexpr float kFinger = 0.25F;
    Noise noise(static_cast<std::uint32_t>(mHertz * 16) + 1);
    float finger = 0;
    float at = 0;
    float mean = 0;
    for (float& place : mLine) {
        const float rising = std::min(at, 1 - at) / kPoint;
        const float falling = (0.5F - at) / (0.5F - kPoint);
        const float triangle = at < kPoint ? rising : at < 1 - kPoint ? falling : -rising;
        finger += 0.4F * (noise.Next() - finger);
        place = loudness * (triangle + kFinger * finger);
        mean += place / static_cast<float>(mLine.size());
        at += 1 / static_cast<float>(mLine.size());
    }
    for (float& place : mLine)
        place -= mean; // which would die away last
}

} // namespace

void Pluck(const Tone& tone, std::span<float> out) {
    String string(tone.hertz, tone.loudness);
    const double ring = kRing * std::pow(220 / tone.hertz, 0.5);
    const std::size_t release = SampleCount(tone.seconds);
    out = out.first(std::min(out.size(), release + SampleCount(kRingLetGo)));
    string.SetRing(ring);
    for (float& sample : out.first(std::min(out.size(), release)))
        sample += string.Next();
    string.SetRing(std::min(ring, kRingLetGo));
    for (float& sample : out.subspan(std::min(out.size(), release)))
        sample += string.Next();
}

} // namespace songs
