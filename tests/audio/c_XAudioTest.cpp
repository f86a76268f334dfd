#include "audio/c_XAudio.h"

#include "tests/audio/RecordedPlayer.h"

#include <sys/stat.h>

namespace {

using namespace std::chrono_literals;

TEST_F(RecordedPlayer, RefusesWhatIsNoMp3FileAndThenHoldsNoFile) {
    mFolder.Write("empty.mp3", "");
    mFolder.Write("text.mp3", std::string(400000, 'a'));
    mkfifo((mFolder.Path() / "pipe.mp3").c_str(), 0600);
    EXPECT_EQ(mPlayer.Length(), -1) << "before any file was open";
    for (const char* name :
         {"missing.mp3", "empty.mp3", "text.mp3", "pipe.mp3", ".", "/dev/zero"}) {
        ASSERT_EQ(mPlayer.OpenFile(Song(1)), 1);
        EXPECT_EQ(mPlayer.OpenFile(mFolder.Path() / name), 0) << name;
        EXPECT_EQ(mPlayer.Length(), 0) << name;
        EXPECT_EQ(mPlayer.Play(), 1);
        EXPECT_EQ(mPlayer.SeekTo(3), 0);
        mPlayer.PausePlay();
        mPlayer.StopPlay();
        EXPECT_EQ(mPlayer.Position(), 0) << name;
    }
}

TEST_F(RecordedPlayer, PlaysFromWhereItWasSentAtItsOwnSpeedAndStaysAtTheEnd) {
    ASSERT_EQ(mPlayer.OpenFile(Song(3)), 1);
    mPlayer.SeekTo(1.02);
    for (const double rate : {2.0, 0.0, -1.0, 1e9, std::nan("")}) // all but the first are refused
        mPlayer.SetRate(rate);
    std::this_thread::sleep_for(200ms); // until its loudness is known
    ASSERT_TRUE(PlaysPast(2));
    mPlayer.PausePlay();
    sound::Frames heard = RecordedSound();
    ExpectHeard(heard, 0.02, 1.1, 2);
    ExpectHeard(heard, 0.27, 1.6, 2);
    mPlayer.Play();
    ASSERT_EQ(mPlayer.OpenFile(Song(6)), 1);
    std::this_thread::sleep_for(50ms);
    EXPECT_EQ(mPlayer.Position(), 0) << "plays by itself";
    mPlayer.StopPlay();
    Recorded();
    EXPECT_DOUBLE_EQ(mPlayer.Length(), 6);
    const double places[][2] = {{-5, 0}, {6, 6}, {99, 6}, {std::nan(""), 0}, {3.05, 3.05}};
    for (const auto& [asked, reached] : places) {
        EXPECT_EQ(mPlayer.SeekTo(asked), 0);
        EXPECT_DOUBLE_EQ(mPlayer.Position(), reached);
    }
    EXPECT_TRUE(DeviceOpens()) << "ahead of the sound";
    EXPECT_EQ(mPlayer.Position(), 3.05);
    ASSERT_TRUE(PlaysPast(3.8));
    mPlayer.SeekTo(5.55);
    EXPECT_GE(mPlayer.Position(), 5.55);
    ASSERT_TRUE(PlaysToTheEnd());
    mPlayer.Play();
    std::this_thread::sleep_for(50ms);
    EXPECT_EQ(mPlayer.Position(), 6);
    mPlayer.StopPlay();
    EXPECT_EQ(mPlayer.Position(), 0);
    heard = RecordedSound();
    ExpectHeard(heard, 0.01, 3.1);
    ExpectHeard(heard, 0.5, 3.6);
    ExpectHeard(heard, -0.2, 5.8);
}

TEST_F(RecordedPlayer, PausesAndGoesOnAtTheSamePlace) {
    ASSERT_EQ(mPlayer.OpenFile(Song(3)), 1);
    mPlayer.PausePlay(); // before it was started
    EXPECT_EQ(mPlayer.Position(), 0);
    mPlayer.PausePlay();
    ASSERT_TRUE(Eventually([this] { return mPlayer.Position() > 0.5; }));
    mPlayer.PausePlay();
    const double paused = mPlayer.Position();
    const auto heard = static_cast<double>(RecordedSound().size());
    EXPECT_EQ(mPlayer.Position(), paused);
    mPlayer.PausePlay();
    EXPECT_GE(mPlayer.Position(), paused);
    ASSERT_TRUE(PlaysToTheEnd());
    mPlayer.StopPlay();
    // Both parts together are the song, but for frames that are silent in themselves.
    EXPECT_NEAR(heard + static_cast<double>(RecordedSound().size()), 3 * kRate, 400);
    mPlayer.PausePlay();
    mPlayer.StopPlay(); // does not undo the pause
    mPlayer.PausePlay();
    EXPECT_TRUE(Eventually([this] { return mPlayer.Position() > 0; }));
}

TEST_F(RecordedPlayer, RunsTheSongToItsEndInSilenceWithoutADevice) {
    setenv("AUDIODEV", "no-such-device", 1);
    for (const char* driver : {"no_such_driver", "alsa"}) {
        SCOPED_TRACE(driver);
        setenv("SDL_AUDIODRIVER", driver, 1);
        testing::internal::CaptureStderr();
        ASSERT_EQ(mPlayer.OpenFile(Song(1)), 1);
        mPlayer.SeekTo(0.5);
        ASSERT_TRUE(PlaysPast(0.6));
        mPlayer.PausePlay();
        EXPECT_LT(mPlayer.Position(), 1);
        EXPECT_TRUE(PlaysToTheEnd());
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    }
    unsetenv("AUDIODEV");
}

} // namespace
