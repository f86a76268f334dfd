#include "audio/c_XAudio.h"

#include "tests/audio/RecordedPlayer.h"

#include <sys/stat.h>

namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;
using audio::Frame;

TEST_F(ClipPlayer, RefusesWhatIsNoMp3FileAndThenHoldsNoFile) {
    EXPECT_EQ(mPlayer.OpenFile("missing.mp3"), 0);
    EXPECT_EQ(mPlayer.Length(), -1);
    EXPECT_EQ(mPlayer.Play(), 1);
    EXPECT_EQ(mPlayer.SeekTo(3), 0);
    EXPECT_EQ(mPlayer.Position(), -1);

    mFolder.Write("empty.mp3", "");
    mFolder.Write("text.mp3", std::string(400000, 'a'));
    mFolder.Write("tag.mp3", "TAG" + std::string(125, 'x'));
    mkfifo((mFolder.Path() / "pipe.mp3").c_str(), 0600);
    for (const char* name :
         {"missing.mp3", "empty.mp3", "text.mp3", "tag.mp3", "pipe.mp3", ".", "/dev/zero"}) {
        ASSERT_EQ(mPlayer.OpenFile(Song(1)), 1);
        EXPECT_EQ(mPlayer.OpenFile(mFolder.Path() / name), 0) << name;
        EXPECT_EQ(mPlayer.Length(), 0) << name;
        mPlayer.Play();
        mPlayer.PausePlay();
        EXPECT_EQ(mPlayer.Position(), 0) << name;
    }
}

TEST_F(ClipPlayer, KeepsThePositionWithinTheSong) {
    ASSERT_EQ(mPlayer.OpenFile(Song(3)), 1);
    EXPECT_DOUBLE_EQ(mPlayer.Length(), 3);
    EXPECT_EQ(mPlayer.Position(), 0);
    const double places[][2] = {{1.25, 1.25}, {-5, 0}, {3, 3}, {99, 3}, {std::nan(""), 0}};
    for (const auto& [asked, reached] : places) {
        EXPECT_EQ(mPlayer.SeekTo(asked), 0);
        EXPECT_DOUBLE_EQ(mPlayer.Position(), reached);
    }
}

TEST_F(RecordedPlayer, PlaysFromWhereItWasSentAndStaysAtTheEnd) {
    ASSERT_EQ(mPlayer.OpenFile(Song(6)), 1);
    mPlayer.SeekTo(3.05);
    EXPECT_TRUE(Eventually([this] { return DeviceWasOpened(); })) << "ahead of the sound";
    EXPECT_EQ(mPlayer.Position(), 3.05);
    mPlayer.Play();
    ASSERT_TRUE(Passes(3.8));
    mPlayer.SeekTo(5.55);
    EXPECT_GE(mPlayer.Position(), 5.55);
    ASSERT_TRUE(Ends());
    ASSERT_TRUE(DeviceCloses());
    EXPECT_NEAR(PitchAt(0.01), tonefile::Pitch(3.1), 20);
    EXPECT_NEAR(PitchAt(0.5), tonefile::Pitch(3.6), 20);
    EXPECT_NEAR(PitchAt(-0.2), tonefile::Pitch(5.8), 20);
    Rewind();
    mPlayer.Play();
    std::this_thread::sleep_for(50ms);
    EXPECT_EQ(mPlayer.Position(), 6);
    EXPECT_FALSE(DeviceWasOpened());
}

TEST_F(RecordedPlayer, PausesAndGoesOnAtTheSamePlace) {
    ASSERT_EQ(mPlayer.OpenFile(Song(3)), 1);
    mPlayer.Play();
    ASSERT_TRUE(Passes(0.5));
    mPlayer.PausePlay();
    const double paused = mPlayer.Position();
    ASSERT_TRUE(DeviceCloses());
    EXPECT_EQ(mPlayer.Position(), paused);
    const auto heard = static_cast<double>(Sound().size());
    Rewind();
    mPlayer.PausePlay();
    EXPECT_GE(mPlayer.Position(), paused);
    ASSERT_TRUE(Ends());
    // Both parts together are the song, but for frames that are silent in themselves.
    EXPECT_NEAR(heard + static_cast<double>(Sound().size()), 3 * kRate, 400);
}

TEST_F(RecordedPlayer, PlaysTwiceAsFastAtDoubleRateButNotTheNextSong) {
    ASSERT_EQ(mPlayer.OpenFile(Song(6)), 1);
    mPlayer.SeekTo(1.02);
    for (const double rate : {2.0, 0.0, -1.0, 1e9, std::nan("")}) // all but the first are refused
        mPlayer.SetRate(rate);
    mPlayer.Play();
    ASSERT_TRUE(Passes(2.5));
    ASSERT_EQ(mPlayer.OpenFile(Song(1)), 1);
    mPlayer.StopPlay();
    ASSERT_TRUE(DeviceCloses());
    EXPECT_NEAR(PitchAt(0.02), 2 * tonefile::Pitch(1.1), 25);
    EXPECT_NEAR(PitchAt(0.27), 2 * tonefile::Pitch(1.6), 25);
    EXPECT_EQ(mPlayer.Position(), 0) << "plays by itself";
    Rewind();
    mPlayer.Play();
    ASSERT_TRUE(Ends());
    EXPECT_NEAR(PitchAt(0.6), tonefile::Pitch(0.7), 20);
}

TEST_F(ClipPlayer, PausesWhatWasNotStartedAndTheNextPauseRunsIt) {
    ASSERT_EQ(mPlayer.OpenFile(Song(6)), 1);
    mPlayer.SeekTo(2);
    mPlayer.PausePlay();
    EXPECT_EQ(mPlayer.Position(), 2);
    mPlayer.PausePlay();
    EXPECT_TRUE(Passes(2.1));
    mPlayer.PausePlay();
    mPlayer.StopPlay(); // does not undo the pause
    EXPECT_EQ(mPlayer.Position(), 0);
    mPlayer.PausePlay();
    EXPECT_TRUE(Passes(0));
    mPlayer.PausePlay();
    mPlayer.Play(); // does
    EXPECT_TRUE(Passes(mPlayer.Position()));
}

TEST_F(RecordedPlayer, NeverClicks) {
    const fs::path hum = mFolder.Write("hum.mp3", tonefile::Encode(60, {.pitch = 100}));
    const fs::path other = mFolder.Write("other.mp3", tonefile::Encode(3, {.pitch = 80}));
    const std::function<void()> calls[] = {
        [&] { EXPECT_EQ(mPlayer.OpenFile(hum), 1); },
        [&] { mPlayer.SeekTo(1.2345); },
        [&] { mPlayer.Play(); },
        [&] { mPlayer.PausePlay(); },
        [&] { mPlayer.PausePlay(); },
        [&] { mPlayer.SetRate(2); },
        [&] { mPlayer.SeekTo(20.001); },
        [&] { mPlayer.SetRate(1); },
        [&] { mPlayer.StopPlay(); },
    };
    // All within one opening of the device, which would begin a new file.
    for (int i = 0; i < 10; ++i) {
        for (const auto& call : calls) {
            call();
            const double before = mPlayer.Position();
            std::this_thread::sleep_for(i * 3ms);
            EXPECT_GE(mPlayer.Position(), before);
        }
    }
    ASSERT_EQ(mPlayer.OpenFile(other), 1); // takes the sound over
    mPlayer.Play();
    ASSERT_TRUE(Ends());
    ASSERT_TRUE(DeviceCloses());
    const std::vector<Frame> heard = Recording();
    ASSERT_GT(heard.size(), 1.9 * kRate);
    EXPECT_EQ(heard.back().left, 0);
    // A jump bends the curve more than the tone, which does it by 0.00003, and more than a fade.
    for (std::size_t i = 2; i < heard.size(); ++i) {
        const float bend = heard[i].left - 2 * heard[i - 1].left + heard[i - 2].left;
        ASSERT_LT(std::abs(bend), 0.004F) << "frame " << i << " of " << heard.size();
    }
}

class NoDevice : public ClipPlayer, public testing::WithParamInterface<const char*> {};

TEST_P(NoDevice, RunsTheSongToItsEndInSilence) {
    setenv("SDL_AUDIODRIVER", GetParam(), 1);
    setenv("AUDIODEV", "no-such-device", 1);
    testing::internal::CaptureStderr();
    ASSERT_EQ(mPlayer.OpenFile(Song(1)), 1);
    mPlayer.SeekTo(0.5);
    mPlayer.Play();
    EXPECT_TRUE(Passes(0.6));
    mPlayer.PausePlay();
    EXPECT_LT(mPlayer.Position(), 1);
    mPlayer.PausePlay();
    EXPECT_TRUE(Ends());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    unsetenv("AUDIODEV");
}

INSTANTIATE_TEST_SUITE_P(Drivers, NoDevice, testing::Values("no_such_driver", "alsa"));

} // namespace
