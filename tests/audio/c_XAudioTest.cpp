#include "audio/c_XAudio.h"

#include "tests/audio/RecordedPlayer.h"

#include <cmath>
#include <sys/stat.h>

namespace {

using namespace std::chrono_literals;
using audio::Frame;

TEST_F(RecordedPlayer, RefusesWhatIsNoMp3FileAndThenHoldsNoFile) {
    mFolder.Write("empty.mp3", "");
    mFolder.Write("text.mp3", std::string(400000, 'a'));
    mFolder.Write("tag.mp3", "TAG" + std::string(125, 'x'));
    mkfifo((mFolder.Path() / "pipe.mp3").c_str(), 0600);
    int none = -1; // as long as no file was open
    for (const char* name :
         {"missing.mp3", "empty.mp3", "text.mp3", "tag.mp3", "pipe.mp3", ".", "/dev/zero"}) {
        EXPECT_EQ(mPlayer.OpenFile(mFolder.Path() / name), 0) << name;
        EXPECT_EQ(mPlayer.Length(), none) << name;
        EXPECT_EQ(mPlayer.Play(), 1);
        EXPECT_EQ(mPlayer.SeekTo(3), 0);
        mPlayer.PausePlay();
        mPlayer.StopPlay();
        EXPECT_EQ(mPlayer.Position(), none) << name;
        ASSERT_EQ(mPlayer.OpenFile(Song(1)), 1);
        none = 0;
    }
}

TEST_F(RecordedPlayer, PlaysFromWhereItWasSentAtItsOwnSpeedAndStaysAtTheEnd) {
    const auto next = Song(6);
    ASSERT_EQ(mPlayer.OpenFile(Song(3)), 1);
    mPlayer.SeekTo(1.02);
    for (const double rate : {2.0, 0.0, -1.0, 1e9, std::nan("")}) // all but the first are refused
        mPlayer.SetRate(rate);
    std::this_thread::sleep_for(200ms); // until its loudness is known
    ASSERT_TRUE(PlaysPast(2));
    mPlayer.PausePlay();
    ASSERT_TRUE(DeviceCloses());
    ExpectHeard(0.02, 1.1, 2);
    ExpectHeard(0.27, 1.6, 2);
    Rewind();
    mPlayer.Play();
    ASSERT_EQ(mPlayer.OpenFile(next), 1);
    std::this_thread::sleep_for(50ms);
    EXPECT_EQ(mPlayer.Position(), 0) << "plays by itself";
    mPlayer.StopPlay();
    ASSERT_TRUE(DeviceCloses());
    Rewind();
    EXPECT_DOUBLE_EQ(mPlayer.Length(), 6);
    const double places[][2] = {{-5, 0}, {6, 6}, {99, 6}, {std::nan(""), 0}, {3.05, 3.05}};
    for (const auto& [asked, reached] : places) {
        EXPECT_EQ(mPlayer.SeekTo(asked), 0);
        EXPECT_DOUBLE_EQ(mPlayer.Position(), reached);
    }
    EXPECT_TRUE(Eventually([this] { return DeviceWasOpened(); })) << "ahead of the sound";
    EXPECT_EQ(mPlayer.Position(), 3.05);
    ASSERT_TRUE(PlaysPast(3.8));
    mPlayer.SeekTo(5.55);
    EXPECT_GE(mPlayer.Position(), 5.55);
    ASSERT_TRUE(Ends());
    ASSERT_TRUE(DeviceCloses());
    ExpectHeard(0.01, 3.1);
    ExpectHeard(0.5, 3.6);
    ExpectHeard(-0.2, 5.8);
    Rewind();
    mPlayer.Play();
    std::this_thread::sleep_for(50ms);
    EXPECT_EQ(mPlayer.Position(), 6);
    EXPECT_FALSE(DeviceWasOpened());
}

TEST_F(RecordedPlayer, PausesAndGoesOnAtTheSamePlace) {
    ASSERT_EQ(mPlayer.OpenFile(Song(3)), 1);
    mPlayer.PausePlay(); // before it was started
    EXPECT_EQ(mPlayer.Position(), 0);
    mPlayer.PausePlay();
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
    mPlayer.StopPlay();
    ASSERT_TRUE(DeviceCloses());
    // Both parts together are the song, but for frames that are silent in themselves.
    EXPECT_NEAR(heard + static_cast<double>(Sound().size()), 3 * kRate, 400);
    mPlayer.PausePlay();
    mPlayer.StopPlay(); // does not undo the pause
    EXPECT_EQ(mPlayer.Position(), 0);
    mPlayer.PausePlay();
    EXPECT_TRUE(Passes(0));
    mPlayer.PausePlay();
    EXPECT_TRUE(PlaysPast(mPlayer.Position())); // does
}

TEST_F(RecordedPlayer, NeverClicks) {
    const auto hum = mFolder.Write("hum.mp3", tonefile::Encode(25, {.pitch = 100}));
    const auto other = mFolder.Write("other.mp3", tonefile::Encode(3, {.pitch = 80}));
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
    for (const auto pause : {0ms, 3ms, 8ms, 15ms, 24ms}) {
        for (const auto& call : calls) {
            call();
            const double before = mPlayer.Position();
            std::this_thread::sleep_for(pause);
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

TEST_F(RecordedPlayer, RunsTheSongToItsEndInSilenceWithoutADevice) {
    setenv("AUDIODEV", "no-such-device", 1);
    for (const char* driver : {"no_such_driver", "alsa"}) {
        SCOPED_TRACE(driver);
        setenv("SDL_AUDIODRIVER", driver, 1);
        testing::internal::CaptureStderr();
        c_XAudio player;
        ASSERT_EQ(player.OpenFile(Song(1)), 1);
        player.SeekTo(0.5);
        player.Play();
        EXPECT_TRUE(Eventually([&player] { return player.Position() > 0.6; }));
        player.PausePlay();
        EXPECT_LT(player.Position(), 1);
        player.PausePlay();
        EXPECT_TRUE(Eventually([&player] { return player.Position() == 1; }));
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    }
    unsetenv("AUDIODEV");
}

} // namespace
