#include "game/Choices.h"

#include "game/LikeTitles.h"
#include "platform/Chance.h"
#include "platform/Text.h"

#include <QString>
#include <QStringList>
#include <algorithm>
#include <iterator>
#include <optional>
#include <vector>

namespace game {

namespace {

constexpr int kSlots = 4;

using FileName = std::function<std::filesystem::path(int)>;
using TitleOf = std::function<QString(const std::filesystem::path&)>;

/// The rules for a candidate in the order in which they are dropped.
enum Rule { kFileNotDrawn, kNotFirstEntry, kEntryNotDrawn, kNotCurrentSong };

class CandidateDraw {
public:
    CandidateDraw(int count, const FileName& fileName, const std::filesystem::path& currentSong,
                  const TitleOf& titleOf)
        : mHighest(std::max(count - 1, 0)), mFileName(fileName), mTitleOf(titleOf),
          mCurrentSong(platform::TextFromPath(currentSong)) {
        if (mTitleOf)
            mTitles.push_back(ComparedTitle(mTitleOf(currentSong)));
    }

    /// The index of the next candidate.
    int Next() {
        const int index = mTitleOf ? DrawWithOtherTitle() : Draw();
        mDrawn.push_back({index, File(index)});
        return index;
    }

private:
    struct Candidate {
        int index;
        QString file;
    };

    /// The last candidate drawn is taken whatever its title: the list has nothing better.
    int DrawWithOtherTitle() {
        constexpr int kDrawsAnew = 50;
        int index = Draw();
        QString title = ComparedTitle(mTitleOf(mFileName(index)));
        for (int i = 0; i < kDrawsAnew && mTitles.contains(title); ++i) {
            index = Draw();
            title = ComparedTitle(mTitleOf(mFileName(index)));
        }
        mTitles.push_back(title);
        return index;
    }

    int Draw() {
        // With ten different songs so many rejections happen once in 2^100 questions, so the whole
        // list is only searched if it has fewer.
        constexpr int kDraws = 100;
        for (;; ++mDropped) {
            for (int i = 0; i < kDraws; ++i) {
                const int index = platform::RndRounded(mHighest);
                if (Fits(index))
                    return index;
            }
            const std::vector<int> fitting = AllFitting();
            if (!fitting.empty())
                return fitting[static_cast<std::size_t>(
                    platform::RndRounded(static_cast<int>(fitting.size()) - 1))];
        }
    }

    std::vector<int> AllFitting() {
        if (!mOthers)
            mOthers = AllButTheCurrentSong();
        std::vector<int> fitting;
        std::copy_if(mOthers->begin(), mOthers->end(), std::back_inserter(fitting),
                     [this](int index) { return Fits(index); });
        return fitting;
    }

    std::vector<int> AllButTheCurrentSong() const {
        std::vector<int> others;
        for (int index = 0; index <= mHighest; ++index) {
            if (!SameFile(File(index), mCurrentSong))
                others.push_back(index);
        }
        return others;
    }

    bool Fits(int index) const {
        if (Holds(kNotFirstEntry) && index == 0)
            return false;
        if (Holds(kEntryNotDrawn) &&
            WasDrawn([index](const Candidate& c) { return c.index == index; }))
            return false;
        if (!Holds(kNotCurrentSong))
            return true;
        const QString file = File(index);
        if (SameFile(file, mCurrentSong))
            return false;
        return !Holds(kFileNotDrawn) ||
               !WasDrawn([&file](const Candidate& c) { return SameFile(c.file, file); });
    }

    bool Holds(Rule rule) const { return rule >= mDropped; }

    template <typename Predicate> bool WasDrawn(Predicate predicate) const {
        return std::any_of(mDrawn.begin(), mDrawn.end(), predicate);
    }

    QString File(int index) const { return platform::TextFromPath(mFileName(index)); }

    static bool SameFile(const QString& a, const QString& b) {
        return a.compare(b, Qt::CaseInsensitive) == 0;
    }

    int mHighest;
    const FileName& mFileName;
    const TitleOf& mTitleOf;
    QString mCurrentSong;
    QStringList mTitles; // as they are compared, of the current song and the candidates drawn
    std::vector<Candidate> mDrawn;
    std::optional<std::vector<int>> mOthers; // kept so that the list is searched only once
    int mDropped = 0; // how many rules are dropped, for later candidates as well
};

} // namespace

Choices DrawChoices(int count, const FileName& fileName, const std::filesystem::path& currentSong,
                    const TitleOf& titleOf) {
    Choices choices;
    CandidateDraw draw(count, fileName, currentSong, titleOf);
    for (int& candidate : choices.candidates)
        candidate = draw.Next();
    choices.correctSlot = platform::RndRounded(kSlots - 1);
    return choices;
}

std::array<int, 2> DrawHint(int correctSlot) {
    int first = correctSlot;
    while (first == correctSlot)
        first = platform::RndRounded(kSlots - 1);
    int second = correctSlot;
    while (second == correctSlot || second == first)
        second = platform::RndRounded(kSlots - 1);
    return {first, second};
}

} // namespace game
