#include "audio/LevelledStream.h"
#include "audio/Limiter.h"
#include "audio/SongLevel.h"
#include "tests/audio/RecordedPlayer.h"

namespace {

using audio::Frame;
using audio::LevelledStream;
using audio::Mp3Stream;
using audio::SongLevel;
using sound::Frames;

constexpr int kRate = 44100;

double Factor(double decibels) { return std::pow(10, decibels / 20); }

double Decibels(std::optional<float> gain) { return 20 * std::log10(gain.value_or(0)); }

std::string Part(double seconds, double decibels) {
    return tonefile::Encode(seconds, {.header = false, .volume = Factor(decibels)});
}

class Level : public testing::Test {
protected:
    void Write(const std::string& bytes) const { mFolder.Write("song.mp3", bytes); }
    std::unique_ptr<Mp3Stream> Open() const { return Mp3Stream::Open(mFolder.Path() / "song.mp3"); }

    const TemporaryFolder mFolder;
    const std::shared_ptr<SongLevel> mLevel = std::make_shared<SongLevel>();
};

TEST_F(Level, IsThatOfTheWholeSongAndRaisesSoftOnesOnlySoFar) {
    const std::string minute = Part(20, -20) + Part(20, -12) + Part(20, -20);
    Write(minute + minute + minute); // of which only parts are measured
    const auto stream = Open();
    EXPECT_FALSE(mLevel->Gain());
    mLevel->Measure(*stream);
    stream->SeekTo(0);
    const Frames whole = sound::Read(*stream, static_cast<std::size_t>(stream->Frames()));
    EXPECT_NEAR(Decibels(mLevel->Gain()), -16 - sound::Measured(whole, kRate).Loudness(), 1);
    Write(Part(3, -50));
    mLevel->Measure(*Open());
    EXPECT_NEAR(Decibels(mLevel->Gain()), 20, 0.01);
}

TEST_F(Level, GoesOverSlowlyToAGainThatIsKnownOnlyLater) {
    Write(Part(8, -26) + Part(8, -6));
    LevelledStream stream(Open(), mLevel);
    stream.SeekTo(4410);
    std::vector<double> loudness; // of the fifths of a second
    while (loudness.size() < 70) {
        if (loudness.size() == 10)
            mLevel->Measure(*Open());
        loudness.push_back(LoudestMoment(sound::Read(stream, 4410), kRate));
    }
    for (std::size_t i = 1; i < loudness.size(); ++i)
        EXPECT_NEAR(loudness[i], loudness[i - 1], 0.5) << i;
    EXPECT_NEAR(loudness.back(), loudness.front() - 16, 1.5);
}

TEST(Limiter, TurnsDownBeforeThePeakAndUpAgainWithoutAJump) {
    Frames frames(3 * kRate, Frame{0.3F, -0.3F});
    std::fill_n(frames.begin() + 70000, 100, Frame{2.25F, -2.25F});
    audio::Limiter limiter(kRate, 0.5F);
    limiter.Put(frames);
    limiter.End();
    Frames out(frames.size());
    ASSERT_EQ(limiter.Take(out), frames.size());
    EXPECT_LE(sound::Measured(out, kRate).TruePeak(), 0.515);
    for (std::size_t i = 1; i < frames.size(); ++i)
        ASSERT_NEAR(out[i].left / frames[i].left, out[i - 1].left / frames[i - 1].left, 0.01) << i;
    EXPECT_GT(out.back().left, 0.29);
}

TEST(Limiter, TurnsDownWhatPeaksBetweenItsSamples) {
    Frames frames;
    for (int i = 0; i < kRate; ++i) { // a quarter of the rate, at 0.6
        const float level = i % 4 < 2 ? 0.424F : -0.424F;
        frames.push_back({level, level});
    }
    audio::Limiter limiter(kRate, 0.5F);
    limiter.Put(frames);
    limiter.End();
    limiter.Take(frames);
    EXPECT_LE(sound::Measured(frames, kRate).TruePeak(), 0.52);
}

TEST_F(RecordedPlayer, TheSameMusicIsHeardAtOneLoudnessBelowFullScale) {
    const std::pair<tonefile::Encoding, bool> copies[] = {
        // soft, dense beyond full scale, all peaks, and played before anything can be known of it
        {{.volume = Factor(-24), .decay = 12}, false},
        {{.volume = Factor(6)}, false},
        {{.rate = 8000, .mono = true, .kbps = 32, .volume = Factor(-12), .decay = 80}, false},
        {{.volume = Factor(-12), .decay = 12}, true},
    };
    for (const auto& [encoding, atOnce] : copies) {
        SCOPED_TRACE(encoding.volume);
        ASSERT_EQ(mPlayer.OpenFile(mFolder.Write("song", tonefile::Encode(8, encoding))), 1);
        if (!atOnce)
            std::this_thread::sleep_for(std::chrono::milliseconds(300));
        mPlayer.SeekTo(3.3);
        ASSERT_TRUE(PlaysPast(7.3));
        mPlayer.StopPlay();
        const audio::Meter meter = sound::Measured(RecordedSound(), encoding.rate);
        EXPECT_NEAR(meter.Loudness(), audio::kPlayedLoudness, 2);
        EXPECT_LT(meter.TruePeak(), 1);
    }
}

} // namespace
