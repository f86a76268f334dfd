#include "tools/songs/Figure.h"

#include "tools/songs/ScoreError.h"

#include <algorithm>
#include <string>

namespace songs {

namespace {

/// Plays one figure, slot after slot.
class FigurePlayer {
public:
    explicit FigurePlayer(std::vector<int> (*keys)(const Chord&)) : mKeys(keys) {}

    void Slot(char sign, const ChordChange& current, int start, int ticks);
    std::vector<Note> Take() { return std::move(mNotes); }

private:
    void Strike(const Chord& chord, int start, int ticks);

    std::vector<int> (*mKeys)(const Chord&);
    std::vector<Note> mNotes;
    std::size_t mSounding = 0; ///< how many of the last notes go on
    char mSign = '.';          ///< what was struck last
    int mChordStart = -1;      ///< and of which chord
};

void FigurePlayer::Slot(char sign, const ChordChange& current, int start, int ticks) {
    const bool goesOn = sign == '-';
    if (!goesOn)
        mSign = sign;
    if (goesOn && current.start == mChordStart) {
        for (std::size_t i = mNotes.size() - mSounding; i < mNotes.size(); ++i)
            mNotes[i].ticks += ticks;
        return;
    }
    mChordStart = current.start;
    Strike(current.chord, start, ticks);
}

void FigurePlayer::Strike(const Chord& chord, int start, int ticks) {
    const std::vector<int> keys = mKeys(chord);
    const std::size_t before = mNotes.size();
    if (mSign == 'x') {
        for (const int key : keys)
            mNotes.push_back({start, ticks, key});
    } else if (mSign != '.' && !keys.empty()) {
        const int tone = mSign - '1';
        const int count = static_cast<int>(keys.size());
        const int key = keys[static_cast<std::size_t>(tone % count)] + 12 * (tone / count);
        mNotes.push_back({start, ticks, key});
    }
    mSounding = mNotes.size() - before;
}

} // namespace

void CheckFigure(std::string_view figure, int barTicks) {
    if (figure.find_first_not_of("x123456789-.") != std::string_view::npos)
        throw ScoreError("unknown sign in the figure \"" + std::string(figure) + "\"");
    if (figure.empty() || barTicks % static_cast<int>(figure.size()) != 0)
        throw ScoreError("the figure \"" + std::string(figure) + "\" does not divide a bar");
}

std::vector<Note> PlayFigure(std::string_view figure, int barTicks,
                             const std::vector<ChordChange>& chords,
                             std::vector<int> (*keys)(const Chord&), int start, int end) {
    FigurePlayer player(keys);
    const int slotTicks = barTicks / static_cast<int>(figure.size());
    for (int time = start; time < end; time += slotTicks) {
        const auto next = std::ranges::upper_bound(chords, time, {}, &ChordChange::start);
        const auto slot = static_cast<std::size_t>(time % barTicks / slotTicks);
        player.Slot(figure[slot], *(next - 1), time, slotTicks);
    }
    return player.Take();
}

} // namespace songs
