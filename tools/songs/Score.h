#pragma once

#include "tools/songs/Chord.h"
#include "tools/songs/voices/Voice.h"

#include <string>
#include <vector>

namespace songs {

constexpr int kTicksPerQuarter = 48;

/// A note of a section, in ticks from the section's first bar line; an upbeat starts before it.
struct Note {
    int start = 0;
    int ticks = 0;
    int key = 0; ///< 60 is the middle C

    bool operator==(const Note&) const = default;
};

/// From `start` on this chord is heard.
struct ChordChange {
    int start = 0;
    Chord chord;
};

/// Some bars of the tune.
struct Section {
    std::string name;
    int ticks = 0;  ///< without the upbeat
    int upbeat = 0; ///< ticks that sound before the first bar line
    std::vector<Note> melody;
    std::vector<ChordChange> chords; ///< the first at 0
};

/// An accompanying part: who plays it, and what it makes of each bar.
struct Accompaniment {
    Voice voice = nullptr;
    std::string figure;
};

/// One playing of a section.
struct Turn {
    std::size_t section = 0;
    Voice lead = nullptr;
    double quartersPerMinute = 0;
    int transpose = 0; ///< semitones
};

/// A song as it was written down.
struct Score {
    std::string title;
    std::string artist;
    std::string year; ///< empty when nobody knows
    std::string genre;
    int barTicks = 0;
    Accompaniment chords;
    Accompaniment bass;
    std::vector<Section> sections;
    std::vector<Turn> turns;
};

} // namespace songs
