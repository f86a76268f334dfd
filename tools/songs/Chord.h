#pragma once

#include <string_view>
#include <vector>

namespace songs {

/// A chord: semitones above C of its bass note and of its tones, root first. No tones: silence.
struct Chord {
    int bass = 0;
    std::vector<int> tones;

    bool operator==(const Chord&) const = default;
};

/// Semitones above C of the note name (C to B, then "#" or "b") that opens `text`, which is
/// shortened by it. Throws `ScoreError`.
int TakeNoteName(std::string_view& text);

/// The chord called `name`: a note name, then nothing, m, 7, m7, maj7, dim, dim7, aug or sus4, and
/// "/" with another bass note if wanted; or N for silence. Throws `ScoreError`.
Chord ReadChord(std::string_view name);

/// Keys (60 is the middle C) of the chord's tones in close position, upwards.
std::vector<int> CloseTones(const Chord& chord);

/// Keys of the chord's bass note and of its tones above that, upwards.
std::vector<int> BassTones(const Chord& chord);

} // namespace songs
