#pragma once

#include "game/c_gMulti.h"

/// The betting game: before each clip the player bets in how few seconds the song can be named. The
/// bet decides the length of the clip and the points for a right answer.
class c_gBet : public c_gMulti {
    Q_OBJECT
public:
    using c_gMulti::c_gMulti;

protected:
    bool TakeBet() override;
    int ClipSeconds() const override { return mBet; }
    void Answered() override;
    std::int32_t PointsForAnswer(float seconds) const override;
    QString Stake(float seconds) const override;
    void ChooseScoreFile(c_hMulti& highScores) const override;

private:
    int mBet = 0; ///< 1, 2, 3 or 5 seconds
};
