#include "audio/Cue.h"

#include "audio/Track.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace audio {

namespace fs = std::filesystem;

namespace {

constexpr auto kPatience = std::chrono::seconds(10);

std::vector<Cue*> gCues;

} // namespace

Cue::Cue(std::vector<fs::path> songs, Track::Start start, double shortest, Clock now)
    : mSongs(std::move(songs)), mStart(std::move(start)), mShortest(shortest), mNow(now) {
    gCues.push_back(this);
    Try(0);
    mLook.callOnTimeout([this] { Look(); });
    mLook.start(std::chrono::seconds(1));
}

Cue::~Cue() { std::erase(gCues, this); }

void Cue::Try(std::size_t first) {
    mFirst = mTried = first;
    mSince = mNow();
    mTrack = std::make_shared<Track>(
        std::vector(mSongs.begin() + static_cast<std::ptrdiff_t>(first), mSongs.end()), mStart,
        mShortest);
}

/// Passes over a song that takes too long.
void Cue::Look() {
    if (!Working())
        return mLook.stop();
    const std::size_t tried = Failed();
    if (tried != mTried) {
        mTried = tried;
        mSince = mNow();
    } else if (mNow() - mSince > kPatience) {
        Try(tried + 1);
    }
}

bool Cue::Ready() const { return mTrack->Now() == Track::State::Ready; }

std::size_t Cue::Failed() const {
    return mTrack->Now() == Track::State::Failed ? mSongs.size() : mFirst + mTrack->Index();
}

std::shared_ptr<Track> Cue::Claim(const fs::path& song) {
    for (const Cue* cue : gCues) {
        const bool tried =
            std::find(cue->mSongs.begin(), cue->mSongs.end(), song) != cue->mSongs.end();
        if (cue->Ready() ? cue->mSongs[cue->Failed()] == song : tried && !cue->Working())
            return cue->mTrack;
    }
    return std::make_shared<Track>(std::vector{song}, [](double) { return 0.0; });
}

} // namespace audio
