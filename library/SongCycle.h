#pragma once

#include "library/AnyList.h"
#include "library/MarkJournal.h"
#include "library/c_M3U.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <memory>
#include <stop_token>
#include <system_error>
#include <unordered_set>
#include <vector>

namespace library {

/// The songs of a playlist in the order of play, none twice before all were played. A song that
/// cannot be played is passed over for as long as the object lives and keeps its mark in the list.
/// The marks go into the playlist file with the object, unless another program has changed the file
/// meanwhile; then they wait in a journal, as after a crash. Those of another program's list, which
/// is never written, stay there. May be made and destroyed by any thread.
class SongCycle {
public:
    /// Reads the playlist, which a stop ends at once; see `Error`.
    explicit SongCycle(const std::filesystem::path& playlist, const std::stop_token& stop = {});
    ~SongCycle();
    SongCycle(const SongCycle&) = delete;
    SongCycle& operator=(const SongCycle&) = delete;

    /// Why the playlist could not be read; then there are no songs. See `c_M3U::ReadFailure`.
    std::error_code Error() const { return mRead.error; }

    int Count() const { return mList->Count(); }

    /// The songs, for any thread that still needs them when this object has gone.
    std::shared_ptr<const c_M3U> Songs() const { return mList; }

    /// How many songs have not been played in this cycle, with those of games that were killed.
    int Unplayed() const;

    /// Puts the songs into an order of play, with the marks that a crash has left in the journal.
    /// Called once, before the functions below; a list that never begins is left alone.
    void Begin();

    /// The songs that come next, `most` of them if there are as many before a new cycle; none if
    /// all of the list were passed over. Changes no mark.
    std::vector<std::filesystem::path> Upcoming(std::size_t most);

    /// Passes over the first `count` of them, which cannot be played.
    void PassOver(std::size_t count);

    /// The first of them, which is thereby played.
    std::filesystem::path Take();

private:
    /// A song that comes next.
    struct Turn {
        int song;
        bool newCycle; ///< all marks are cleared before it
    };
    std::vector<std::int16_t> MarksWithJournal() const;

    bool AnyLeft() const { return static_cast<int>(mFailed.size()) < Count(); }
    void NextTurn();

    std::shared_ptr<c_M3U> mList = std::make_shared<c_M3U>(); // ahead of the play, as are its marks
    ListRead mRead;
    MarkJournal mJournal;
    bool mBegun = false;
    std::vector<std::int16_t> mMarks; // as the play has made them
    std::ptrdiff_t mUnplayed = 0;     // by the list's own marks
    std::deque<Turn> mTurns;
    bool mNewCycle = false;          // began since the last of these turns
    std::unordered_set<int> mFailed; // by index, the songs that cannot be played
};

} // namespace library
