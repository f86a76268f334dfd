#pragma once

#include "game/Burst.h"
#include "game/LabelRecord.h"

#include <QString>
#include <QVariantAnimation>
#include <cstdint>
#include <vector>

class f_Multi;

namespace game {

/// What the board shows after an answer, until the player goes on.
class AnswerScreen {
public:
    explicit AnswerScreen(f_Multi& board);

    /// Writes three lines below each other: verdict, time and points.
    void WriteRight(const QString& verdict, const QString& time, std::int32_t points);
    /// Writes the verdict and the right title, in a storm of words.
    void WriteWrong(const QString& verdict, const QString& title);

    /// Shows a burst of light from the button that was chosen, in the player's colour (1-based).
    void Celebrate(const QRect& button, int player);
    /// Writes a notice below the three lines.
    void WriteNotice(const QString& text);
    /// Shows the song's title and artist, which may be empty. The record turns while the song is
    /// heard.
    void ShowSong(const QString& title, const QString& artist);
    void ShowCover(const QImage& cover) { mRecord.SetCover(cover); }
    /// Counts the player's total up to `total`, `points` of which are new.
    void CountUp(std::int32_t total, std::int32_t points);
    /// Writes a strip with the scores of the players, in their order; only the first `kMostShown`
    /// of them.
    void WriteStandings(const std::vector<std::int32_t>& scores);

    /// Ends everything that moves.
    void Close();

    static constexpr int kMostShown = 12;

private:
    void WriteLine(const QString& text, int y, toolkit::ColorRef color);

    f_Multi& mBoard;
    LabelRecord mRecord;
    Burst mBurst;
    QVariantAnimation mTotal;
};

} // namespace game
