#pragma once

#include "toolkit/Screen.h"

class QLabel;

/// The window in which the player chooses where a game's songs come from.
class f_Quick : public toolkit::Screen {
    Q_OBJECT
public:
    f_Quick();

    static constexpr double kChoiceFont = 12; // points

    QLabel* lExplain;
    toolkit::PictureBox* pUseDir;
    toolkit::PictureBox* pUsePlayList;
    toolkit::PictureBox* pEditor;
    toolkit::PictureBox* pPlayOn;
    toolkit::PictureBox* pStartOver;
};
