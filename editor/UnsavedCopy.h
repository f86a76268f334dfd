#pragma once

#include <QString>
#include <filesystem>
#include <optional>
#include <vector>

namespace editor {

/// A copy of the list that is being edited, among the program's data. It exists while there are
/// unsaved changes, so that neither a crash nor the end of the desktop's session loses them.
class UnsavedCopy {
public:
    struct Kept {
        std::filesystem::path list; ///< the list's file; empty for a new list
        bool foreign = false;       ///< see `SongList::Begin`
        std::vector<std::filesystem::path> songs;
    };

    /// What is kept, by an earlier run of the program or by this one; nothing if there is no song.
    /// Waits for earlier calls of the functions below, and for the disk. May be called by any
    /// thread.
    static std::optional<Kept> Read();

    // These return at once; the file is written on another thread. What cannot be written is
    // dropped.

    /// Keeps a list of songs by their keys; see `platform::KeyFromPath`.
    static void Keep(const std::filesystem::path& list, bool foreign, std::vector<QString> keys);
    static void Discard();
};

} // namespace editor
