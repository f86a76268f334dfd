#include "audio/LevelledStream.h"

#include "audio/Meter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace audio {

namespace {

constexpr float kCeiling = 0.891F;     // -1 dBTP
constexpr double kInstant = 0.5;       // seconds, decoded and measured in a millisecond or two
constexpr double kDecibelsASecond = 3; // by which the gain changes while there is sound

} // namespace

LevelledStream::LevelledStream(std::unique_ptr<Mp3Stream> stream, std::shared_ptr<SongLevel> level)
    : mStream(std::move(stream)), mLevel(std::move(level)) {}

void LevelledStream::SeekTo(std::int64_t frame) {
    mStream->SeekTo(frame);
    mNext = mDecoded = frame;
    mAway = false;
    mLimiter.reset();
}

std::size_t LevelledStream::Read(std::span<Frame> frames) {
    if (!mLimiter) {
        mGain = FirstGain();
        mLimiter.emplace(Rate(), kCeiling);
    }
    for (;;) {
        const std::size_t got = mLimiter->Take(frames);
        mNext += static_cast<std::int64_t>(got);
        if (got > 0 || mLimiter->Drained())
            return got;
        Continue();
    }
}

void LevelledStream::Listen(const std::function<bool()>& goOn) {
    mLevel->Measure(*mStream, [&] {
        mAway = true;
        return goOn();
    });
    mAway = true;
}

float LevelledStream::FirstGain() {
    if (const std::optional<float> known = mLevel->Gain())
        return *known;
    Meter meter(Rate(), Meter::Of::Loudness);
    std::array<Frame, 1152> block;
    auto left = static_cast<std::int64_t>(kInstant * Rate());
    while (left > 0) {
        const std::size_t got = mStream->Read(block);
        if (got == 0)
            break;
        meter.Add(std::span<const Frame>(block).first(got));
        left -= static_cast<std::int64_t>(got);
    }
    mStream->SeekTo(mDecoded);
    return LevellingGain(meter.Loudness()).value_or(1.0F);
}

/// Hands the next frames of the song to the limiter.
void LevelledStream::Continue() {
    if (std::exchange(mAway, false))
        mStream->SeekTo(mDecoded);
    std::array<Frame, 1152> block;
    const std::span read = std::span(block).first(mStream->Read(block));
    mDecoded += static_cast<std::int64_t>(read.size());
    Amplify(read);
    if (read.empty())
        mLimiter->End();
    else
        mLimiter->Put(read);
}

void LevelledStream::Amplify(std::span<Frame> frames) {
    const double seconds = static_cast<double>(frames.size()) / Rate();
    const auto most = static_cast<float>(std::pow(10, kDecibelsASecond * seconds / 20));
    const float wanted = std::clamp(mLevel->Gain().value_or(mGain), mGain / most, mGain * most);
    const float step =
        (wanted - mGain) / static_cast<float>(std::max<std::size_t>(frames.size(), 1));
    for (Frame& frame : frames) {
        mGain += step;
        frame.left *= mGain;
        frame.right *= mGain;
    }
    mGain = wanted;
}

} // namespace audio
