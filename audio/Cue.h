#pragma once

#include "audio/Track.h"

#include <QTimer>
#include <chrono>
#include <filesystem>
#include <memory>
#include <vector>

namespace audio {

/// Gets a song ready to be heard: opens it, goes to a place in it and decodes its first seconds,
/// on other threads. While the cue lives, `c_XAudio::OpenFile` of that song, and `SeekTo` that
/// place, take over what is ready. Ends at once, whatever the disk does. Used by the thread of the
/// user interface.
class Cue {
public:
    using Clock = std::chrono::steady_clock::time_point (*)();

    /// Gets the first of `songs` ready that can be opened, answers within 10 s, which `now` tells,
    /// and has `shortest` seconds. `start` is called on another thread. The end of the work wakes
    /// `platform::WaitWhile`.
    Cue(std::vector<std::filesystem::path> songs, Track::Start start, double shortest = 0,
        Clock now = std::chrono::steady_clock::now);
    ~Cue();
    Cue(const Cue&) = delete;
    Cue& operator=(const Cue&) = delete;

    /// Whether a song is ready.
    bool Ready() const;

    /// How many of the songs, the first ones, were found not to be playable.
    std::size_t Failed() const;

    /// Whether the work goes on: no song is ready and not all have failed.
    bool Working() const { return !Ready() && Failed() < mSongs.size(); }

    /// The track of a song that is ready, or has failed, or else one that begins to be opened now.
    static std::shared_ptr<Track> Claim(const std::filesystem::path& song);

private:
    void Try(std::size_t first);
    void Look();

    const std::vector<std::filesystem::path> mSongs;
    const Track::Start mStart;
    const double mShortest;
    const Clock mNow;
    std::size_t mFirst = 0;                       // of the songs, that the track was given
    std::shared_ptr<Track> mTrack;                // never none
    std::size_t mTried = 0;                       // the song that was tried at the last look
    std::chrono::steady_clock::time_point mSince; // when it was first seen to be
    QTimer mLook;
};

} // namespace audio
