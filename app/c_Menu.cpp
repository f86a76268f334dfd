#include "app/c_Menu.h"

#include "app/f_Menu.h"
#include "platform/Motion.h"
#include "platform/Wait.h"
#include "toolkit/GlideSprite.h"

#include <QComboBox>
#include <QLabel>
#include <algorithm>

using namespace toolkit;

c_Menu::c_Menu(f_Menu& form) : mForm(form), mWindowButtons(form) {
    constexpr int kFirstTop = 192;
    constexpr int kStep = 110;
    mForm.CopyBackground();
    gBack->HDC(0)->Forget(); // the form can then draw on the pixels they shared without a copy
    bSingle.Create(mForm.pSingle, QStringLiteral("Images\\bSingle.bmp"), QString());
    bMulti.Create(mForm.pMulti, QStringLiteral("Images\\bMulti.bmp"), QString());
    bEditor.Create(mForm.pEditor, QStringLiteral("Images\\bEditor.bmp"), QString());
    int top = kFirstTop;
    for (PictureBox* box : {mForm.pSingle, mForm.pMulti, mForm.pEditor}) {
        box->MoveTo((mForm.Width() - box->Width()) / 2, top);
        top += kStep;
    }
    ShowFirstStage(true);
    HideSecondStage();

    connect(&bSingle, &c_SurfButton::Clicked, this, &c_Menu::bSingle_Clicked);
    connect(&bMulti, &c_SurfButton::Clicked, this, &c_Menu::bMulti_Clicked);
    connect(&bEditor, &c_SurfButton::Clicked, this, &c_Menu::bEditor_Clicked);
    connect(&bChoice1, &c_PicButton::Clicked, this, &c_Menu::bChoice1_Clicked);
    connect(&bChoice2, &c_PicButton::Clicked, this, &c_Menu::bChoice2_Clicked);
    connect(&bChoice3, &c_PicButton::Clicked, this, &c_Menu::bChoice3_Clicked);
    connect(mForm.Scores, &WordButton::Clicked, this, &c_Menu::Scores_Clicked);
    connect(&mWindowButtons.bMin, &c_SurfButton::Clicked, this, &c_Menu::bMin_Clicked);
    connect(&mWindowButtons.bX, &c_SurfButton::Clicked, this, &c_Menu::bX_Clicked);
}

c_Menu::~c_Menu() { mForm.hide(); }

QString c_Menu::Choose() {
    mPlayerCode = kNoPlayers;
    mExit = false;
    mForm.DrawBy();
    for (c_SurfButton* button : {&bSingle, &bMulti, &bEditor})
        button->Refresh();
    mWindowButtons.Refresh();
    platform::PumpEvents();
    mForm.ShowInPlace();
    platform::AskAboutMotion();
    platform::WaitWhile([this] { return mForm.isVisible(); });
    return mExit || platform::Quitting() ? QStringLiteral("Exit") : mMode;
}

void c_Menu::ShowFirstStage(bool shown) {
    for (PictureBox* box : {mForm.pSingle, mForm.pMulti, mForm.pEditor})
        box->setVisible(shown);
    shown ? mForm.Sizes->Show() : mForm.Sizes->Hide();
    mForm.Scores->Refresh(false);
    mForm.Scores->Box().setVisible(shown);
}

void c_Menu::bSingle_Clicked() {
    mPlayerCode = 1;
    ShowFirstStage(false);
    Glide(mForm.pSingle, bSingle);
    ShowSecondStage();
}

void c_Menu::bMulti_Clicked() {
    mPlayerCode = 2;
    ShowFirstStage(false);
    Glide(mForm.pMulti, bMulti);
    ShowSecondStage();
}

void c_Menu::Glide(PictureBox* box, const c_SurfButton& button) {
    constexpr int kTop = 100;
    constexpr int kDuration = 200;
    const int width = button.Width();
    const int height = button.Height();
    const c_Surface& surfaces = *button.Surfaces();
    const Sprite sprite{surfaces.HDC(0), surfaces.HDC(1), 0, height * c_SurfButton::Hover,
                        width,           height};
    GlideSprite(mForm, box->Place().topLeft(), QPoint(box->Place().x(), kTop), sprite, kDuration,
                true);
}

void c_Menu::ShowSecondStage() {
    const bool several = mPlayerCode == 2;
    mForm.PChoice1->SetBoxSize(QSize(400, 50));
    mForm.pChoice2->SetBoxSize(QSize(400, 50));
    mForm.pChoice3->SetBoxSize(QSize(200, 50));
    const int left = (mForm.Width() - mForm.PChoice1->Width()) / 2;
    mForm.PChoice1->MoveTo(left, several ? 220 : 200);
    mForm.pChoice2->MoveTo(left, mForm.PChoice1->Place().bottom() + 1 + 10);
    mForm.pChoice3->MoveTo(left + 100, mForm.pChoice2->Place().bottom() + 1 + 60);
    DrawChoice(bChoice1, *mForm.PChoice1, QStringLiteral("Normal Play"));
    DrawChoice(bChoice2, *mForm.pChoice2, QStringLiteral("Betting"));
    DrawChoice(bChoice3, *mForm.pChoice3, QStringLiteral("Back"));
    mHasSecondStage = true;
    mForm.lPlayers->setVisible(several);
    mForm.cPlayers->setVisible(several);
}

/// The second stage is made when it first comes up, so that the menu appears sooner.
void c_Menu::DrawChoice(c_PicButton& button, PictureBox& box, const QString& caption) {
    mHasSecondStage ? button.SetCaption(caption) : button.Create(&box, caption);
    box.show();
}

void c_Menu::HideSecondStage() {
    const std::initializer_list<QWidget*> controls = {
        mForm.PChoice1, mForm.pChoice2, mForm.pChoice3, mForm.lPlayers, mForm.cPlayers};
    for (QWidget* control : controls)
        control->hide();
}

void c_Menu::bChoice1_Clicked() { ChooseGame(QStringLiteral("MultipleChoice")); }

void c_Menu::bChoice2_Clicked() { ChooseGame(QStringLiteral("Betting")); }

void c_Menu::ChooseGame(const QString& mode) {
    if (mPlayerCode == kNoPlayers)
        return;
    if (mPlayerCode == 2)
        mPlayerCode = std::max(mForm.cPlayers->currentText().toInt(), 2);
    mMode = mode;
    mForm.hide();
}

void c_Menu::bChoice3_Clicked() {
    constexpr int kTop = 90; // below the credits
    HideSecondStage();
    BitBlt(mForm.Dc(), 0, kTop, mForm.Width(), 540, gBack->HDC(0), 0, kTop, RasterOp::SrcCopy);
    ShowFirstStage(true);
    mForm.Refresh();
}

void c_Menu::bEditor_Clicked() {
    mPlayerCode = kEditor;
    mMode = QStringLiteral("Editor");
    mForm.hide();
}

void c_Menu::Scores_Clicked() {
    mMode = QStringLiteral("HighScores");
    mForm.hide();
}

void c_Menu::bMin_Clicked() { mForm.Minimise(); }

void c_Menu::bX_Clicked() {
    mExit = true;
    mForm.hide();
}
