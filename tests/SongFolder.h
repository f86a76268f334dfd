#pragma once

#include "tests/TemporaryFolder.h"

#include <QString>
#include <filesystem>
#include <vector>

/// A test's own program folder, with the real pictures, and songs that differ in length. While it
/// lives `gBack` is loaded; its destructor also destroys the clip player.
class SongFolder {
public:
    SongFolder();
    ~SongFolder();

    std::filesystem::path Path() const { return mFolder.Path(); }

    /// Writes `count` songs into the folder `name`, titled "Title 1" and so on, and returns their
    /// paths.
    std::vector<std::filesystem::path> MakeSongs(int count, const char* name = "Music");

    /// Writes a playlist of the songs.
    std::filesystem::path MakePlaylist(const std::vector<std::filesystem::path>& songs,
                                       const char* name = "Test.m3u");

    /// The title of the song that the clip player has open.
    static QString OpenTitle();

private:
    TemporaryFolder mFolder;
};
