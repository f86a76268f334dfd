#include "audio/Cue.h"

#include "audio/Track.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace audio {

namespace fs = std::filesystem;

namespace {

constexpr double kPatience = 10; // seconds

std::vector<Cue*> gCues;

} // namespace

Cue::Cue(std::vector<fs::path> songs, Start start, double shortest)
    : mSongs(std::move(songs)), mStart(std::move(start)), mShortest(shortest) {
    gCues.push_back(this);
    Try(0);
    mLook.callOnTimeout([this] { PassOverSlowSong(); });
    mLook.start(std::chrono::seconds(1));
}

Cue::~Cue() { std::erase(gCues, this); }

void Cue::Try(std::size_t first) {
    mFirst = first;
    mTrack = std::make_shared<Track>(
        std::vector(mSongs.begin() + static_cast<std::ptrdiff_t>(first), mSongs.end()), mStart,
        mShortest);
}

void Cue::PassOverSlowSong() {
    if (!Working())
        mLook.stop();
    else if (mTrack->Trying() > kPatience)
        Try(Failed() + 1);
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
