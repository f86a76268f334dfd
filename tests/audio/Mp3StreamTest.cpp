#include "audio/Mp3Stream.h"

#include "tests/TemporaryFolder.h"
#include "tests/audio/Sound.h"
#include "tests/audio/ToneFile.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace {

using audio::Frame;
using audio::Mp3Stream;
using sound::Read;
using tonefile::Kind;

/// Passes over `count` frames by decoding them and returns how many there were.
std::size_t Skip(Mp3Stream& stream, std::size_t count) {
    std::size_t done = 0;
    for (std::size_t got = 1; got > 0 && done < count; done += got)
        got = Read(stream, std::min<std::size_t>(4096, count - done)).size();
    return done;
}

class FileKind : public testing::TestWithParam<Kind> {
protected:
    void SetUp() override { ASSERT_TRUE(mStream); }

    const TemporaryFolder mFolder;
    const std::unique_ptr<Mp3Stream> mStream =
        Mp3Stream::Open(mFolder.Write("kind.mp3", GetParam().make()));
};

TEST_P(FileKind, HasTheLengthThatIsReallyToBeHeardAndNothingPastIt) {
    const double sample = 0.5 / mStream->Rate();
    EXPECT_NEAR(mStream->Length(), GetParam().length, std::max(GetParam().tolerance, sample));
    const auto frames = static_cast<std::size_t>(mStream->Frames());
    EXPECT_EQ(Skip(*mStream, frames + 10000), frames);
    for (const std::int64_t past : {0, 1, 100000}) {
        mStream->SeekTo(mStream->Frames() + past);
        EXPECT_TRUE(Read(*mStream, 10).empty());
    }
}

TEST_P(FileKind, GivesTheSameSamplesAfterASeekAsWhenPlayedThrough) {
    const auto frames = static_cast<std::size_t>(mStream->Frames());
    ASSERT_GT(frames, 50000u);
    const std::size_t places[] = {1, 2000, frames / 3, frames / 2 + 77, frames - 1152};
    std::vector<std::vector<Frame>> played;
    std::size_t reached = 0;
    for (const std::size_t place : places) {
        Skip(*mStream, place - reached);
        played.push_back(Read(*mStream, 1152));
        reached = place + 1152;
    }
    for (std::size_t i = played.size(); i-- > 0;) {
        mStream->SeekTo(static_cast<std::int64_t>(places[i]));
        const std::vector<Frame> sought = Read(*mStream, 1152);
        ASSERT_EQ(sought.size(), played[i].size()) << "at frame " << places[i];
        EXPECT_LT(sound::Difference(sought, played[i]), 1e-4f) << "at frame " << places[i];
    }
}

TEST_P(FileKind, SoundsAsItShouldAtEachPlace) {
    for (const double place : {0.25, 1.75, 2.25}) {
        mStream->SeekTo(std::llround((place - 0.1 + GetParam().delay) * mStream->Rate()));
        const auto window = static_cast<std::size_t>(mStream->Rate() / 5);
        const double pitch = sound::Pitch(Read(*mStream, window), mStream->Rate());
        EXPECT_NEAR(pitch, tonefile::Pitch(place), 20) << place;
    }
}

INSTANTIATE_TEST_SUITE_P(All, FileKind, testing::ValuesIn(tonefile::AllKinds()),
                         [](const auto& kind) { return kind.param.name; });

/// Three seconds of the tone without a header frame, so that they last to the sample.
std::string Part(int rate) {
    return tonefile::Encode(3, {.rate = rate, .kbps = 64, .header = false});
}

constexpr int kRates[] = {48000, 44100, 32000, 24000, 22050, 16000, 12000, 11025, 8000};

class JoinedTo : public testing::TestWithParam<int> {};

TEST_P(JoinedTo, SongsOfEveryRateArePlayedRightAtEachPlace) {
    constexpr double kDelay = 1105; // samples by which the encoder's tone comes late
    const TemporaryFolder folder;
    const std::string second = Part(GetParam());
    const double secondLength = Mp3Stream::Open(folder.Write("b.mp3", second))->Length();
    for (const int rate : kRates) {
        SCOPED_TRACE(rate);
        const std::string first = Part(rate);
        const double firstLength = Mp3Stream::Open(folder.Write("a.mp3", first))->Length();
        const auto stream = Mp3Stream::Open(folder.Write("joined.mp3", first + second));
        ASSERT_TRUE(stream);
        ASSERT_EQ(stream->Rate(), rate);
        EXPECT_NEAR(stream->Length(), firstLength + secondLength, 0.001);
        const auto frames = static_cast<double>(stream->Frames());
        EXPECT_NEAR(static_cast<double>(Skip(*stream, 1'000'000)), frames, 0.001 * rate);
        for (const double place : {2.25, 0.25, 1.75}) {
            for (const bool inSecond : {true, false}) {
                const double start = inSecond ? firstLength + kDelay / GetParam() : kDelay / rate;
                stream->SeekTo(std::llround((start + place - 0.05) * rate));
                const auto window = static_cast<std::size_t>(rate / 10);
                const double pitch = sound::Pitch(Read(*stream, window), rate);
                EXPECT_NEAR(pitch, tonefile::Pitch(place), 20) << place << inSecond;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Rates, JoinedTo, testing::ValuesIn(kRates),
                         testing::PrintToStringParamName());

/// A song with ten bad sectors, missing pieces or flipped bits, by the kind of damage, 0 to 2.
std::string Damaged(std::string song, int kind, std::mt19937& random) {
    for (int i = 0; i < 10; ++i) {
        const std::size_t at = random() % (song.size() - 1000);
        if (kind == 0)
            song.replace(at, 512, 512, '\0');
        else if (kind == 1)
            song.erase(at, random() % 1000);
        else
            song[at] = static_cast<char>(song[at] ^ (1 << random() % 8));
    }
    return song;
}

TEST(Mp3Stream, ADamagedSongNeverGivesMoreThanItHas) {
    const TemporaryFolder folder;
    std::mt19937 random(7);
    const std::string songs[] = {Part(44100), Part(22050) + Part(8000), Part(48000) + Part(32000),
                                 tonefile::Encode(3), tonefile::Encode(3, {.variable = true})};
    for (int i = 0; i < 500; ++i) {
        SCOPED_TRACE(i);
        const std::string song = Damaged(songs[i % 5], i % 3, random);
        const auto stream = Mp3Stream::Open(folder.Write("damaged.mp3", song));
        if (!stream)
            continue;
        const auto frames = static_cast<std::size_t>(stream->Frames());
        for (int turn = 0; turn < 10; ++turn) {
            const std::size_t place = random() % frames;
            stream->SeekTo(static_cast<std::int64_t>(place));
            const bool heard = !Read(*stream, 5000).empty();
            EXPECT_TRUE(heard || place + 10'000 > frames) << place << " of " << frames;
        }
        stream->SeekTo(0);
        EXPECT_LE(Skip(*stream, frames + 100'000), frames);
    }
}

} // namespace
