#include "library/SongCycle.h"

#include <algorithm>
#include <utility>

namespace library {

namespace fs = std::filesystem;

SongCycle::SongCycle(const fs::path& playlist, const std::stop_token& stop)
    : mInPlay(playlist, stop), mRead(ReadAnyList(playlist, *mList, stop)), mJournal(playlist),
      mMarks(mList->Marks()) {}

SongCycle::~SongCycle() {
    mList->SetMarks(mMarks);
    if (mInPlay.Begun() && !mRead.foreign && mList->WriteBack())
        mJournal.Discard();
}

void SongCycle::Begin() {
    mList->SetMarks(MarksWithJournal());
    mMarks = mList->Marks();
    TryAgain();
    mInPlay.Begin();
}

void SongCycle::TryAgain() {
    mList->SetMarks(mMarks);
    mUnplayed = std::count(mMarks.begin(), mMarks.end(), 0);
    mList->RandomizeList();
    mTurns.clear();
    mNewCycle = false;
    mFailed.clear();
}

int SongCycle::Unplayed() const {
    const std::vector<std::int16_t> marks = mInPlay.Begun() ? mMarks : MarksWithJournal();
    return static_cast<int>(std::count(marks.begin(), marks.end(), 0));
}

std::vector<std::int16_t> SongCycle::MarksWithJournal() const {
    std::vector<std::int16_t> marks = mList->Marks();
    const MarkJournal::Marks kept = mJournal.Read();
    if (kept.newCycle)
        std::fill(marks.begin(), marks.end(), std::int16_t{0});
    for (std::size_t song = 0; song < marks.size() && !kept.played.empty(); ++song)
        if (kept.played.contains(mList->FileName(static_cast<int>(song)).string()))
            marks[song] = 1;
    return marks;
}

std::vector<fs::path> SongCycle::Upcoming(std::size_t most) {
    while (mTurns.size() < most && AnyLeft() && (mTurns.empty() || mUnplayed > 0))
        NextTurn();
    std::vector<fs::path> songs;
    for (std::size_t i = 0; i < std::min(most, mTurns.size()); ++i)
        songs.push_back(mList->FileName(mTurns[i].song));
    return songs;
}

void SongCycle::NextTurn() {
    const bool newCycle = mUnplayed == 0;
    const int song = mList->TakeUnplayed();
    mUnplayed = (newCycle ? Count() : mUnplayed) - 1;
    mNewCycle = mNewCycle || newCycle;
    if (!mFailed.contains(song))
        mTurns.push_back({song, std::exchange(mNewCycle, false)});
}

void SongCycle::PassOver(std::size_t count) {
    for (; count > 0; --count) {
        const Turn turn = mTurns.front();
        mTurns.pop_front();
        mFailed.insert(turn.song);
        bool& begins = mTurns.empty() ? mNewCycle : mTurns.front().newCycle;
        begins = begins || turn.newCycle;
    }
}

fs::path SongCycle::Take() {
    const Turn turn = mTurns.front();
    mTurns.pop_front();
    if (turn.newCycle) {
        std::fill(mMarks.begin(), mMarks.end(), std::int16_t{0});
        mJournal.NewCycle();
    }
    mMarks[static_cast<std::size_t>(turn.song)] = 1;
    fs::path song = mList->FileName(turn.song);
    mJournal.Played(song);
    return song;
}

} // namespace library
