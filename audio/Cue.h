#pragma once

#include "audio/Track.h"

#include <QTimer>
#include <chrono>
#include <filesystem>
#include <memory>
#include <vector>

namespace audio {

/// Gets a song ready to be played: opens it, seeks to a place in it and decodes the first seconds
/// from there, on other threads. While the cue lives, `c_XAudio::OpenFile` of that song, and
/// `SeekTo` that place, use what is ready. Destroying it never waits for the disk. Used by the user
/// interface's thread.
class Cue {
public:
    using Clock = std::chrono::steady_clock::time_point (*)();

    /// Gets the first of `songs` ready that can be opened within 10 s, timed by `now`, and lasts at
    /// least `shortest` seconds. `start` is called on another thread. The end of the work wakes
    /// `platform::WaitWhile`.
    Cue(std::vector<std::filesystem::path> songs, Track::Start start, double shortest = 0,
        Clock now = std::chrono::steady_clock::now);
    ~Cue();
    Cue(const Cue&) = delete;
    Cue& operator=(const Cue&) = delete;

    /// Whether a song is ready.
    bool Ready() const;

    /// How many songs, counted from the first, have turned out not to be playable.
    std::size_t Failed() const;

    /// Whether it is still at work: no song is ready, and not all have failed.
    bool Working() const { return !Ready() && Failed() < mSongs.size(); }

    /// The track of a song that a cue has ready or has failed to open; else a new one, which starts
    /// opening it.
    static std::shared_ptr<Track> Claim(const std::filesystem::path& song);

private:
    void Try(std::size_t first);
    void Look();

    const std::vector<std::filesystem::path> mSongs;
    const Track::Start mStart;
    const double mShortest;
    const Clock mNow;
    std::size_t mFirst = 0;                       // index of the first song given to the track
    std::shared_ptr<Track> mTrack;                // never null
    std::size_t mTried = 0;                       // the song that was tried at the last look
    std::chrono::steady_clock::time_point mSince; // when that look was the first to see it
    QTimer mLook;
};

} // namespace audio
