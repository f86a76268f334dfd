#pragma once

#include "library/c_M3U.h"

#include <filesystem>
#include <vector>

/// The songs of a playlist in list order.
inline std::vector<std::filesystem::path> SongsOf(const c_M3U& list) {
    std::vector<std::filesystem::path> songs;
    for (int i = 0; i < list.Count(); ++i)
        songs.push_back(list.FileName(i));
    return songs;
}
