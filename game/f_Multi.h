#pragma once

#include "game/Dial.h"
#include "game/RecordLight.h"
#include "toolkit/Screen.h"

#include <QTimer>
#include <array>
#include <cstdint>

/// The board on which both games are played: it owns the game clock and writes the texts of a
/// question. One board serves the whole program.
class f_Multi : public toolkit::Screen {
    Q_OBJECT
public:
    f_Multi();

    /// Places the boxes, whose sizes come from the skins, hides those that are not needed yet,
    /// moves the board to the screen's corner and clears the time limit.
    void LayOut();

    /// Starts the clock from 0 and shows it.
    void InitTimer();
    void StopTimer() { Timer1.stop(); }

    /// Seconds on the clock.
    float ElapsedTime() const { return mElapsed; }

    /// The time limit of a clip that was stopped at its limit.
    static constexpr int kClipStopped = -1;

    /// Stops the clip, which must be at its beginning, and the clock once `seconds` of it have been
    /// heard; 0 for no limit.
    void SetTimeLimit(int seconds);
    int TimeLimit() const { return mTimeLimit; }

    /// Whether any of the clip has been heard since `SetTimeLimit`.
    bool ClipBegun() const { return SecondsHeard() > 0; }

    void SetFontSize(double points);

    /// Writes `text` centred at x = 400 in the board's font, made to fit the board.
    void WriteCentered(const QString& text, int y, toolkit::ColorRef color, int shadowOffset = 3);

    void AskQuestion(const QString& text);
    void DrawSinglePlayer();
    void DrawPlayer(int player);
    /// Says in the player's colour whose turn it is, below the choices; a quiet caption.
    void DrawTurn(int player);
    /// Puts a ring of the player's colour around the play button.
    void DrawRing(int player);
    void EraseRing();
    void DrawRound(int total, int current);
    void DrawScore(int score);
    /// Writes another score in its place, without announcing it.
    void ShowScore(int score);
    /// Writes what the answer is worth below the score, without announcing it.
    void DrawStake(const QString& text);
    /// Shows on the dial what the clock stands for: the time limit, or else the points that fall.
    void DrawDial();
    /// Makes the record turn, from now on, while the clip is heard.
    void TurnRecord() { mLight->Start(); }
    void HideRecordLight() { mLight->Stop(); }
    /// Announces the titles on the visible choice buttons, each with its key.
    void AnnounceChoices();
    void ClearBackground() { CopyBackground(); }

    toolkit::PictureBox* pPlay;
    toolkit::PictureBox* pHint;
    toolkit::PictureBox* pCont;
    toolkit::PictureBox* PChoice1;
    toolkit::PictureBox* pChoice2;
    toolkit::PictureBox* pChoice3;
    toolkit::PictureBox* pChoice4;
    toolkit::PictureBox* pTimer;
    QTimer Timer1;

    std::array<toolkit::PictureBox*, 4> ChoiceBoxes() const {
        return {PChoice1, pChoice2, pChoice3, pChoice4};
    }

Q_SIGNALS:
    /// The clock shows another time, in seconds.
    void ClockMoved(float seconds);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Timer1_Timer();
    double SecondsHeard() const;
    bool LimitReached() const;
    void StopClip();
    void DrawClock();
    void TellOfSilence();

    game::Dial mDial{*this};
    game::RecordLight* mLight;
    bool mSilenceTold = false;
    float mElapsed = 0;
    std::int64_t mStart = 0; // milliseconds
    int mTimeLimit = 0;
    double mClipStart = 0; // seconds
};
