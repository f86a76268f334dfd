#pragma once

#include "tools/songs/Score.h"

#include <vector>

namespace songs {

/// A note as it is played; times in seconds from the song's start.
struct PlayedNote {
    double start = 0;
    double seconds = 0;
    int key = 0; ///< 60 is the middle C
    float loudness = 1;
    Voice voice = nullptr;
};

/// All notes of a song, part by part, in the order of their starts.
struct Performance {
    std::vector<PlayedNote> lead;
    std::vector<PlayedNote> chords;
    std::vector<PlayedNote> bass;
    double seconds = 0; ///< up to the last bar line
};

/// Plays the sections in their order. An upbeat cuts short what the melody played before it, and
/// the last bar's accompaniment is held.
Performance Perform(const Score& score);

} // namespace songs
