#pragma once

#include "platform/Worker.h"

#include <QString>
#include <filesystem>
#include <optional>
#include <vector>

namespace editor {

/// A copy of the list that is being edited, among the program's data: there as long as it has what
/// was not saved, so that neither a kill nor the end of the desktop's session takes it along.
class UnsavedCopy {
public:
    struct Kept {
        std::filesystem::path list; ///< the list's file; empty for a new list
        bool foreign = false;       ///< see `SongList::Begin`
        std::vector<std::filesystem::path> songs;
    };

    /// What an earlier run of the program left. May be called by any thread.
    static std::optional<Kept> Read();

    // These return at once. The file is written by a thread, and completely so when this object
    // goes; what cannot be written is passed over.

    /// Keeps a list of songs by their keys; see `platform::KeyFromPath`.
    void Keep(const std::filesystem::path& list, bool foreign, std::vector<QString> keys);
    void Discard();

private:
    platform::Worker mWorker;
};

} // namespace editor
