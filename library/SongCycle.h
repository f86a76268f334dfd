#pragma once

#include "library/AnyList.h"
#include "library/MarkJournal.h"
#include "library/c_M3U.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <system_error>
#include <unordered_set>

namespace library {

/// The songs of a playlist in the order of play, none twice before all were played. A song that
/// cannot be opened is passed over for as long as the object lives and keeps its mark in the list.
/// The marks go into the playlist file with the object, unless another program has changed the file
/// meanwhile; then they wait in a journal, as after a crash. Those of another program's list, which
/// is never written, stay there.
class SongCycle {
public:
    /// Reads the playlist; see `Error`.
    explicit SongCycle(const std::filesystem::path& playlist);
    ~SongCycle();
    SongCycle(const SongCycle&) = delete;
    SongCycle& operator=(const SongCycle&) = delete;

    /// Why the playlist could not be read; then there are no songs. See `c_M3U::ReadFailure`.
    std::error_code Error() const { return mRead.error; }

    int Count() const { return mList.Count(); }

    /// The song at `index`, 0-based, in list order; empty when there is none.
    std::filesystem::path FileName(int index) const { return mList.FileName(index); }

    /// Puts the songs into an order of play, with the marks that a crash has left in the journal.
    /// Called once, before `Next`; a list that never begins is left alone.
    void Begin();

    enum class Attempt { Opened, Failed, GivenUp };

    /// Tries song after song until one is opened, which is thereby played. Nothing when none of the
    /// list can be opened, or after `open` has given up; then all marks are as they were.
    std::optional<std::filesystem::path>
    Next(const std::function<Attempt(const std::filesystem::path&)>& open);

private:
    bool AnyLeft() const { return static_cast<int>(mFailed.size()) < Count(); }
    void NotePlayed(int song, bool newCycle);

    c_M3U mList;
    ListRead mRead;
    MarkJournal mJournal;
    bool mBegun = false;
    std::unordered_set<int> mFailed;       // by index, the songs that could not be opened
    std::unordered_set<int> mKeptUnplayed; // those of them that count as played meanwhile
};

} // namespace library
