#include "audio/LevelledStream.h"
#include "audio/Limiter.h"
#include "audio/Meter.h"
#include "audio/SongLevel.h"
#include "tests/audio/RecordedPlayer.h"

#include <algorithm>
#include <cmath>

namespace {

using audio::Frame;
using audio::LevelledStream;
using audio::Meter;
using audio::Mp3Stream;
using audio::SongLevel;

constexpr int kRate = 44100;

double Factor(double decibels) { return std::pow(10, decibels / 20); }

double Decibels(double factor) { return 20 * std::log10(factor); }

std::string Part(double seconds, double decibels) {
    return tonefile::Encode(seconds, {.header = false, .volume = Factor(decibels)});
}

double Strength(std::span<const Frame> frames) {
    double sum = 0;
    for (const Frame& frame : frames)
        sum += static_cast<double>(frame.left * frame.left);
    return std::sqrt(sum / static_cast<double>(frames.size()));
}

TEST(SongLevel, IsThatOfTheWholeSongAndRaisesSoftOnesOnlySoFar) {
    const TemporaryFolder folder;
    const std::string minute = Part(20, -20) + Part(20, -12) + Part(20, -20);
    std::string song;
    for (int i = 0; i < 4; ++i) // minutes, of which only parts are measured
        song += minute;
    const auto stream = Mp3Stream::Open(folder.Write("song.mp3", song));
    ASSERT_TRUE(stream);
    SongLevel level;
    EXPECT_FALSE(level.Gain());
    level.Measure(*stream);
    stream->SeekTo(0);
    Meter whole(kRate, Meter::Of::Loudness);
    whole.Add(sound::Read(*stream, static_cast<std::size_t>(stream->Frames())));
    EXPECT_NEAR(Decibels(level.Gain().value_or(0)), -16 - whole.Loudness(), 1);

    SongLevel soft;
    soft.Measure(*Mp3Stream::Open(folder.Write("song.mp3", Part(3, -50))));
    EXPECT_NEAR(Decibels(soft.Gain().value_or(0)), 20, 0.01);
}

TEST(LevelledStream, KeepsEveryFrameInItsPlaceAndWhatCannotBeMeasuredAsItIs) {
    const TemporaryFolder folder;
    for (const std::string& bytes : {tonefile::Encode(3), Part(0.25, -12), Part(1, -200)}) {
        const auto path = folder.Write("song.mp3", bytes);
        const auto level = std::make_shared<SongLevel>();
        const auto plain = Mp3Stream::Open(path);
        level->Measure(*plain);
        EXPECT_EQ(level->Gain().has_value(), plain->Length() == 3);
        const float gain = level->Gain().value_or(1);
        LevelledStream levelled(Mp3Stream::Open(path), level);
        for (const std::int64_t place : {std::int64_t{0}, 2 * plain->Frames() / 3}) {
            plain->SeekTo(place);
            levelled.SeekTo(place);
            std::vector<Frame> wanted = sound::Read(*plain, 200000);
            for (Frame& frame : wanted)
                frame = {frame.left * gain, frame.right * gain};
            const std::vector<Frame> got = sound::Read(levelled, 200000);
            ASSERT_EQ(got.size(), wanted.size());
            EXPECT_LT(sound::Difference(got, wanted), 1e-4f) << place;
        }
    }
}

TEST(LevelledStream, GoesOverSlowlyToAGainThatIsKnownOnlyLater) {
    const TemporaryFolder folder;
    const auto path = folder.Write("song.mp3", Part(8, -26) + Part(8, -6));
    const auto level = std::make_shared<SongLevel>();
    LevelledStream stream(Mp3Stream::Open(path), level);
    stream.SeekTo(4410);
    std::vector<double> strengths; // of the tenths of a second
    while (strengths.size() < 70) {
        if (strengths.size() == 10)
            level->Measure(*Mp3Stream::Open(path));
        strengths.push_back(Strength(sound::Read(stream, 4410)));
    }
    for (std::size_t i = 1; i < strengths.size(); ++i)
        EXPECT_NEAR(Decibels(strengths[i] / strengths[i - 1]), 0, 0.5) << i;
    EXPECT_NEAR(strengths.front(), Factor(-16 - 3), 0.02);
    EXPECT_NEAR(strengths.back(), strengths.front() * Factor(-17), 0.01);
}

TEST(Limiter, TurnsDownBeforeThePeakAndUpAgainWithoutAJump) {
    constexpr float kCeiling = 0.5F;
    std::vector<Frame> frames(3 * kRate, Frame{0.3F, -0.3F});
    std::fill_n(frames.begin() + 70000, 100, Frame{2.25F, -2.25F});
    audio::Limiter limiter(kRate, kCeiling);
    limiter.Put(frames);
    limiter.End();
    std::vector<Frame> out(frames.size() + 1);
    std::size_t done = 0;
    while (const std::size_t got = limiter.Take(std::span(out).subspan(done)))
        done += got;
    EXPECT_TRUE(limiter.Drained());
    ASSERT_EQ(done, frames.size());
    out.resize(done);
    Meter meter(kRate, Meter::Of::TruePeak);
    meter.Add(out);
    EXPECT_LE(meter.TruePeak(), kCeiling * 1.03);
    float before = 1;
    float lowest = 1;
    for (std::size_t i = 0; i < out.size(); ++i) {
        const float gain = out[i].left / frames[i].left;
        ASSERT_NEAR(gain, before, 0.01) << i;
        before = gain;
        lowest = std::min(lowest, gain);
    }
    EXPECT_LT(lowest, 0.25);
    EXPECT_GT(before, 0.99);
}

TEST_F(RecordedPlayer, TheSameMusicIsHeardAtOneLoudnessBelowFullScale) {
    const struct {
        const char* name; // as found on disks
        tonefile::Encoding encoding;
        bool atOnce = false; // played before anything is known of it
    } copies[] = {
        {"softer", {.volume = Factor(-24), .decay = 12}},
        {"dense beyond full scale", {.volume = Factor(6)}},
        {"all peaks", {.volume = Factor(-12), .decay = 80}},
        {"8 kHz", {.rate = 8000, .channels = 1, .kbps = 32, .volume = Factor(-12), .decay = 12}},
        {"played at once", {.volume = Factor(-12), .decay = 12}, true},
    };
    for (const auto& copy : copies) {
        SCOPED_TRACE(copy.name);
        const auto path = mFolder.Write(copy.name, tonefile::Encode(8, copy.encoding));
        Rewind();
        ASSERT_EQ(mPlayer.OpenFile(path), 1);
        if (!copy.atOnce)
            std::this_thread::sleep_for(std::chrono::milliseconds(300));
        mPlayer.SeekTo(3.3);
        ASSERT_TRUE(PlaysPast(7.3));
        mPlayer.StopPlay();
        ASSERT_TRUE(DeviceCloses());
        Meter meter(copy.encoding.rate, Meter::Of::Both);
        meter.Add(Sound());
        EXPECT_NEAR(meter.Loudness(), audio::kPlayedLoudness, 2);
        EXPECT_LT(meter.TruePeak(), 1);
    }
}

} // namespace
