#include "audio/c_XAudio.h"

#include "tests/audio/Sound.h"
#include "tests/audio/ToneFile.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>
#include <thread>

namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;
using audio::Frame;

constexpr int kRate = 44100;

void UseDriver(const char* name) {
    setenv("SDL_AUDIODRIVER", name, 1);
}

bool Eventually(const std::function<bool()>& condition) {
    const auto limit = std::chrono::steady_clock::now() + 20s;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit)
            return false;
        std::this_thread::sleep_for(1ms);
    }
    return true;
}

fs::path Song(double seconds) {
    const fs::path path = sound::TestFolder() / ("song" + std::to_string(seconds) + ".mp3");
    if (!fs::exists(path))
        tonefile::Write(path, tonefile::Encode(seconds));
    return path;
}

/// A sound device that writes what it is given to a file, faster than it would be heard.
class Recorder {
public:
    Recorder() {
        UseDriver("disk");
        setenv("SDL_DISKAUDIODELAY", "1", 1);
        Rewind();
    }
    /// Has the device write to a new file when it is opened the next time.
    void Rewind() {
        mPath = sound::TestFolder() / ("sound" + std::to_string(++mCount));
        fs::remove(mPath);
        setenv("SDL_DISKAUDIOFILE", mPath.c_str(), 1);
    }
    bool Opened() const { return fs::exists(mPath); }
    /// Whether the device is open at this moment.
    bool Open() const {
        for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
            std::error_code gone;
            if (fs::read_symlink(entry.path(), gone) == mPath)
                return true;
        }
        return false;
    }
    bool HasSeconds(double seconds) const {
        std::error_code missing;
        const auto size = fs::file_size(mPath, missing);
        return !missing && static_cast<double>(size) > seconds * kRate * sizeof(Frame);
    }
    /// What was played, without the silent frames: those between sounds, and gaps that a slow
    /// machine leaves.
    std::vector<Frame> Sound() const {
        std::ifstream file(mPath, std::ios::binary);
        std::vector<Frame> frames;
        for (Frame frame; file.read(reinterpret_cast<char*>(&frame), sizeof frame);)
            if (frame.left != 0)
                frames.push_back(frame);
        return frames;
    }

private:
    static inline int mCount = 0;
    fs::path mPath;
};

double PitchAt(const std::vector<Frame>& sound, double seconds) {
    const auto at = static_cast<std::size_t>(seconds * kRate);
    if (sound.size() < at + kRate / 10)
        return -1;
    return sound::Pitch(std::span(sound).subspan(at, kRate / 10), kRate);
}

TEST(ClipPlayer, KnowsNothingBeforeAFileWasOpened) {
    c_XAudio player;
    EXPECT_EQ(player.OpenFile(sound::TestFolder() / "missing.mp3"), 0);
    EXPECT_EQ(player.Length(), -1);
    EXPECT_EQ(player.Position(), -1);
    EXPECT_EQ(player.Play(), 1);
    EXPECT_EQ(player.SeekTo(3), 0);
    player.PausePlay();
    player.StopPlay();
    player.SetRate(2);
    EXPECT_EQ(player.Position(), -1);
}

TEST(ClipPlayer, RefusesWhatIsNoMp3FileAndThenHoldsNoFile) {
    const fs::path folder = sound::TestFolder();
    tonefile::Write(folder / "empty.mp3", "");
    std::string text;
    for (int i = 0; i < 20000; ++i)
        text += "All work and no play. ";
    tonefile::Write(folder / "text.mp3", text);
    tonefile::Write(folder / "tag.mp3", "TAG" + std::string(125, 'x'));
    fs::create_directory(folder / "folder.mp3");
    mkfifo((folder / "pipe.mp3").c_str(), 0600);
    c_XAudio player;
    for (const char* name : {"missing.mp3", "empty.mp3", "text.mp3", "tag.mp3", "folder.mp3",
                             "pipe.mp3", "/dev/zero", ""}) {
        ASSERT_EQ(player.OpenFile(Song(1)), 1);
        EXPECT_EQ(player.OpenFile(*name == '\0' ? fs::path() : folder / name), 0) << name;
        EXPECT_EQ(player.Length(), 0) << name;
        EXPECT_EQ(player.Position(), 0) << name;
        player.Play();
        EXPECT_EQ(player.Position(), 0) << name;
    }
}

TEST(ClipPlayer, KeepsThePositionWithinTheSong) {
    c_XAudio player;
    ASSERT_EQ(player.OpenFile(Song(3)), 1);
    EXPECT_DOUBLE_EQ(player.Length(), 3);
    EXPECT_EQ(player.Position(), 0);
    const double nan = std::nan("");
    const double places[][2] = {{1.25, 1.25}, {-5, 0}, {3, 3}, {99, 3}, {nan, 0}};
    for (const auto& [asked, reached] : places) {
        EXPECT_EQ(player.SeekTo(asked), 0);
        EXPECT_DOUBLE_EQ(player.Position(), reached);
    }
    player.SeekTo(2);
    player.StopPlay();
    EXPECT_EQ(player.Position(), 0);
}

TEST(ClipPlayer, PlaysFromWhereItWasSentAndOpensTheDeviceOnlyForThat) {
    Recorder recorder;
    c_XAudio player;
    ASSERT_EQ(player.OpenFile(Song(6)), 1);
    player.SeekTo(4.05);
    EXPECT_FALSE(recorder.Opened());
    player.Play();
    ASSERT_TRUE(Eventually([&] { return recorder.HasSeconds(0.9); }));
    player.StopPlay();
    EXPECT_EQ(player.Position(), 0);
    EXPECT_TRUE(Eventually([&] { return !recorder.Open(); }));
    const std::vector<Frame> sound = recorder.Sound();
    EXPECT_NEAR(PitchAt(sound, 0.01), tonefile::Pitch(4.1), 20);
    EXPECT_NEAR(PitchAt(sound, 0.5), tonefile::Pitch(4.6), 20);
    EXPECT_LT(std::abs(sound.front().left), 0.01) << "starts with a click";
}

TEST(ClipPlayer, SeeksWhilePlaying) {
    Recorder recorder;
    c_XAudio player;
    ASSERT_EQ(player.OpenFile(Song(6)), 1);
    player.Play();
    ASSERT_TRUE(Eventually([&] { return player.Position() > 0.1; }));
    player.SeekTo(5.55);
    EXPECT_GE(player.Position(), 5.55);
    ASSERT_TRUE(Eventually([&] { return player.Position() == player.Length(); }));
    std::vector<Frame> sound = recorder.Sound();
    ASSERT_GT(sound.size(), kRate / 2u);
    std::reverse(sound.begin(), sound.end());
    EXPECT_NEAR(PitchAt(sound, 0.1), tonefile::Pitch(5.8), 20);
}

TEST(ClipPlayer, PausesAndGoesOnAtTheSamePlace) {
    Recorder recorder;
    c_XAudio player;
    ASSERT_EQ(player.OpenFile(Song(3)), 1);
    player.Play();
    ASSERT_TRUE(Eventually([&] { return recorder.HasSeconds(0.5); }));
    player.PausePlay();
    const double paused = player.Position();
    ASSERT_TRUE(Eventually([&] { return !recorder.Open(); }));
    EXPECT_EQ(player.Position(), paused);
    const auto heard = static_cast<double>(recorder.Sound().size());
    recorder.Rewind();
    player.PausePlay();
    EXPECT_GE(player.Position(), paused);
    ASSERT_TRUE(Eventually([&] { return player.Position() == player.Length(); }));
    // Both parts together are the song, but for frames that are silent in themselves.
    const auto rest = static_cast<double>(recorder.Sound().size());
    EXPECT_NEAR(heard + rest, 3 * kRate, 400);
}

TEST(ClipPlayer, PlaysTwiceAsFastAtDoubleRateAndNormallyAgain) {
    Recorder recorder;
    c_XAudio player;
    ASSERT_EQ(player.OpenFile(Song(6)), 1);
    player.SeekTo(1.02);
    for (const double refused : {2.0, 0.0, -1.0, 1e9, std::nan("")})
        player.SetRate(refused);
    player.Play();
    ASSERT_TRUE(Eventually([&] { return player.Position() > 2.5; }));
    player.SetRate(1);
    ASSERT_TRUE(Eventually([&] { return player.Position() == player.Length(); }));
    std::vector<Frame> sound = recorder.Sound();
    EXPECT_NEAR(PitchAt(sound, 0.02), 2 * tonefile::Pitch(1.1), 25);
    EXPECT_NEAR(PitchAt(sound, 0.27), 2 * tonefile::Pitch(1.6), 25);
    std::reverse(sound.begin(), sound.end());
    EXPECT_NEAR(PitchAt(sound, 0.1), tonefile::Pitch(5.8), 25);
}

TEST(ClipPlayer, StopsByItselfAtTheEndAndStaysThere) {
    Recorder recorder;
    c_XAudio player;
    ASSERT_EQ(player.OpenFile(Song(1)), 1);
    player.Play();
    ASSERT_TRUE(Eventually([&] { return player.Position() == player.Length(); }));
    ASSERT_TRUE(Eventually([&] { return !recorder.Open(); }));
    EXPECT_NEAR(static_cast<double>(recorder.Sound().size()), kRate, 200);
    recorder.Rewind();
    player.Play();
    std::this_thread::sleep_for(50ms);
    EXPECT_EQ(player.Position(), player.Length());
    EXPECT_FALSE(recorder.Opened());
    player.SeekTo(0.5);
    EXPECT_EQ(player.Position(), 0.5);
    player.Play();
    EXPECT_TRUE(Eventually([&] { return recorder.HasSeconds(0.2); }));
}

TEST(ClipPlayer, OpensAnotherSongWhileOnePlays) {
    Recorder recorder;
    c_XAudio player;
    ASSERT_EQ(player.OpenFile(Song(6)), 1);
    player.SeekTo(3);
    player.SetRate(2);
    player.Play();
    ASSERT_TRUE(Eventually([&] { return player.Position() > 3; }));
    ASSERT_EQ(player.OpenFile(Song(1)), 1);
    EXPECT_EQ(player.Position(), 0);
    EXPECT_EQ(player.Length(), 1);
    ASSERT_TRUE(Eventually([&] { return !recorder.Open(); }));
    EXPECT_EQ(player.Position(), 0) << "plays by itself";
    recorder.Rewind();
    player.Play();
    ASSERT_TRUE(Eventually([&] { return player.Position() == 1; }));
    EXPECT_NEAR(PitchAt(recorder.Sound(), 0.6), tonefile::Pitch(0.7), 20);
}

TEST(ClipPlayer, PausesWhatWasNotStartedAndTheNextPauseRunsIt) {
    UseDriver("dummy");
    c_XAudio player;
    ASSERT_EQ(player.OpenFile(Song(6)), 1);
    player.SeekTo(2);
    player.PausePlay();
    EXPECT_EQ(player.Position(), 2);
    player.PausePlay();
    EXPECT_TRUE(Eventually([&] { return player.Position() > 2.1; }));
    player.PausePlay();
    player.StopPlay(); // does not undo the pause
    player.PausePlay();
    EXPECT_TRUE(Eventually([&] { return player.Position() > 0; }));
    player.PausePlay();
    player.Play(); // does
    const double before = player.Position();
    EXPECT_TRUE(Eventually([&] { return player.Position() > before; }));
    player.PausePlay();
    const double paused = player.Position();
    std::this_thread::sleep_for(50ms);
    EXPECT_EQ(player.Position(), paused);
}

class NoDevice : public testing::TestWithParam<const char*> {};

TEST_P(NoDevice, RunsTheSongToItsEndInSilence) {
    UseDriver(GetParam());
    setenv("AUDIODEV", "no-such-device", 1);
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    {
        c_XAudio player;
        ASSERT_EQ(player.OpenFile(Song(1)), 1);
        player.SeekTo(0.5);
        player.Play();
        EXPECT_TRUE(Eventually([&] { return player.Position() > 0.6; }));
        player.PausePlay();
        EXPECT_LT(player.Position(), 1);
        player.PausePlay();
        EXPECT_TRUE(Eventually([&] { return player.Position() == 1; }));
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    unsetenv("AUDIODEV");
}

INSTANTIATE_TEST_SUITE_P(Drivers, NoDevice, testing::Values("no_such_driver", "alsa"));

TEST(ClipPlayer, StandsAnyOrderOfCallsWithoutEverRunningBackwardsBetweenThem) {
    UseDriver("dummy");
    c_XAudio player;
    std::mt19937 random(1);
    const auto draw = [&](unsigned below) { return static_cast<unsigned>(random() % below); };
    ASSERT_EQ(player.OpenFile(Song(1)), 1);
    for (int i = 0; i < 300; ++i) {
        switch (draw(8)) {
        case 0:
            ASSERT_EQ(player.OpenFile(Song(draw(2) == 0 ? 1 : 3)), 1);
            break;
        case 1:
            player.StopPlay();
            break;
        case 2:
            player.PausePlay();
            break;
        case 3:
            player.SeekTo(draw(30) / 10.0);
            break;
        case 4:
            player.SetRate(draw(5));
            break;
        default:
            player.Play();
        }
        double last = player.Position();
        for (unsigned polls = draw(15); polls > 0; --polls) {
            const double position = player.Position();
            ASSERT_GE(position, last);
            ASSERT_LE(position, player.Length());
            last = position;
            std::this_thread::sleep_for(1ms);
        }
    }
}

} // namespace
