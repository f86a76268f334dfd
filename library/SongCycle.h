#pragma once

#include "library/AnyList.h"
#include "library/ListInPlay.h"
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

/// The songs of a playlist in the order of play: none comes twice before all have been played. A
/// song that cannot be played is skipped, until all are tried again, and keeps its mark. The
/// destructor writes the marks into the playlist file, unless another program has changed the file
/// meanwhile; then they stay in a journal, as after a crash. So do those of another program's list,
/// which is never written. May be created and destroyed on any thread.
class SongCycle {
public:
    /// Reads the playlist, once the marks of its last game have been saved; a stop ends that at
    /// once. See `Error`.
    explicit SongCycle(const std::filesystem::path& playlist, const std::stop_token& stop = {});
    ~SongCycle();
    SongCycle(const SongCycle&) = delete;
    SongCycle& operator=(const SongCycle&) = delete;

    /// Why the playlist could not be read; then there are no songs. See `c_M3U::ReadFailure`.
    std::error_code Error() const { return mRead.error; }

    int Count() const { return mList->Count(); }

    /// The songs, for a thread that may still need them when this object has been destroyed.
    std::shared_ptr<const c_M3U> Songs() const { return mList; }

    /// How many songs have not been played in this cycle. Those played in games that were killed
    /// count as played.
    int Unplayed() const;

    /// Puts the songs into an order of play and takes over the marks that a crash left in the
    /// journal. To be called once, before the functions below; without it the list's file is not
    /// touched.
    void Begin();

    /// The songs that come next: `most` of them, or fewer at the end of a cycle; none if all songs
    /// of the list were passed over. Changes no mark.
    std::vector<std::filesystem::path> Upcoming(std::size_t most);

    /// Passes over the first `count` of them, which cannot be played.
    void PassOver(std::size_t count);

    /// Has the songs that were passed over come again, as their disk may be back, in a new order of
    /// play.
    void TryAgain();

    /// Takes the first of them, which then counts as played.
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

    ListInPlay mInPlay;                                       // until all below is done
    std::shared_ptr<c_M3U> mList = std::make_shared<c_M3U>(); // its marks are those after `mTurns`
    ListRead mRead;
    MarkJournal mJournal;
    std::vector<std::int16_t> mMarks; // as of the last `Take`
    std::ptrdiff_t mUnplayed = 0;     // songs, after `mTurns`
    std::deque<Turn> mTurns;
    bool mNewCycle = false;          // began since the last of these turns
    std::unordered_set<int> mFailed; // by index, the songs that cannot be played
};

} // namespace library
