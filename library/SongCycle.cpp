#include "library/SongCycle.h"

namespace library {

namespace fs = std::filesystem;

SongCycle::SongCycle(const fs::path& playlist)
    : mRead(ReadAnyList(playlist, mList)), mJournal(playlist) {}

SongCycle::~SongCycle() {
    for (const int song : mKeptUnplayed)
        mList.SetPlayed(song, 0);
    if (mBegun && !mRead.foreign && mList.WriteBack())
        mJournal.Discard();
}

void SongCycle::Begin() {
    const MarkJournal::Marks kept = mJournal.Read();
    if (kept.newCycle)
        mList.ClearAllPlayed();
    for (int song = 0; song < Count() && !kept.played.empty(); ++song)
        if (kept.played.contains(FileName(song).string()))
            mList.SetPlayed(song, 1);
    mList.RandomizeList();
    mBegun = true;
}

std::optional<fs::path> SongCycle::Next(const std::function<Attempt(const fs::path&)>& open) {
    const std::vector<std::int16_t> before = mList.Marks();
    std::vector<int> passedOver;
    Attempt attempt = Attempt::Failed;
    while (attempt == Attempt::Failed && AnyLeft()) {
        const int song = mList.TakeUnplayed();
        if (!mFailed.contains(song))
            attempt = open(FileName(song));
        if (attempt == Attempt::Opened) {
            mKeptUnplayed.insert(passedOver.begin(), passedOver.end());
            NotePlayed(song, before[static_cast<std::size_t>(song)] != 0);
            return FileName(song);
        }
        passedOver.push_back(song);
        if (attempt == Attempt::Failed)
            mFailed.insert(song);
    }
    mList.SetMarks(before);
    return std::nullopt;
}

/// Only a new cycle gives a song that was played before.
void SongCycle::NotePlayed(int song, bool newCycle) {
    if (newCycle)
        mJournal.NewCycle();
    mJournal.Played(FileName(song));
}

} // namespace library
