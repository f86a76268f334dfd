#include "tools/songs/Chord.h"

#include "tools/songs/ScoreError.h"

#include <algorithm>
#include <array>
#include <string>

namespace songs {

namespace {

constexpr int kLowestTone = 55; // G3
constexpr int kLowestBass = 40; // E2

struct Quality {
    std::string_view name;
    std::vector<int> intervals;
};

const std::array<Quality, 9> kQualities = {{
    {"", {0, 4, 7}},
    {"m", {0, 3, 7}},
    {"7", {0, 4, 7, 10}},
    {"m7", {0, 3, 7, 10}},
    {"maj7", {0, 4, 7, 11}},
    {"dim", {0, 3, 6}},
    {"dim7", {0, 3, 6, 9}},
    {"aug", {0, 4, 8}},
    {"sus4", {0, 5, 7}},
}};

/// The lowest key of the pitch class that is not below `lowest`.
int KeyFrom(int lowest, int pitchClass) { return lowest + (pitchClass - lowest % 12 + 12) % 12; }

} // namespace

int TakeNoteName(std::string_view& text) {
    constexpr std::array<int, 7> kSemitones = {9, 11, 0, 2, 4, 5, 7}; // A to G
    if (text.empty() || text.front() < 'A' || text.front() > 'G')
        throw ScoreError("\"" + std::string(text) + "\" begins with no note name");
    int semitones = kSemitones[static_cast<std::size_t>(text.front() - 'A')];
    text.remove_prefix(1);
    if (text.starts_with('#') || text.starts_with('b')) {
        semitones += text.front() == '#' ? 1 : -1;
        text.remove_prefix(1);
    }
    return semitones;
}

Chord ReadChord(std::string_view name) {
    if (name == "N")
        return {};
    std::string_view rest = name;
    const int root = (TakeNoteName(rest) + 12) % 12;
    const std::size_t slash = std::min(rest.find('/'), rest.size());
    const auto quality = std::ranges::find(kQualities, rest.substr(0, slash),
                                           [](const Quality& q) { return q.name; });
    if (quality == kQualities.end())
        throw ScoreError("unknown chord \"" + std::string(name) + "\"");

    Chord chord{.bass = root, .tones = {}};
    for (const int interval : quality->intervals)
        chord.tones.push_back((root + interval) % 12);
    if (slash < rest.size()) {
        rest.remove_prefix(slash + 1);
        chord.bass = (TakeNoteName(rest) + 12) % 12;
        if (!rest.empty())
            throw ScoreError("unknown bass note in chord \"" + std::string(name) + "\"");
    }
    return chord;
}

std::vector<int> CloseTones(const Chord& chord) {
    std::vector<int> keys;
    for (const int tone : chord.tones)
        keys.push_back(KeyFrom(kLowestTone, tone));
    std::ranges::sort(keys);
    return keys;
}

std::vector<int> BassTones(const Chord& chord) {
    if (chord.tones.empty())
        return {};
    std::vector<int> keys = {KeyFrom(kLowestBass, chord.bass)};
    for (const int tone : chord.tones) {
        if (tone != chord.bass)
            keys.push_back(KeyFrom(keys.front(), tone));
    }
    std::ranges::sort(keys);
    return keys;
}

} // namespace songs
