#include "audio/Mp3Stream.h"

#include "tests/TemporaryFolder.h"
#include "tests/audio/Sound.h"
#include "tests/audio/ToneFile.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace {

using audio::Frame;
using audio::Mp3Stream;
using tonefile::Kind;

/// The next `count` frames, fewer at the end.
std::vector<Frame> Read(Mp3Stream& stream, std::size_t count) {
    std::vector<Frame> frames(count);
    std::size_t done = 0;
    for (std::size_t got = 1; got > 0 && done < count; done += got)
        got = stream.Read(std::span(frames).subspan(done));
    frames.resize(done);
    return frames;
}

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

TEST(Mp3Stream, KeepsOneRateWhenAPartHasAnother) {
    const TemporaryFolder folder;
    const std::string other = tonefile::Encode(2, {.rate = 22050, .channels = 1});
    const auto stream = Mp3Stream::Open(folder.Write("mixed.mp3", tonefile::Encode(2) + other));
    ASSERT_TRUE(stream);
    EXPECT_EQ(stream->Rate(), 44100);
    ASSERT_EQ(Skip(*stream, 44100 * 27 / 10), 44100u * 27 / 10);
    EXPECT_NEAR(sound::Pitch(Read(*stream, 4410), 44100), tonefile::Pitch(0.7), 20);
}

} // namespace
