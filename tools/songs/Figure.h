#pragma once

#include "tools/songs/Score.h"

#include <string_view>
#include <vector>

namespace songs {

/// Throws `ScoreError` unless `figure` can be played in bars of that length: its signs share the
/// bar evenly, and each is "x" (all tones), "1" to "9" (that tone of the chord, counted from the
/// lowest), "-" (what sounds goes on) or "." (silence).
void CheckFigure(std::string_view figure, int barTicks);

/// What a figure makes of `chords` in the bars from `start` up to `end`. `keys` tells the keys of a
/// chord. A chord that changes where a figure goes on is struck anew.
std::vector<Note> PlayFigure(std::string_view figure, int barTicks,
                             const std::vector<ChordChange>& chords,
                             std::vector<int> (*keys)(const Chord&), int start, int end);

} // namespace songs
