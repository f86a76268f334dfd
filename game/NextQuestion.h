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

/// A question: a song and four titles, one of them the song's own.
struct Question {
    std::filesystem::path song;
    QString artist; ///< empty if unknown
    std::array<QString, 4> titles;
    int correctSlot = 0; ///< 0-based

    const QString& Title() const { return titles[static_cast<std::size_t>(correctSlot)]; }
};

/// Gets a question ready while the one before it is played: finds a song that can be played,
/// decodes its first seconds and reads the titles, on other threads. Until it is taken nothing of
/// it is seen or heard. Destroying it never waits for the disk.
class NextQuestion {
public:
    /// `songs` must have begun. Whatever takes longer than 10 s, timed by `now`, is done without.
    explicit NextQuestion(library::SongCycle& songs,
                          audio::Cue::Clock now = std::chrono::steady_clock::now);
    NextQuestion(const NextQuestion&) = delete;
    NextQuestion& operator=(const NextQuestion&) = delete;

    /// Starts on a question, unless it has already.
    void Prepare();

    enum class State { Working, Ready, NoSongLeft };

    /// Takes the steps that are due and returns how far it is. To be called whenever events have
    /// run.
    State Advance();

    /// Looks for a song once more after none was left.
    void TryAgain();

    /// Returns the question that is ready. Its song is then marked as played, and is open on the
    /// clip player at the place where the clip begins.
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
    QTimer mLook; // has `Advance` called while titles are read
};

} // namespace game
