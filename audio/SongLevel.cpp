#include "audio/SongLevel.h"

#include "audio/Meter.h"
#include "audio/Mp3Stream.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace audio {

namespace {

constexpr double kHighestGain = 20; // dB
constexpr std::int64_t kPieces = 32;
constexpr std::int64_t kFirst = 13;  // not the beginning, which may be softer than the rest
constexpr std::int64_t kStride = 19; // from piece to piece, so that all parts are soon visited
constexpr double kPieceSeconds = 2;

void AddPiece(Mp3Stream& stream, std::int64_t start, std::int64_t length, Meter& meter) {
    std::array<Frame, 1152> block;
    stream.SeekTo(start);
    while (length > 0) {
        const auto wanted = std::min(static_cast<std::size_t>(length), block.size());
        const std::size_t got = stream.Read(std::span(block).first(wanted));
        if (got == 0)
            return;
        meter.Add(std::span<const Frame>(block).first(got));
        length -= static_cast<std::int64_t>(got);
    }
}

} // namespace

std::optional<float> LevellingGain(double lufs) {
    if (!std::isfinite(lufs))
        return std::nullopt;
    const double decibels = std::min(kPlayedLoudness - lufs, kHighestGain);
    return static_cast<float>(std::pow(10, decibels / 20));
}

std::optional<float> SongLevel::Gain() const {
    const float gain = mGain.load(std::memory_order_relaxed);
    return gain > 0 ? std::optional(gain) : std::nullopt;
}

void SongLevel::Measure(Mp3Stream& stream, const std::function<bool()>& goOn) {
    Meter meter(stream.Rate(), Meter::Of::Loudness);
    const auto longest = static_cast<std::int64_t>(kPieceSeconds * stream.Rate());
    const std::int64_t pieces = std::min((stream.Frames() + longest - 1) / longest, kPieces);
    for (std::int64_t turn = 0; turn < kPieces; ++turn) {
        const std::int64_t piece = (kFirst + turn * kStride) % kPieces;
        if (piece >= pieces)
            continue;
        const std::int64_t start = stream.Frames() * piece / pieces;
        const std::int64_t end = stream.Frames() * (piece + 1) / pieces;
        const std::int64_t length = std::min(end - start, longest);
        // Pieces at equal distances might all hit the same part of every verse.
        const double later = std::fmod(static_cast<double>(piece) * std::numbers::phi, 1);
        const double space = static_cast<double>(end - start - length);
        AddPiece(stream, start + std::llround(later * space), length, meter);
        if (const std::optional<float> gain = LevellingGain(meter.Loudness()))
            mGain.store(*gain, std::memory_order_relaxed);
        if (!goOn())
            return;
    }
}

} // namespace audio
