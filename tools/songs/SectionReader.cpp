#include "tools/songs/SectionReader.h"

#include "tools/songs/ScoreError.h"
#include "tools/songs/Words.h"

#include <sstream>
#include <utility>

namespace songs {

namespace {

std::string InQuarters(int ticks) {
    std::ostringstream text;
    text << static_cast<double>(ticks) / kTicksPerQuarter;
    return text.str();
}

} // namespace

void SectionReader::ReadMelody(std::string_view line) {
    if (mBarsWithoutChords > 0)
        throw ScoreError("the melody line before has no chords");
    int bars = 0;
    for (const std::string_view word : Words(line)) {
        if (word == "||")
            EndUpbeat();
        else if (word == "|")
            EndBar(bars);
        else
            AddWord(word);
    }
    EndBar(bars);
    mBarsWithoutChords = bars;
}

void SectionReader::AddWord(std::string_view word) {
    const NoteWord note = mNotes.Read(word);
    if (note.kind == NoteWord::Kind::Tie) {
        if (!mCanTie)
            throw ScoreError("\"" + std::string(word) + "\" follows no note");
        mSection.melody.back().ticks += note.ticks;
    } else if (note.kind == NoteWord::Kind::Note) {
        mSection.melody.push_back({mTime, note.ticks, note.key});
    }
    mCanTie = note.kind != NoteWord::Kind::Rest;
    mTime += note.ticks;
}

void SectionReader::EndUpbeat() {
    if (mBarStart > 0 || mSection.upbeat > 0)
        throw ScoreError("only a section's first bar can have an upbeat");
    if (mTime == 0 || mTime >= mBarTicks)
        throw ScoreError("an upbeat lasts " + InQuarters(mTime) +
                         " quarter notes, but must be shorter than a bar");
    mSection.upbeat = mTime;
    for (Note& note : mSection.melody)
        note.start -= mTime;
    mTime = 0;
}

void SectionReader::EndBar(int& bars) {
    ++bars;
    const int ticks = mTime - mBarStart;
    if (ticks != mBarTicks)
        throw ScoreError("bar " + std::to_string(bars) + " of the line lasts " + InQuarters(ticks) +
                         " quarter notes instead of " + InQuarters(mBarTicks));
    mBarStart = mTime;
}

void SectionReader::ReadChords(std::string_view line) {
    const std::vector<std::string_view> bars = Parts(line, '|');
    if (static_cast<int>(bars.size()) != mBarsWithoutChords)
        throw ScoreError(std::to_string(bars.size()) + " bars of chords for " +
                         std::to_string(mBarsWithoutChords) + " bars of melody");
    for (const std::string_view bar : bars) {
        AddChords(bar, mSection.ticks);
        mSection.ticks += mBarTicks;
    }
    mBarsWithoutChords = 0;
}

void SectionReader::AddChords(std::string_view bar, int start) {
    const std::vector<std::string_view> words = Words(bar);
    const int count = static_cast<int>(words.size());
    if (count == 0 || mBarTicks % (count * kTicksPerQuarter / 4) != 0)
        throw ScoreError(std::to_string(count) + " chords do not divide a bar");
    for (const std::string_view word : words) {
        if (word != ".")
            mSection.chords.push_back({start, ReadChord(word)});
        else if (mSection.chords.empty())
            throw ScoreError("\".\" follows no chord");
        start += mBarTicks / count;
    }
}

Section SectionReader::Take() {
    if (mBarsWithoutChords > 0)
        throw ScoreError("the last melody line has no chords");
    if (mSection.ticks == 0)
        throw ScoreError("section " + mSection.name + " is empty");
    return std::exchange(mSection, {});
}

} // namespace songs
