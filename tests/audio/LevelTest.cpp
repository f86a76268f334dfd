#include "audio/LevelledStream.h"
#include "audio/Meter.h"
#include "audio/SongMeter.h"
#include "tests/audio/RecordedPlayer.h"

namespace {

using audio::Frame;
using audio::LevelledStream;
using audio::Meter;
using audio::Mp3Stream;
using audio::SongLevel;

double Factor(double decibels) { return std::pow(10, decibels / 20); }

double InDecibels(float factor) { return 20 * std::log10(static_cast<double>(factor)); }

std::string Part(double seconds, double decibels) {
    return tonefile::Encode(seconds, {.header = false, .volume = Factor(decibels)});
}

double Strength(std::span<const Frame> frames) {
    double sum = 0;
    for (const Frame& frame : frames)
        sum += static_cast<double>(frame.left * frame.left);
    return std::sqrt(sum / static_cast<double>(frames.size()));
}

TEST(SongLevel, IsThatOfTheWholeSongThoughOnlyPartsAreHeard) {
    const TemporaryFolder folder;
    const std::string soft = Part(20, -20);
    const std::string loud = Part(20, -12);
    std::string song;
    for (int i = 0; i < 8; ++i) // eight minutes
        song += soft + loud + soft;
    const auto stream = Mp3Stream::Open(folder.Write("song.mp3", song));
    ASSERT_TRUE(stream);
    SongLevel level;
    EXPECT_FALSE(level.Gain());
    level.Measure(*stream);
    Meter whole(44100, Meter::Of::Loudness);
    std::vector<Frame> block(1152);
    stream->SeekTo(0);
    while (const std::size_t got = stream->Read(block))
        whole.Add(std::span<const Frame>(block).first(got));
    ASSERT_TRUE(level.Gain());
    EXPECT_NEAR(InDecibels(*level.Gain()), -16 - whole.Loudness(), 1);
}

TEST(SongLevel, StaysUnknownForSilenceAndRaisesSoftSoundsOnlySoFar) {
    const TemporaryFolder folder;
    const std::string instant = Part(0.2, -6);
    const auto gainOf = [&](const std::string& bytes) {
        SongLevel level;
        level.Measure(*Mp3Stream::Open(folder.Write("song.mp3", bytes)));
        return level.Gain();
    };
    EXPECT_FALSE(gainOf(Part(3, -200)));
    EXPECT_FALSE(gainOf(instant));
    EXPECT_NEAR(InDecibels(gainOf(Part(3, -50)).value_or(0)), 20, 0.01);
}

TEST(LevelledStream, KeepsEveryFrameInItsPlace) {
    const TemporaryFolder folder;
    const auto path = folder.Write("song.mp3", tonefile::Encode(3));
    const auto level = std::make_shared<SongLevel>();
    const auto plain = Mp3Stream::Open(path);
    level->Measure(*plain);
    LevelledStream levelled(Mp3Stream::Open(path), level);
    for (const std::int64_t place : {0, 12345, 131000}) {
        plain->SeekTo(place);
        levelled.SeekTo(place);
        std::vector<Frame> wanted(1300);
        std::vector<Frame> got(1300);
        for (std::vector<Frame>* frames : {&wanted, &got}) {
            std::size_t done = 0;
            for (std::size_t part = 1; part > 0; done += part) {
                const std::span room = std::span(*frames).subspan(done);
                part = room.empty() ? 0 : frames == &got ? levelled.Read(room) : plain->Read(room);
            }
            frames->resize(done);
        }
        EXPECT_EQ(got.size(), wanted.size());
        for (Frame& frame : wanted)
            frame = {frame.left * *level->Gain(), frame.right * *level->Gain()};
        EXPECT_LT(sound::Difference(got, wanted), 1e-4f) << place;
    }
}

TEST(LevelledStream, PlaysWhatCannotBeMeasuredAsItIs) {
    const TemporaryFolder folder;
    for (const std::string& bytes : {Part(0.25, -12), Part(1, -200)}) {
        const auto path = folder.Write("song.mp3", bytes);
        const auto plain = Mp3Stream::Open(path);
        std::vector<Frame> wanted(static_cast<std::size_t>(plain->Frames()));
        std::vector<Frame> got(wanted.size() + 1);
        LevelledStream levelled(Mp3Stream::Open(path), std::make_shared<SongLevel>());
        levelled.SeekTo(0);
        std::size_t size = 0;
        while (const std::size_t part = levelled.Read(std::span(got).subspan(size)))
            size += part;
        ASSERT_EQ(size, wanted.size());
        for (std::size_t done = 0; done < wanted.size();)
            done += plain->Read(std::span(wanted).subspan(done));
        EXPECT_LT(sound::Difference(wanted, got), 1e-4f);
    }
}

TEST(LevelledStream, GoesOverSlowlyToAGainThatIsKnownOnlyLater) {
    const TemporaryFolder folder;
    const auto path = folder.Write("song.mp3", Part(8, -26) + Part(8, -6));
    const auto level = std::make_shared<SongLevel>();
    LevelledStream stream(Mp3Stream::Open(path), level);
    stream.SeekTo(4410);
    std::vector<double> strengths;
    std::vector<Frame> tenth(4410);
    const auto listen = [&](int tenths) {
        for (int i = 0; i < tenths; ++i) {
            for (std::size_t done = 0; done < tenth.size();)
                done += stream.Read(std::span(tenth).subspan(done));
            strengths.push_back(Strength(tenth));
        }
    };
    listen(10);
    const auto whole = Mp3Stream::Open(path);
    level->Measure(*whole);
    listen(60);
    for (std::size_t i = 1; i < strengths.size(); ++i)
        EXPECT_NEAR(20 * std::log10(strengths[i] / strengths[i - 1]), 0, 0.5) << i;
    EXPECT_NEAR(strengths.front(), Factor(-16 - 3), 0.03);
    EXPECT_NEAR(strengths.back(), strengths.front() * Factor(-17), 0.01);
}

struct Copy {
    const char* name;
    double decibels;
    tonefile::Encoding encoding = {.decay = 12};
    bool atOnce = false; ///< played before anything can be known of it
};

/// The same music as found on disks.
const Copy kCopies[] = {
    {"Full", 0},
    {"Softer6", -6},
    {"Softer12", -12},
    {"Softer24", -24},
    {"BeyondFullScale", 3},
    {"DenseBeyondFullScale", 6, {}},
    {"AllPeaks", 0, {.decay = 80}},
    {"AllPeaksSofter12", -12, {.decay = 80}},
    {"Mono8kHz", -12, {.rate = 8000, .channels = 1, .kbps = 32, .decay = 12}},
    {"Rate48kHz", -3, {.rate = 48000, .decay = 12}},
    {"PlayedAtOnce", -12, {.decay = 12}, true},
};

class LevelledSet : public RecordedPlayer, public testing::WithParamInterface<Copy> {};

TEST_P(LevelledSet, IsHeardAtOneLoudnessBelowFullScale) {
    tonefile::Encoding encoding = GetParam().encoding;
    encoding.volume = Factor(GetParam().decibels);
    const auto path = mFolder.Write("song.mp3", tonefile::Encode(20, encoding));
    ASSERT_EQ(mPlayer.OpenFile(path), 1);
    if (!GetParam().atOnce)
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    const double start = 11.3;
    mPlayer.SeekTo(start);
    mPlayer.Play();
    ASSERT_TRUE(Passes(start + 4));
    mPlayer.StopPlay();
    ASSERT_TRUE(DeviceCloses());
    Meter meter(encoding.rate, Meter::Of::Both);
    meter.Add(Sound());
    EXPECT_NEAR(meter.Loudness(), audio::kPlayedLoudness, 2);
    EXPECT_LT(meter.TruePeak(), 1);
    RecordProperty("LUFS", std::to_string(meter.Loudness()));
    RecordProperty("dBTP", std::to_string(20 * std::log10(meter.TruePeak())));
}

INSTANTIATE_TEST_SUITE_P(Copies, LevelledSet, testing::ValuesIn(kCopies),
                         [](const auto& copy) { return copy.param.name; });

} // namespace
