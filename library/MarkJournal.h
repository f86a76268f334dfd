#pragma once

#include "platform/Worker.h"

#include <filesystem>
#include <set>
#include <string>

namespace library {

/// Keeps the marks that the songs of one playlist got since it was written, so that a crash loses
/// none; for a list that is never written, all its marks. The journal is a file in the program's
/// folder, itself a playlist, and is deleted once the marks are in the list.
class MarkJournal {
public:
    /// The journal of the playlist at the absolute path `list`; its file need not exist.
    explicit MarkJournal(const std::filesystem::path& list);

    /// Deletes the journal of a playlist that has just been written.
    static void Forget(const std::filesystem::path& list);

    struct Marks {
        bool newCycle = false;        ///< all marks of the list were cleared before these
        std::set<std::string> played; ///< the songs' paths, byte for byte
    };

    /// What was kept and not discarded, by this or an earlier run of the program.
    Marks Read() const;

    // The following return at once: a thread writes the file, and the destructor waits for it. What
    // cannot be written is dropped.

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
