#pragma once

#include "game/RankScores.h"
#include "toolkit/Screen.h"

#include <QStringList>
#include <optional>
#include <vector>

/// The screen of the score lists: a title with the game's name, up to twelve rows, notices and a
/// podium.
class f_HighMulti : public toolkit::Screen {
    Q_OBJECT
public:
    static constexpr int kRows = 12;

    struct Row {
        int rank; ///< 1 for the best
        QString name;
        QString score;
        bool isNew = false;                          ///< entered just now
        std::optional<toolkit::ColorRef> color = {}; ///< of the player
        bool won = false;
    };

    f_HighMulti();

    /// Places the buttons, whose size comes from their skins.
    void LayOut();

    /// Clears the screen for so many rows and writes the title and the game's name.
    void DrawTitle(const QString& title, const QString& game, int rows);

    /// Draws a row at a line, 0 to kRows - 1.
    void DrawRow(int line, const Row& row);

    /// Marks the row at a line as the one that the program asks about.
    void MarkRow(int line);

    /// Writes, below the rows or, if these leave too little, beside them, what is worth a notice.
    void DrawNotices(const QStringList& notices);

    /// Draws a podium below those.
    void DrawPodium(const std::vector<game::Standing>& standings);

    toolkit::PictureBox* pCont;
    // Beside it; hidden, as they are not always offered.
    toolkit::PictureBox* pAgain;
    toolkit::PictureBox* pOther;

private:
    void DrawCells(const QRect& place, const QString& name, const Row& row);
    int RowHeight() const;
    QRect PlaceOfRow(int line) const;

    int mRows = kRows;
    QRect mFree; // below or beside the rows
};
