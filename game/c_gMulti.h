#pragma once

#include "game/AnswerScreen.h"
#include "game/GameKind.h"
#include "game/NextQuestion.h"
#include "game/SongSource.h"
#include "game/f_Multi.h"
#include "toolkit/Screen.h"

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace library {
class SongCycle;
}

class f_High;
class f_HighMulti;

namespace game {

class Evening;

/// What games share: the forms they are shown on, and what was played before.
struct Forms {
    f_Multi& board;
    f_HighMulti& scores;
    f_High& name;
    Evening& evening;
};

} // namespace game

/// The multiple-choice game: six rounds in which every player names a song out of four titles. One
/// controller plays one game. The betting game derives from it.
class c_gMulti : public QObject {
    Q_OBJECT
public:
    c_gMulti(const game::Forms& forms, game::SongSourceFactory newSongSource);
    ~c_gMulti() override;

    /// Number of players, at least 1; set before `Run`.
    void SetPlayers(int players) { mPlayers = players; }

    /// Plays a whole game, and again for as long as the player wants; returns when it is over or
    /// the player left it.
    void Run();

    /// Read after `Run`: whether the player wants to leave the program.
    bool ExitProgram() const { return mQuit; }

    void bChoice1_Clicked() { Answer(1); }
    void bChoice2_Clicked() { Answer(2); }
    void bChoice3_Clicked() { Answer(3); }
    void bChoice4_Clicked() { Answer(4); }
    void bCont_Clicked() { mAnswer = kContinue; }
    void bPlay_Clicked();
    void bHint_Clicked();
    void bMin_Clicked();
    void bX_Clicked();

protected:
    // What the betting game does differently, in the order of play.

    /// Takes the bet; false if the player left.
    virtual bool TakeBet() { return true; }
    /// The length of a clip in seconds; 0 for no limit.
    virtual int ClipSeconds() const { return 0; }
    /// Called after an answer, once the clock is off.
    virtual void Answered() {}
    /// The points for a right answer after `seconds` on the clock.
    virtual std::int32_t PointsForAnswer(float seconds) const;
    /// What an answer after `seconds` on the clock is worth, in words for the player.
    virtual QString Stake(float seconds) const;
    /// The kind of game, in whose high scores the results are entered.
    virtual game::GameKind Kind() const { return game::GameKind::NormalPlay; }

    f_Multi& Board() { return mForms.board; }
    /// Sets the captions of the four choice buttons and shows them in order.
    void SetChoiceCaptions(const std::array<QString, 4>& captions);
    void ShowChoices(bool shown);
    void ShowBoard();
    /// Writes round, score and player.
    void DrawStatus();
    /// Waits for a click on a choice button and returns its number, 1 to 4; 0 if the player left.
    int WaitForChoice();

private:
    static constexpr int kRounds = 6;
    static constexpr int kContinue = 99;

    void CreateButtons();
    /// Takes the answer to a question; the first one counts.
    void Answer(int choice);
    bool LoadPlaylist();
    bool LoadSongs(const game::SongSource& source, const std::filesystem::path& path);
    void SaveMarks();
    bool PlayRounds();
    bool FirstQuestion() const { return mRound == 1 && mPlayer == 1; }
    bool LastQuestion() const { return mRound == kRounds && mPlayer == mPlayers; }
    void TellNoSongLeft();
    bool PlayQuestion();
    bool PrepareSong();
    bool Preparing() { return mNext->Advance() == game::NextQuestion::State::Working; }
    void AwaitSong();
    void AskTitle();
    void BeginWhenHeard();
    void ShowAnswer(int choice);
    void DrawRight(int choice);
    void DrawWrong();
    void ShowCover();
    bool WaitForContinue();
    void WaitWhileShown(const std::function<bool()>& waiting);
    /// Returns whether to play again.
    bool ShowResults();
    /// Records the game for the evening, and returns what is worth a notice in it.
    QStringList Notices();

    QString Addressed(const QString& one, const QString& several) const;
    std::int32_t& Score() { return mScores[static_cast<std::size_t>(mPlayer - 1)]; }
    int& Streak() { return mStreaks[static_cast<std::size_t>(mPlayer - 1)]; }

    game::Forms mForms;
    game::AnswerScreen mAnswerScreen;
    game::SongSourceFactory mNewSongSource;
    int mPlayers = 1;
    int mRound = 0;
    int mPlayer = 0;
    std::vector<std::int32_t> mScores;
    std::vector<int> mStreaks; ///< right answers in a row up to now, of each player
    std::shared_ptr<library::SongCycle> mList;
    std::optional<game::NextQuestion> mNext; ///< of the list
    game::Question mQuestion;
    std::optional<platform::Answer<QImage>>
        mCover;               ///< of the song that was heard, until it is shown
    QTimer mTillHeard;        ///< runs from the press on Play to the clip's first sample
    QElapsedTimer mSincePlay; ///< since that press
    int mAnswer = 0;
    bool mQuit = false;

    toolkit::WindowButtons mWindowButtons;
    c_SurfButton Choice1;
    c_SurfButton Choice2;
    c_SurfButton Choice3;
    c_SurfButton Choice4;
    c_SurfButton bHint;
    c_SurfButton bCont;
    c_SurfButton bPlay;
    std::array<c_SurfButton*, 4> mChoices{&Choice1, &Choice2, &Choice3, &Choice4};
};
