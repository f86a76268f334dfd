#include "audio/Mp3Stream.h"

#include "tests/audio/Sound.h"
#include "tests/audio/ToneFile.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace {

using audio::Frame;
using audio::Mp3Stream;
using tonefile::Kind;

const std::vector<Kind>& Kinds() {
    static const std::vector<Kind> kinds = tonefile::AllKinds();
    return kinds;
}

class FileKind : public testing::TestWithParam<std::size_t> {
protected:
    void SetUp() override {
        tonefile::Write(mPath, mKind.make());
        mStream = Mp3Stream::Open(mPath);
        ASSERT_TRUE(mStream);
    }
    void TearDown() override { std::filesystem::remove(mPath); }

    const Kind& mKind = Kinds()[GetParam()];
    const std::filesystem::path mPath = sound::TestFolder() / "kind.mp3";
    std::unique_ptr<Mp3Stream> mStream;
};

TEST_P(FileKind, HasTheLengthThatIsReallyToBeHeard) {
    const double sample = 0.5 / mStream->Rate();
    EXPECT_NEAR(mStream->Length(), mKind.length, std::max(mKind.tolerance, sample));
    const auto frames = static_cast<std::size_t>(mStream->Frames());
    EXPECT_EQ(sound::Skip(*mStream, frames + 10000), frames);
}

TEST_P(FileKind, GivesTheSameSamplesAfterASeekAsWhenPlayedThrough) {
    const auto frames = static_cast<std::size_t>(mStream->Frames());
    ASSERT_GT(frames, 50000u);
    const std::size_t places[] = {1, 2000, frames / 3, frames / 2 + 77, frames - 1152};
    std::vector<std::vector<Frame>> played;
    std::size_t reached = 0;
    for (const std::size_t place : places) {
        sound::Skip(*mStream, place - reached);
        played.push_back(sound::Read(*mStream, 1152));
        reached = place + 1152;
    }
    for (std::size_t i = played.size(); i-- > 0;) {
        mStream->SeekTo(static_cast<std::int64_t>(places[i]));
        const std::vector<Frame> sought = sound::Read(*mStream, 1152);
        ASSERT_EQ(sought.size(), played[i].size()) << "at frame " << places[i];
        EXPECT_LT(sound::Difference(sought, played[i]), 1e-4f) << "at frame " << places[i];
    }
}

TEST_P(FileKind, SoundsAsItShouldAtEachPlace) {
    for (const double place : {0.25, 1.75, 2.25}) {
        mStream->SeekTo(std::llround((place - 0.1 + mKind.delay) * mStream->Rate()));
        const auto window = static_cast<std::size_t>(mStream->Rate() / 5);
        const std::vector<Frame> part = sound::Read(*mStream, window);
        EXPECT_NEAR(sound::Pitch(part, mStream->Rate()), tonefile::Pitch(place), 20) << place;
    }
}

TEST_P(FileKind, HasNothingLeftPastTheEnd) {
    for (const std::int64_t past : {0, 1, 100000}) {
        mStream->SeekTo(mStream->Frames() + past);
        EXPECT_TRUE(sound::Read(*mStream, 10).empty());
    }
}

INSTANTIATE_TEST_SUITE_P(All, FileKind, testing::Range<std::size_t>(0, 13),
                         [](const auto& kind) { return Kinds()[kind.param].name; });

TEST(Mp3Stream, KeepsOneRateWhenAPartHasAnother) {
    const auto path = sound::TestFolder() / "mixed.mp3";
    tonefile::Write(path,
                    tonefile::Encode(2) + tonefile::Encode(2, {.rate = 22050, .channels = 1}));
    const auto stream = Mp3Stream::Open(path);
    ASSERT_TRUE(stream);
    EXPECT_EQ(stream->Rate(), 44100);
    ASSERT_EQ(sound::Skip(*stream, 44100 * 27 / 10), 44100u * 27 / 10);
    const std::vector<Frame> second = sound::Read(*stream, 4410);
    EXPECT_NEAR(sound::Pitch(second, 44100), tonefile::Pitch(0.7), 20);
}

} // namespace
