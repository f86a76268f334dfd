#include "tools/songs/NoteReader.h"

#include "tools/songs/Score.h"
#include "tools/songs/ScoreError.h"

#include <string>

namespace songs {

namespace {

int TicksOfLetter(char letter) {
    switch (letter) {
    case 'w':
        return 4 * kTicksPerQuarter;
    case 'h':
        return 2 * kTicksPerQuarter;
    case 'q':
        return kTicksPerQuarter;
    case 'e':
        return kTicksPerQuarter / 2;
    case 's':
        return kTicksPerQuarter / 4;
    case 't':
        return kTicksPerQuarter / 8;
    default:
        return 0;
    }
}

} // namespace

NoteWord NoteReader::Read(std::string_view word) {
    NoteWord note;
    std::string_view rest = word;
    int semitones = 0;
    if (rest.starts_with('R') || rest.starts_with('~')) {
        note.kind = rest.front() == 'R' ? NoteWord::Kind::Rest : NoteWord::Kind::Tie;
        rest.remove_prefix(1);
    } else {
        note.kind = NoteWord::Kind::Note;
        semitones = TakeNoteName(rest);
        TakeOctave(rest);
    }
    TakeLength(rest);
    if (!rest.empty())
        throw ScoreError("\"" + std::string(rest) + "\" makes no sense in \"" + std::string(word) +
                         "\"");
    note.key = 12 * (mOctave + 1) + semitones;
    note.ticks = mTicks;
    return note;
}

void NoteReader::TakeOctave(std::string_view& rest) {
    if (!rest.empty() && rest.front() >= '1' && rest.front() <= '7') {
        mOctave = rest.front() - '0';
        rest.remove_prefix(1);
    }
    if (mOctave < 0)
        throw ScoreError("the first note has no octave");
}

void NoteReader::TakeLength(std::string_view& rest) {
    const int ticks = rest.empty() ? 0 : TicksOfLetter(rest.front());
    if (ticks > 0) {
        mTicks = ticks;
        rest.remove_prefix(1);
        if (rest.starts_with('.')) {
            mTicks += ticks / 2;
            rest.remove_prefix(1);
        } else if (rest.starts_with('3')) {
            mTicks = ticks * 2 / 3;
            rest.remove_prefix(1);
        }
    }
    if (mTicks == 0)
        throw ScoreError("the first note has no length");
}

} // namespace songs
