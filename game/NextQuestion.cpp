#include "game/NextQuestion.h"

#include "audio/c_XAudio.h"
#include "game/Choices.h"
#include "game/SongSource.h"
#include "library/SongCycle.h"
#include "library/SongTag.h"
#include "library/SongTitle.h"
#include "platform/Chance.h"
#include "platform/Time.h"

#include <chrono>

namespace game {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

constexpr std::size_t kTriedAtATime = 256;
constexpr double kHeard = 25; // seconds left for the clip, in a song that is long enough
/// A disk that holds back a title for longer is not asked again.
constexpr auto kPatience = 10s;

double StartOf(double length, double share) {
    return length >= kHeard ? (length - kHeard) * share : 0;
}

Question Draw(const c_M3U& songs, const fs::path& song, bool readTitles) {
    const auto titleOf = [readTitles](const fs::path& path) {
        return readTitles ? library::SongTitle(path) : library::SongTitle(c_ID3(), path);
    };
    const Choices drawn = DrawChoices(
        songs.Count(), [&songs](int index) { return songs.FileName(index); }, song, titleOf);
    Question question{.song = song, .artist = {}, .titles = {}, .correctSlot = drawn.correctSlot};
    for (std::size_t i = 0; i < question.titles.size(); ++i)
        question.titles[i] = titleOf(songs.FileName(drawn.candidates[i]));
    library::SongTag tag;
    if (readTitles)
        tag.Read(song);
    if (library::HasVisible(tag.Artist()))
        question.artist = tag.Artist();
    question.titles[static_cast<std::size_t>(drawn.correctSlot)] = library::SongTitle(tag, song);
    return question;
}

} // namespace

NextQuestion::NextQuestion(library::SongCycle& songs, audio::Cue::Clock now)
    : mSongs(songs), mNow(now) {}

void NextQuestion::Prepare() {
    if (mCue)
        return;
    mStart = platform::Rnd();
    TrySongs();
}

void NextQuestion::TrySongs() {
    mCandidates = mSongs.Upcoming(kTriedAtATime);
    mCue = std::make_unique<audio::Cue>(
        mCandidates, [share = mStart](double length) { return StartOf(length, share); },
        kShortestSong, mNow);
}

NextQuestion::State NextQuestion::Advance() {
    if (!mCue || mCandidates.empty())
        return mCue ? State::NoSongLeft : State::Working;
    if (mCue->Working())
        return State::Working;
    if (!mDrawn) {
        const std::size_t failed = mCue->Failed();
        mSongs.PassOver(failed);
        if (failed == mCandidates.size()) {
            TrySongs();
            return Advance();
        }
        mCandidates.erase(mCandidates.begin(),
                          mCandidates.begin() + static_cast<std::ptrdiff_t>(failed));
        DrawChoices(true);
    }
    if (mDrawn->Get()) {
        mLook.stop();
        return State::Ready;
    }
    if (mNow() - mDrawnSince > kPatience)
        DrawChoices(false);
    return State::Working;
}

void NextQuestion::DrawChoices(bool readTitles) {
    platform::Randomize(platform::SecondsSinceMidnight());
    mDrawn.emplace([songs = mSongs.Songs(), song = mCandidates.front(),
                    readTitles](const std::stop_token&) { return Draw(*songs, song, readTitles); });
    mDrawnSince = mNow();
    mLook.start(1s);
}

void NextQuestion::TryAgain() {
    mSongs.TryAgain();
    TrySongs();
}

Question NextQuestion::Take() {
    mSongs.Take();
    const Question question = *mDrawn->Get();
    mDrawn.reset();
    Audio().OpenFile(question.song);
    Audio().SeekTo(StartOf(Audio().Length(), mStart));
    mCue.reset();
    return question;
}

} // namespace game
