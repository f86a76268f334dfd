#pragma once

#include "platform/Worker.h"

#include <filesystem>
#include <set>
#include <string>

namespace library {

/// Keeps the marks that songs of one playlist got since the playlist was written, so that a crash
/// takes none along; of a list that is never written, all of them. It is a file in the program's
/// folder, itself a playlist, and goes when the marks stand in the list.
class MarkJournal {
public:
    /// Of the playlist at the absolute path `list`, whether or not there is something to keep.
    explicit MarkJournal(const std::filesystem::path& list);

    /// Deletes what is kept for a playlist that was written anew.
    static void Forget(const std::filesystem::path& list);

    struct Marks {
        bool newCycle = false;        ///< all marks of the list were cleared before these
        std::set<std::string> played; ///< the songs' paths, byte for byte
    };

    /// What was kept and not discarded, by whichever run of the program.
    Marks Read() const;

    // The following return at once; the file is written by a thread, and completely so when the
    // journal goes. What cannot be written is passed over.

    void Played(const std::filesystem::path& song);

    /// Forgets the songs so far: a new cycle begins.
    void NewCycle();

    /// Deletes the file.
    void Discard();

private:
    std::filesystem::path File() const;

    std::string mName;
    platform::Worker mWorker;
};

} // namespace library
