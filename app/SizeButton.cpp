#include "app/SizeButton.h"

#include "toolkit/ButtonFace.h"
#include "toolkit/Drawing.h"

using namespace toolkit;

SizeButton::SizeButton(PictureBox* box, int percent) : QObject(box), mBox(box), mPercent(percent) {
    constexpr double kCorner = 4;
    box->SetButton(kCorner);
    box->setAccessibleName(QStringLiteral("Window size %1 %").arg(percent));
    connect(box, &PictureBox::MouseMoved, this, [this] { Light(true); });
    connect(box, &PictureBox::MouseOutside, this, [this] { Light(false); });
    connect(box, &PictureBox::MouseUp, this, [this](double x, double y) {
        if (QRectF(mBox->rect()).contains(x, y))
            Q_EMIT Clicked(mPercent);
    });
    connect(box, &PictureBox::Activated, this, [this] { Q_EMIT Clicked(mPercent); });
}

void SizeButton::Refresh(bool chosen) {
    mChosen = chosen;
    mBox->setAccessibleDescription(chosen ? QStringLiteral("The size now") : QString());
    Draw();
}

void SizeButton::Light(bool lit) {
    if (lit == mLit)
        return;
    mLit = lit;
    Draw();
}

void SizeButton::Draw() {
    Write(*mBox, QStringLiteral("%1 %").arg(mPercent), mChosen || mLit ? kWhite : kQuiet, mChosen);
}

void SizeButton::Write(PictureBox& box, const QString& words, ColorRef color, bool underlined) {
    constexpr int kMargin = 4;
    CopyFormBehind(box);
    const double width = box.Dc()->TextWidth(words);
    const double left = (box.width() - width) / 2;
    Drawing drawing(box.Dc());
    drawing.Text(words, color, kBlack, left, kMargin, 1);
    const int line = box.height() - kMargin;
    if (underlined)
        drawing.Fill(color, left, line - 1, left + width, line);
    box.Refresh();
}
