#pragma once

#include "audio/c_XAudio.h"
#include "platform/Aside.h"
#include "tests/TemporaryFolder.h"
#include "tests/audio/Sound.h"
#include "tests/audio/ToneFile.h"

#include <chrono>
#include <cstring>
#include <functional>
#include <thread>

inline bool Eventually(const std::function<bool()>& condition) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition() && std::chrono::steady_clock::now() < limit)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return condition();
}

/// Without the silent frames: those between sounds, and gaps that a slow machine leaves.
inline sound::Frames WithoutSilence(sound::Frames frames) {
    std::erase_if(frames, [](const audio::Frame& frame) { return frame.left == 0; });
    return frames;
}

/// A player with a sound device that writes what it is given to a file, faster than it would be
/// heard.
class RecordedPlayer : public testing::Test {
protected:
    static constexpr int kRate = 44100;

    RecordedPlayer() {
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIODELAY", "1", 1);
        Rewind();
    }
    std::filesystem::path Song(int seconds) const {
        const std::filesystem::path path = mFolder.Path() / std::to_string(seconds);
        return exists(path) ? path : mFolder.Write(path, tonefile::Encode(seconds));
    }
    bool PlaysPast(double seconds) {
        mPlayer.Play();
        return Eventually([&] { return mPlayer.Position() > seconds; });
    }
    bool PlaysToTheEnd() {
        mPlayer.Play();
        return Eventually([&] { return mPlayer.Position() == mPlayer.Length(); });
    }
    /// Has the device write to a new file when it is opened the next time.
    void Rewind() {
        mSoundFile += "'";
        setenv("SDL_DISKAUDIOFILE", mSoundFile.c_str(), 1);
    }
    bool DeviceOpens() const {
        return Eventually([this] { return std::filesystem::exists(mSoundFile); });
    }
    /// Waits until the device is closed, rewinds and returns what was played, which is not cut off.
    sound::Frames Recorded() {
        EXPECT_TRUE(Eventually([this] {
            std::error_code gone;
            const std::filesystem::directory_iterator handles("/proc/self/fd");
            return std::none_of(begin(handles), end(handles), [&](const auto& handle) {
                return std::filesystem::read_symlink(handle.path(), gone) == mSoundFile;
            });
        }));
        std::ifstream file(mSoundFile, std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        Rewind();
        sound::Frames frames(bytes.size() / sizeof(audio::Frame));
        if (!frames.empty())
            std::memcpy(frames.data(), bytes.data(), bytes.size());
        EXPECT_TRUE(frames.empty() || frames.back().left == 0);
        return frames;
    }
    sound::Frames RecordedSound() { return WithoutSilence(Recorded()); }
    /// Expects that the sound `seconds` after the start or, below 0, before the end, is that of a
    /// place in the song, at `speed`.
    static void ExpectHeard(const sound::Frames& sound, double seconds, double place,
                            double speed = 1) {
        const double end = seconds < 0 ? static_cast<double>(sound.size()) : 0;
        const auto first = static_cast<std::size_t>(end + seconds * kRate);
        ASSERT_LE(first + kRate / 10, sound.size()) << seconds;
        EXPECT_NEAR(sound::Pitch(std::span(sound).subspan(first, kRate / 10), kRate),
                    speed * tonefile::Pitch(place), 25)
            << seconds;
    }

    const TemporaryFolder mFolder;
    /// The player's threads go on a little after it.
    struct End {
        ~End() { EXPECT_TRUE(platform::AsidesEnd(std::chrono::seconds(20))); }
    } mEnd;
    c_XAudio mPlayer;

private:
    std::filesystem::path mSoundFile = mFolder.Path() / "sound";
};
