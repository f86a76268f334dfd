#include "tools/songs/Performance.h"

#include "tools/songs/Figure.h"

#include <algorithm>

namespace songs {

namespace {

double SecondsPerTick(const Turn& turn) { return 60 / turn.quartersPerMinute / kTicksPerQuarter; }

/// An accompanying part and what belongs to it.
struct Part {
    const Accompaniment& written;
    std::vector<int> (*keys)(const Chord&);
    char held; ///< the sign of what is held in the last bar
    std::vector<PlayedNote>& played;
};

/// Plays one turn after another.
class Performer {
public:
    explicit Performer(const Score& score) : mScore(score) {}

    Performance Perform();

private:
    void PlayTurn(const Turn& turn, bool last);
    void PlayMelody(const Turn& turn);
    void PlayPart(const Turn& turn, const Part& part, bool last) const;
    PlayedNote Played(const Turn& turn, const Note& note, Voice voice) const;
    float Accent(const Note& note) const;

    const Score& mScore;
    Performance mResult;
    double mTurnStart = 0;
};

Performance Performer::Perform() {
    const Turn& first = mScore.turns.front();
    mTurnStart = mScore.sections[first.section].upbeat * SecondsPerTick(first);
    for (const Turn& turn : mScore.turns)
        PlayTurn(turn, &turn == &mScore.turns.back());
    mResult.seconds = mTurnStart;
    return std::move(mResult);
}

void Performer::PlayTurn(const Turn& turn, bool last) {
    PlayMelody(turn);
    PlayPart(turn, {mScore.chords, CloseTones, 'x', mResult.chords}, last);
    PlayPart(turn, {mScore.bass, BassTones, '1', mResult.bass}, last);
    mTurnStart += mScore.sections[turn.section].ticks * SecondsPerTick(turn);
}

void Performer::PlayMelody(const Turn& turn) {
    const Section& section = mScore.sections[turn.section];
    const double start = mTurnStart - section.upbeat * SecondsPerTick(turn);
    constexpr double kRounding = 1e-6;
    std::erase_if(mResult.lead,
                  [start](const PlayedNote& note) { return note.start > start - kRounding; });
    for (PlayedNote& note : mResult.lead)
        note.seconds = std::min(note.seconds, start - note.start);
    for (const Note& note : section.melody)
        mResult.lead.push_back(Played(turn, note, turn.lead));
}

void Performer::PlayPart(const Turn& turn, const Part& part, bool last) const {
    const Section& section = mScore.sections[turn.section];
    const int barTicks = mScore.barTicks;
    const int figureEnd = section.ticks - (last ? barTicks : 0);
    const auto eighths = static_cast<std::size_t>(barTicks * 2 / kTicksPerQuarter);
    const std::string held = part.held + std::string(eighths - 1, '-');

    const auto play = [&](std::string_view figure, int start, int end) {
        for (const Note& note : PlayFigure(figure, barTicks, section.chords, part.keys, start, end))
            part.played.push_back(Played(turn, note, part.written.voice));
    };
    play(part.written.figure, 0, figureEnd);
    play(held, figureEnd, section.ticks);
}

PlayedNote Performer::Played(const Turn& turn, const Note& note, Voice voice) const {
    const double secondsPerTick = SecondsPerTick(turn);
    return {.start = mTurnStart + note.start * secondsPerTick,
            .seconds = note.ticks * secondsPerTick,
            .key = note.key + turn.transpose,
            .loudness = Accent(note),
            .voice = voice};
}

/// Bar lines, beats and what lies between are played ever softer.
float Performer::Accent(const Note& note) const {
    if (note.start % mScore.barTicks == 0)
        return 1.0F;
    return note.start % kTicksPerQuarter == 0 ? 0.9F : 0.8F;
}

} // namespace

Performance Perform(const Score& score) { return Performer(score).Perform(); }

} // namespace songs
