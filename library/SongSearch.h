#pragma once

#include "library/SongTag.h"
#include "platform/Aside.h"

#include <filesystem>
#include <memory>
#include <vector>

namespace library {

/// `ScanSongs` on a thread of its own, so that nobody waits for the disk.
class SongSearch {
public:
    struct Song {
        std::filesystem::path path;
        SongTag tag;
    };

    struct News {
        std::vector<Song> songs;      ///< in the order of `ScanSongs`
        std::filesystem::path folder; ///< the last one entered; empty until one could be read
        bool ended = false;
    };

    /// Starts the search.
    explicit SongSearch(const std::filesystem::path& folder);
    SongSearch(const SongSearch&) = delete;
    SongSearch& operator=(const SongSearch&) = delete;

    /// What was found since the last call; returns at once.
    News Take();

private:
    struct Shared;

    std::shared_ptr<Shared> mShared;
    platform::Aside mScan;
};

} // namespace library
