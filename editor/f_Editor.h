#pragma once

#include "toolkit/Screen.h"

/// The window of the playlist editor.
class f_Editor : public toolkit::Screen {
    Q_OBJECT
public:
    f_Editor();

    toolkit::PictureBox* pList;
    toolkit::PictureBox* pAddFile;
    toolkit::PictureBox* pAddDir;
    toolkit::PictureBox* pRemove;
    toolkit::PictureBox* pEdit;
    toolkit::PictureBox* pPlay;
    toolkit::PictureBox* pLoad;
    toolkit::PictureBox* pSave;
    toolkit::PictureBox* pMenu;
};
