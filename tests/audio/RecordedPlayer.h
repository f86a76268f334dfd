#pragma once

#include "audio/c_XAudio.h"
#include "platform/Aside.h"
#include "tests/TemporaryFolder.h"
#include "tests/audio/Sound.h"
#include "tests/audio/ToneFile.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <thread>
#include <vector>

inline bool Eventually(const std::function<bool()>& condition) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

/// A player with a sound device that writes what it is given to a file, faster than it would play.
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
    bool Passes(double seconds) const {
        return Eventually([&] { return mPlayer.Position() > seconds; });
    }
    bool PlaysPast(double seconds) {
        mPlayer.Play();
        return Passes(seconds);
    }
    bool Ends() const {
        return Eventually([&] { return mPlayer.Position() == mPlayer.Length(); });
    }
    /// Makes the device write to a new file when it is next opened.
    void Rewind() {
        mSoundFile += "'";
        setenv("SDL_DISKAUDIOFILE", mSoundFile.c_str(), 1);
    }
    bool DeviceWasOpened() const { return std::filesystem::exists(mSoundFile); }
    bool DeviceCloses() const {
        return Eventually([this] {
            std::error_code gone;
            const std::filesystem::directory_iterator handles("/proc/self/fd");
            return std::none_of(begin(handles), end(handles), [&](const auto& handle) {
                return std::filesystem::read_symlink(handle.path(), gone) == mSoundFile;
            });
        });
    }
    /// What was played since the device was opened.
    std::vector<audio::Frame> Recording() const {
        const std::uintmax_t size = std::filesystem::file_size(mSoundFile);
        std::vector<audio::Frame> frames(size / sizeof(audio::Frame));
        std::ifstream(mSoundFile, std::ios::binary)
            .read(reinterpret_cast<char*>(frames.data()), static_cast<std::streamsize>(size));
        return frames;
    }
    /// The recording without silent frames, both those between sounds and gaps due to a slow
    /// machine.
    std::vector<audio::Frame> Sound() const {
        std::vector<audio::Frame> frames = Recording();
        std::erase_if(frames, [](const audio::Frame& frame) { return frame.left == 0; });
        return frames;
    }
    /// Expects that the sound `seconds` after the start or, below 0, before the end, is that of a
    /// place in the song, at `speed`.
    void ExpectHeard(double seconds, double place, double speed = 1) const {
        const std::vector<audio::Frame> sound = Sound();
        const double end = seconds < 0 ? static_cast<double>(sound.size()) : 0;
        const auto first = static_cast<std::size_t>(end + seconds * kRate);
        ASSERT_LE(first + kRate / 10, sound.size()) << seconds;
        EXPECT_NEAR(sound::Pitch(std::span(sound).subspan(first, kRate / 10), kRate),
                    speed * tonefile::Pitch(place), 25)
            << seconds;
    }

    const TemporaryFolder mFolder;
    /// The player's threads outlive it a little.
    struct End {
        ~End() { EXPECT_TRUE(platform::AsidesEnd(std::chrono::seconds(20))); }
    } mEnd;
    c_XAudio mPlayer;

private:
    std::filesystem::path mSoundFile = mFolder.Path() / "sound";
};
