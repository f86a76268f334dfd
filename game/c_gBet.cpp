#include "game/c_gBet.h"

#include "audio/c_XAudio.h"
#include "game/Scoring.h"
#include "game/c_hMulti.h"
#include "game/f_Multi.h"
#include "platform/ProgramFolder.h"

bool c_gBet::TakeBet() {
    DrawStatus();
    SetChoiceCaptions(
        {QStringLiteral("1 Second, 140,000 Points"), QStringLiteral("2 Seconds, 70,000 Points"),
         QStringLiteral("3 Seconds, 35,000 Points"), QStringLiteral("5 Seconds, 25,000 Points")});
    Board().AskQuestion(QStringLiteral("I can name that MP3 in:"));
    ShowBoard();
    ShowChoices(true);
    const int choice = WaitForChoice();
    ShowChoices(false);
    mBet = game::BetFromButton(choice);
    return !ExitProgram();
}

void c_gBet::Answered() {
    // After an early answer the clip plays on.
    if (Board().TimeLimit() == f_Multi::kClipStopped)
        Audio().StopPlay();
}

std::int32_t c_gBet::PointsForAnswer(float) const { return game::PointsForBet(mBet); }

QString c_gBet::Stake(float) const {
    return QStringLiteral("Bet: %1 Second%2, %L3 Points")
        .arg(mBet)
        .arg(mBet == 1 ? QString() : QStringLiteral("s"))
        .arg(game::PointsForBet(mBet));
}

void c_gBet::ChooseScoreFile(c_hMulti& highScores) const {
    highScores.SetFileName(platform::ProgramFolder() / "H2.dat");
}
