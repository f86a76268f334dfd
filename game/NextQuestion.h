#pragma once

#include "audio/Cue.h"
#include "platform/Answer.h"

#include <QString>
#include <QTimer>
#include <array>
#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>

namespace library {
class SongCycle;
}

namespace game {

/// A question: a song, and the titles among which its own is the right one.
struct Question {
    std::filesystem::path song;
    QString artist; ///< empty if it is not known
    std::array<QString, 4> titles;
    int correctSlot = 0; ///< 0-based

    const QString& Title() const { return titles[static_cast<std::size_t>(correctSlot)]; }
};

/// Gets a question ready while the one before it is played: finds a song that can be played, has
/// its first seconds decoded and reads the titles, on other threads. Until it is taken nothing of
/// that is seen or heard. Ends at once, whatever the disk does.
class NextQuestion {
public:
    /// `songs` has begun. What does not come within 10 s, which `now` tells, is done without.
    explicit NextQuestion(library::SongCycle& songs,
                          audio::Cue::Clock now = std::chrono::steady_clock::now);
    NextQuestion(const NextQuestion&) = delete;
    NextQuestion& operator=(const NextQuestion&) = delete;

    /// Begins with a question, unless it has begun already.
    void Prepare();

    enum class State { Working, Ready, NoSongLeft };

    /// Takes the steps that are due and tells how far it is. Asked whenever events have run.
    State Advance();

    /// The question that is ready: its song is marked as played, and open on the clip player at the
    /// place where the clip begins.
    Question Take();

private:
    void TrySongs();
    void DrawChoices(bool readTitles);

    library::SongCycle& mSongs;
    const audio::Cue::Clock mNow;
    std::unique_ptr<audio::Cue> mCue;
    double mStart = 0; // the share of what can be left out of the song before the clip
    std::vector<std::filesystem::path> mCandidates;
    std::optional<platform::Answer<Question>> mDrawn; // none before a song is found
    std::chrono::steady_clock::time_point mDrawnSince;
    QTimer mLook; // has `Advance` asked while titles are read
};

} // namespace game
