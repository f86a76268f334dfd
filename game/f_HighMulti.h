#pragma once

#include "toolkit/Screen.h"

/// The screen of the score lists: a title and up to ten rows.
class f_HighMulti : public toolkit::Screen {
    Q_OBJECT
public:
    static constexpr int kRows = 10;

    struct Row {
        int rank; ///< 1 for the best
        QString name;
        QString score;
        bool isNew; ///< entered just now
    };

    f_HighMulti();

    /// Places the continue button, whose size comes from its skin.
    void LayOut();

    /// Clears the screen and writes the title.
    void DrawTitle(const QString& title);

    /// Draws a row at a line, 0 to kRows - 1.
    void DrawRow(int line, const Row& row);

    toolkit::PictureBox* pCont;
};
