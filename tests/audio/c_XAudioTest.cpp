#include "audio/c_XAudio.h"

#include "tests/TemporaryFolder.h"
#include "tests/audio/Sound.h"
#include "tests/audio/ToneFile.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <functional>
#include <random>
#include <sys/stat.h>
#include <thread>

namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;
using audio::Frame;

constexpr int kRate = 44100;

bool Eventually(const std::function<bool()>& condition) {
    const auto limit = std::chrono::steady_clock::now() + 20s;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit)
            return false;
        std::this_thread::sleep_for(1ms);
    }
    return true;
}

class ClipPlayer : public testing::Test {
protected:
    ClipPlayer() { setenv("SDL_AUDIODRIVER", "dummy", 1); }
    fs::path Song(int seconds) const {
        const fs::path path = mFolder.Path() / std::to_string(seconds);
        if (!fs::exists(path))
            tonefile::Write(path, tonefile::Encode(seconds));
        return path;
    }
    bool Passes(double seconds) const {
        return Eventually([&] { return mPlayer.Position() > seconds; });
    }
    bool Ends() const {
        return Eventually([&] { return mPlayer.Position() == mPlayer.Length(); });
    }

    const TemporaryFolder mFolder;
    c_XAudio mPlayer;
};

/// With a sound device that writes what it is given to a file, faster than it would be heard.
class RecordedPlayer : public ClipPlayer {
protected:
    RecordedPlayer() {
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIODELAY", "1", 1);
        Rewind();
    }
    /// Has the device write to a new file when it is opened the next time.
    void Rewind() {
        fs::remove(mSoundFile);
        mSoundFile += "'";
        setenv("SDL_DISKAUDIOFILE", mSoundFile.c_str(), 1);
    }
    bool DeviceWasOpened() const { return fs::exists(mSoundFile); }
    bool DeviceCloses() const {
        return Eventually([this] {
            std::error_code gone;
            const fs::directory_iterator handles("/proc/self/fd");
            return std::none_of(begin(handles), end(handles), [&](const auto& handle) {
                return fs::read_symlink(handle.path(), gone) == mSoundFile;
            });
        });
    }
    /// What was played, without the silent frames: those between sounds, and gaps that a slow
    /// machine leaves.
    std::vector<Frame> Sound() const {
        std::ifstream file(mSoundFile, std::ios::binary);
        std::vector<Frame> frames;
        for (Frame frame; file.read(reinterpret_cast<char*>(&frame), sizeof frame);)
            if (frame.left != 0)
                frames.push_back(frame);
        return frames;
    }
    /// The pitch `seconds` after the start or, below 0, before the end.
    double PitchAt(double seconds) const {
        const std::vector<Frame> sound = Sound();
        const auto size = static_cast<double>(sound.size());
        const double start = seconds * kRate + (seconds < 0 ? size : 0);
        if (start < 0 || start + kRate / 10 > size)
            return -1;
        const auto first = static_cast<std::size_t>(start);
        return sound::Pitch(std::span(sound).subspan(first, kRate / 10), kRate);
    }

private:
    fs::path mSoundFile = mFolder.Path() / "sound";
};

TEST_F(ClipPlayer, RefusesWhatIsNoMp3FileAndThenHoldsNoFile) {
    EXPECT_EQ(mPlayer.OpenFile("missing.mp3"), 0);
    EXPECT_EQ(mPlayer.Length(), -1);
    EXPECT_EQ(mPlayer.Play(), 1);
    EXPECT_EQ(mPlayer.SeekTo(3), 0);
    EXPECT_EQ(mPlayer.Position(), -1);

    mFolder.Write("empty.mp3", "");
    mFolder.Write("zeros.mp3", std::string(400000, '\0'));
    mFolder.Write("text.mp3", std::string(400000, 'a'));
    mFolder.Write("tag.mp3", "TAG" + std::string(125, 'x'));
    fs::create_directory(mFolder.Path() / "folder.mp3");
    mkfifo((mFolder.Path() / "pipe.mp3").c_str(), 0600);
    for (const char* name : {"missing.mp3", "empty.mp3", "zeros.mp3", "text.mp3", "tag.mp3",
                             "folder.mp3", "pipe.mp3", "/dev/zero"}) {
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
    EXPECT_FALSE(DeviceWasOpened());
    mPlayer.Play();
    ASSERT_TRUE(Passes(3.8));
    mPlayer.SeekTo(5.55);
    EXPECT_GE(mPlayer.Position(), 5.55);
    ASSERT_TRUE(Ends());
    ASSERT_TRUE(DeviceCloses());
    EXPECT_LT(std::abs(Sound().front().left), 0.01) << "starts with a click";
    EXPECT_NEAR(PitchAt(0.01), tonefile::Pitch(3.1), 20);
    EXPECT_NEAR(PitchAt(0.5), tonefile::Pitch(3.6), 20);
    EXPECT_NEAR(PitchAt(-0.2), tonefile::Pitch(5.8), 20);
    Rewind();
    mPlayer.Play();
    std::this_thread::sleep_for(50ms);
    EXPECT_EQ(mPlayer.Position(), 6);
    EXPECT_FALSE(DeviceWasOpened());
    mPlayer.SeekTo(5);
    mPlayer.Play();
    EXPECT_TRUE(Ends());
    EXPECT_NEAR(PitchAt(0.1), tonefile::Pitch(5.1), 20);
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
    mPlayer.PausePlay();
    const double paused = mPlayer.Position();
    std::this_thread::sleep_for(50ms);
    EXPECT_EQ(mPlayer.Position(), paused);
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

TEST_F(ClipPlayer, StandsAnyOrderOfCalls) {
    std::mt19937 random(1);
    const auto draw = [&](unsigned below) { return static_cast<unsigned>(random() % below); };
    const std::array<std::function<void()>, 6> calls = {
        [&] { EXPECT_EQ(mPlayer.OpenFile(Song(draw(2) == 0 ? 1 : 3)), 1); },
        [&] { mPlayer.StopPlay(); },
        [&] { mPlayer.PausePlay(); },
        [&] { mPlayer.SeekTo(draw(30) / 10.0); },
        [&] { mPlayer.SetRate(draw(5)); },
        [&] { mPlayer.Play(); },
    };
    ASSERT_EQ(mPlayer.OpenFile(Song(1)), 1);
    for (int i = 0; i < 300; ++i) {
        calls[draw(calls.size())]();
        const double before = mPlayer.Position();
        std::this_thread::sleep_for(draw(15) * 1ms);
        ASSERT_GE(mPlayer.Position(), before);
        ASSERT_LE(mPlayer.Position(), mPlayer.Length());
    }
}

} // namespace
