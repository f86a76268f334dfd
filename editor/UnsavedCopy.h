#pragma once

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

    /// What an earlier run of the program left, after all that this one was asked to write. Takes
    /// as long as the disk does; may be called by any thread.
    static std::optional<Kept> Read();

    // These return at once, and the file is written aside. What cannot be written is passed over.

    /// Keeps a list of songs by their keys; see `platform::KeyFromPath`.
    static void Keep(const std::filesystem::path& list, bool foreign, std::vector<QString> keys);
    static void Discard();
};

} // namespace editor
