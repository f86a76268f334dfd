#pragma once

#include "toolkit/Screen.h"
#include "toolkit/c_PicButton.h"

#include <QObject>

class f_Menu;

/// Drives the main menu: who plays, then which game. Created each time the menu is shown.
class c_Menu : public QObject {
    Q_OBJECT
public:
    explicit c_Menu(f_Menu& form);
    ~c_Menu() override;

    /// Shows the menu until a choice is made; returns the mode's name, "Exit" for the close button.
    QString Choose();

    /// Read after `Choose`: 1 for one player, 2 and more for that many, 99 for the editor, -1 if
    /// nothing was chosen.
    int PlayerCode() const { return mPlayerCode; }

    void bSingle_Clicked();
    void bMulti_Clicked();
    void bEditor_Clicked();
    void Scores_Clicked();
    void bChoice1_Clicked();
    void bChoice2_Clicked();
    void bChoice3_Clicked();
    void bMin_Clicked();
    void bX_Clicked();

private:
    static constexpr int kNoPlayers = -1;
    static constexpr int kEditor = 99;

    void ShowFirstStage(bool shown);
    void ShowSecondStage();
    void DrawChoice(c_PicButton& button, toolkit::PictureBox& box, const QString& caption);
    void HideSecondStage();
    void Glide(toolkit::PictureBox* box, const c_SurfButton& button);
    void ChooseGame(const QString& mode);

    f_Menu& mForm;
    int mPlayerCode = kNoPlayers;
    QString mMode;
    bool mExit = false;
    bool mHasSecondStage = false;
    toolkit::WindowButtons mWindowButtons;
    c_SurfButton bSingle;
    c_SurfButton bMulti;
    c_SurfButton bEditor;
    c_PicButton bChoice1;
    c_PicButton bChoice2;
    c_PicButton bChoice3;
};
