#pragma once

#include "app/SizeChoice.h"
#include "toolkit/Screen.h"

class QComboBox;
class QLabel;

/// The main menu's window; one serves the whole program.
class f_Menu : public toolkit::Screen {
    Q_OBJECT
public:
    f_Menu();

    /// Writes the line that names the program's authors.
    void DrawBy();

    toolkit::PictureBox* pSingle;
    toolkit::PictureBox* pMulti;
    toolkit::PictureBox* pEditor;
    // The second stage from top to bottom, as the Tab key goes through it.
    QLabel* lPlayers;
    QComboBox* cPlayers;
    toolkit::PictureBox* PChoice1;
    toolkit::PictureBox* pChoice2;
    toolkit::PictureBox* pChoice3;
    SizeChoice* Sizes;
    WordButton* Scores;
};
