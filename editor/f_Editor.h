#pragma once

#include "toolkit/Screen.h"

class QLabel;
class QLineEdit;

/// The window of the playlist editor.
class f_Editor : public toolkit::Screen {
    Q_OBJECT
public:
    f_Editor();

    /// What the editor is called, in its caption and those of its messages.
    static QString Title() { return QStringLiteral("Mp3 Editor"); }

    /// Shows the list's name, if it has one, and whether it is unsaved.
    void ShowName(const QString& name, bool unsaved);

    /// Shows whether the text in the find box was found.
    void ShowFound(bool found);

    toolkit::PictureBox* pList;
    toolkit::PictureBox* pAddFile;
    toolkit::PictureBox* pAddDir;
    toolkit::PictureBox* pRemove;
    toolkit::PictureBox* pEdit;
    toolkit::PictureBox* pPlay;
    toolkit::PictureBox* pLoad;
    toolkit::PictureBox* pSave;
    toolkit::PictureBox* pMenu;
    QLineEdit* tFind;
    QLabel* lName;
};
