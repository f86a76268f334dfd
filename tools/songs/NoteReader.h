#pragma once

#include <string_view>

namespace songs {

/// A word of a melody line.
struct NoteWord {
    enum class Kind { Note, Rest, Tie };
    Kind kind = Kind::Rest;
    int ticks = 0;
    int key = 0; ///< of a note; 60 is the middle C
};

/// Reads the words of a melody: a note name, "R" for a rest or "~" to prolong the note before,
/// then, where they change, the octave and the length.
class NoteReader {
public:
    /// Throws `ScoreError`.
    NoteWord Read(std::string_view word);

private:
    void TakeOctave(std::string_view& rest);
    void TakeLength(std::string_view& rest);

    int mOctave = -1; ///< not given yet
    int mTicks = 0;   ///< not given yet
};

} // namespace songs
