#pragma once

#include "tools/songs/NoteReader.h"
#include "tools/songs/Score.h"

#include <string_view>

namespace songs {

/// Reads the lines of one section: a melody line and the line of its chords in turn. All throw
/// `ScoreError`.
class SectionReader {
public:
    SectionReader(std::string_view name, int barTicks) : mBarTicks(barTicks) {
        mSection.name = name;
    }

    void ReadMelody(std::string_view line);
    void ReadChords(std::string_view line);

    /// The section, once all its lines are read.
    Section Take();

private:
    void AddWord(std::string_view word);
    void EndUpbeat();
    void EndBar(int& bars);
    void AddChords(std::string_view bar, int start);

    Section mSection;
    NoteReader mNotes;
    int mBarTicks;
    int mBarStart = 0;
    int mTime = 0;
    bool mCanTie = false;
    int mBarsWithoutChords = 0;
};

} // namespace songs
