#include "app/WordButton.h"

#include "toolkit/ButtonFace.h"
#include "toolkit/Drawing.h"

using namespace toolkit;

WordButton::WordButton(PictureBox* box, const QString& words)
    : QObject(box), mBox(box), mWords(words) {
    constexpr double kCorner = 4;
    box->SetButton(kCorner);
    box->setAccessibleName(words);
    connect(box, &PictureBox::MouseMoved, this, [this] { Light(true); });
    connect(box, &PictureBox::MouseOutside, this, [this] { Light(false); });
    connect(box, &PictureBox::MouseUp, this, [this](double x, double y) {
        if (QRectF(0, 0, mBox->Width(), mBox->Height()).contains(x, y))
            Q_EMIT Clicked();
    });
    connect(box, &PictureBox::Activated, this, &WordButton::Clicked);
}

void WordButton::Refresh(bool chosen) {
    mChosen = chosen;
    mBox->setAccessibleDescription(chosen ? QStringLiteral("As it is now") : QString());
    Draw();
}

void WordButton::Light(bool lit) {
    if (lit == mLit)
        return;
    mLit = lit;
    Draw();
}

void WordButton::Draw() { Write(*mBox, mWords, mChosen || mLit ? kWhite : kQuiet, mChosen); }

void WordButton::Write(PictureBox& box, const QString& words, ColorRef color, bool underlined) {
    constexpr int kMargin = 4;
    CopyFormBehind(box);
    const double width = box.Dc()->TextWidth(words);
    const double left = (box.Width() - width) / 2;
    Drawing drawing(box.Dc());
    drawing.Text(words, color, kBlack, left, kMargin, 1);
    const int line = box.Height() - kMargin;
    if (underlined)
        drawing.Fill(color, left, line - 1, left + width, line);
    box.Refresh();
}
