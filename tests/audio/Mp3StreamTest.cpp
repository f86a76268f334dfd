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

/// Whether the tone at a place is the one that the file has `seconds` after its start.
void ExpectTone(Mp3Stream& stream, double place, double seconds) {
    stream.SeekTo(std::llround((place - 0.05) * stream.Rate()));
    const auto window = static_cast<std::size_t>(stream.Rate() / 10);
    const double pitch = sound::Pitch(Read(stream, window), stream.Rate());
    EXPECT_NEAR(pitch, tonefile::Pitch(seconds), 20) << place;
}

class FileKind : public testing::TestWithParam<Kind> {};

TEST_P(FileKind, HasItsRealLengthAndSoundsTheSameAfterASeekAsWhenPlayedThrough) {
    const TemporaryFolder folder;
    const auto stream = Mp3Stream::Open(folder.Write("kind.mp3", GetParam().make()));
    ASSERT_TRUE(stream);
    const double sample = 0.5 / stream->Rate();
    EXPECT_NEAR(stream->Length(), GetParam().length, std::max(GetParam().tolerance, sample));
    const auto frames = static_cast<std::size_t>(stream->Frames());
    ASSERT_GT(frames, 50000u);
    const std::size_t places[] = {1, 2000, frames / 3, frames / 2 + 77, frames - 1152};
    std::vector<std::vector<Frame>> played;
    std::size_t reached = 0;
    for (const std::size_t place : places) {
        Skip(*stream, place - reached);
        played.push_back(Read(*stream, 1152));
        reached = place + 1152;
    }
    EXPECT_TRUE(Read(*stream, 10).empty());
    for (std::size_t i = played.size(); i-- > 0;) {
        stream->SeekTo(static_cast<std::int64_t>(places[i]));
        const std::vector<Frame> sought = Read(*stream, 1152);
        ASSERT_EQ(sought.size(), 1152) << "at frame " << places[i];
        EXPECT_LT(sound::Difference(sought, played[i]), 1e-4f) << "at frame " << places[i];
    }
    for (const double place : {0.25, 1.75, 2.25})
        ExpectTone(*stream, place + GetParam().delay, place);
    for (const std::int64_t past : {0, 1, 100000}) {
        stream->SeekTo(stream->Frames() + past);
        EXPECT_TRUE(Read(*stream, 10).empty());
    }
}

INSTANTIATE_TEST_SUITE_P(All, FileKind, testing::ValuesIn(tonefile::AllKinds()),
                         [](const auto& kind) { return kind.param.name; });

/// Three seconds of the tone without a header frame, so that they last to the sample.
std::string Part(int rate) {
    return tonefile::Encode(3, {.rate = rate, .kbps = 64, .header = false});
}

TEST(Mp3Stream, SongsOfDifferentRatesJoinedArePlayedRightAtEachPlace) {
    constexpr double kDelay = 1105; // samples by which the encoder's tone comes late
    const TemporaryFolder folder;
    const std::vector<int> rates[] = {
        {48000, 44100, 32000, 24000, 22050, 16000, 12000, 11025, 8000}, {8000, 48000, 11025}};
    for (const std::vector<int>& joined : rates) {
        std::string song;
        std::vector<double> starts = {0};
        for (const int rate : joined) {
            song += Part(rate);
            const auto part = Mp3Stream::Open(folder.Write("part.mp3", Part(rate)));
            starts.push_back(starts.back() + part->Length());
        }
        const auto stream = Mp3Stream::Open(folder.Write("joined.mp3", song));
        ASSERT_TRUE(stream);
        ASSERT_EQ(stream->Rate(), joined.front());
        EXPECT_NEAR(stream->Length(), starts.back(), 0.001);
        const auto frames = static_cast<double>(stream->Frames());
        EXPECT_NEAR(static_cast<double>(Skip(*stream, 2'000'000)), frames, 0.001 * stream->Rate());
        for (std::size_t i = joined.size(); i-- > 0;)
            for (const double place : {2.25, 0.25, 1.75})
                ExpectTone(*stream, starts[i] + kDelay / joined[i] + place, place);
    }
}

TEST(Mp3Stream, ADamagedSongNeverGivesMoreThanItHas) {
    const TemporaryFolder folder;
    std::mt19937 random(7);
    const std::string songs[] = {Part(44100), Part(22050) + Part(8000), Part(48000) + Part(32000),
                                 tonefile::Encode(3), tonefile::Encode(3, {.variable = true})};
    for (int i = 0; i < 150; ++i) {
        SCOPED_TRACE(i);
        std::string song = songs[i % 5];
        for (int damage = 0; damage < 10; ++damage) { // bad sectors, missing pieces, wrong bytes
            const std::size_t at = random() % (song.size() - 1000);
            song.replace(at, at % 600, at % 3 * 256, static_cast<char>(at));
        }
        const auto stream = Mp3Stream::Open(folder.Write("damaged.mp3", song));
        if (!stream)
            continue;
        const auto frames = static_cast<std::size_t>(stream->Frames());
        for (int turn = 0; turn < 6; ++turn) {
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
