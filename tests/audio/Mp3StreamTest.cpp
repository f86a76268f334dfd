#include "audio/Mp3Stream.h"

#include "tests/TemporaryFolder.h"
#include "tests/audio/Sound.h"
#include "tests/audio/ToneFile.h"

#include <random>

namespace {

using namespace std::string_literals;
using audio::Mp3Stream;
using sound::Frames;
using sound::Read;

class Stream : public testing::Test {
protected:
    void Open(const std::string& bytes) {
        mStream = Mp3Stream::Open(mFolder.Write("song.mp3", bytes));
    }
    /// Expects at some places that the tone is the one that the file has so long after its start,
    /// which lies `late` seconds within what is heard.
    void ExpectTones(double late) const {
        for (const double place : {2.25, 0.25, 1.75}) {
            const int rate = mStream->Rate();
            mStream->SeekTo(std::llround((late + place - 0.05) * rate));
            const Frames tone = Read(*mStream, static_cast<std::size_t>(rate / 10));
            EXPECT_NEAR(sound::Pitch(tone, rate), tonefile::Pitch(place), 20) << late + place;
        }
    }
    const TemporaryFolder mFolder;
    std::unique_ptr<Mp3Stream> mStream;
};

TEST_F(Stream, HasItsRealLengthAndSoundsTheSameAfterASeekAsWhenPlayedThrough) {
    constexpr double kFrame = 1152.0 / 44100;
    constexpr double kDelay = 1105.0 / 44100; // by which the encoder's tone comes late
    const std::string song = tonefile::Encode(5);
    const std::string plain = tonefile::Encode(5, {.header = false});
    const std::string bigTag = "ID3\x03\0\0\0\x7A\0\0"s + std::string(0x7A << 14, '\0');
    std::string minutes =
        tonefile::Encode(8, {.rate = 22050, .mono = true, .kbps = 32, .header = false});
    while (minutes.size() < 1'000'000)
        minutes += minutes;
    const struct {
        const char* kind; // found in the wild
        std::string bytes;
        double length; // what is really to be heard, in seconds
        double tolerance = 0.5 / 44100;
        double delay = 0;
    } cases[] = {
        {"variable rate behind a big tag", bigTag + tonefile::Encode(5, {.variable = true}), 5},
        {"mono", tonefile::Encode(5, {.rate = 22050, .mono = true, .kbps = 64}), 5},
        // Without a header frame the encoder's delay and padding are heard, too.
        {"leading garbage", std::string(5000, 'g') + plain, 193 * kFrame, 0.5 / 44100, kDelay},
        {"inner garbage", std::string(plain).insert(33'000, std::string(3000, 'g')), 192 * kFrame,
         2 * kFrame, kDelay},
        // The second header frame is heard as silence.
        {"joined", song + song, 387 * kFrame},
        {"truncated", song.substr(0, 40'000), 2.5, 2 * kFrame},
        {"minutes at a low rate", minutes, 32 * 309 * 576 / 22050.0, 0.5 / 44100, 2 * kDelay},
    };
    for (const auto& [kind, bytes, length, tolerance, delay] : cases) {
        SCOPED_TRACE(kind);
        Open(bytes);
        ASSERT_TRUE(mStream);
        EXPECT_NEAR(mStream->Length(), length, tolerance);
        const auto frames = static_cast<std::size_t>(mStream->Frames());
        const Frames played = Read(*mStream, frames + 1);
        ASSERT_EQ(played.size(), frames);
        const std::size_t places[] = {frames - 1152, frames / 2 + 77, frames / 3, 2000, 1};
        for (const std::size_t place : places) {
            mStream->SeekTo(static_cast<std::int64_t>(place));
            const Frames sought = Read(*mStream, 1152);
            ASSERT_EQ(sought.size(), 1152) << "at frame " << place;
            EXPECT_LT(sound::Difference(sought, std::span(played).subspan(place)), 1e-4f) << place;
        }
        ExpectTones(delay);
        mStream->SeekTo(mStream->Frames() + 1);
        EXPECT_TRUE(Read(*mStream, 10).empty());
    }
}

TEST_F(Stream, SongsOfDifferentRatesJoinedArePlayedRightAtEachPlace) {
    const auto hasItsLength = [this] {
        const auto heard = static_cast<double>(Read(*mStream, 2'000'000).size());
        return std::abs(heard - static_cast<double>(mStream->Frames())) < 0.001 * mStream->Rate();
    };
    for (const std::vector<int>& rates :
         {std::vector{48000, 44100, 32000, 24000, 22050, 16000, 12000, 11025, 8000},
          std::vector{8000, 48000, 11025}}) {
        std::string song;
        std::vector<double> starts = {0};
        for (const int rate : rates) {
            const std::string part =
                tonefile::Encode(3, {.rate = rate, .kbps = 64, .header = false});
            Open(part);
            song += part;
            starts.push_back(starts.back() + mStream->Length());
        }
        Open(song);
        ASSERT_EQ(mStream->Rate(), rates.front());
        EXPECT_NEAR(mStream->Length(), starts.back(), 0.001);
        EXPECT_TRUE(hasItsLength());
        for (std::size_t i = rates.size(); i-- > 0;)
            ExpectTones(starts[i] + 1105.0 / rates[i]);
    }
    const std::string low = tonefile::Encode(1, {.rate = 8000, .mono = true, .kbps = 8});
    const std::string high = tonefile::Encode(1, {.rate = 16000, .mono = true, .kbps = 16});
    Open((low + high).erase(200, 300)); // after which the library no longer sees two rates
    EXPECT_TRUE(hasItsLength());
}

TEST_F(Stream, ADamagedSongIsHeardAtEachPlace) {
    std::mt19937 random(7);
    const std::string whole = tonefile::Encode(3, {.kbps = 64, .header = false});
    for (int i = 0; i < 30; ++i) {
        std::string song = whole;
        for (int damage = 0; damage < 10; ++damage) { // bad sectors, missing pieces, wrong bytes
            const std::size_t at = random() % (song.size() - 1000);
            song.replace(at, at % 600, at % 3 * 256, static_cast<char>(at));
        }
        Open(song);
        for (int turn = 0; mStream && turn < 6; ++turn) {
            const std::int64_t place = random() % static_cast<unsigned>(mStream->Frames());
            mStream->SeekTo(place);
            const bool heard = !Read(*mStream, 5000).empty();
            EXPECT_TRUE(heard || place + 10'000 > mStream->Frames()) << i << ": " << place;
        }
    }
}

} // namespace
