#include "app/SizeChoice.h"

#include "platform/WindowSize.h"

#include <algorithm>

using namespace toolkit;

SizeChoice::SizeChoice(Form& form) : QObject(&form), mForm(form), mLeft(14) {}

void SizeChoice::Show() {
    if (mLabel == nullptr)
        MakeRow();
    if (mLabel == nullptr)
        return;
    SizeButton::Write(*mLabel, mLabel->accessibleName(), SizeButton::kQuiet);
    mLabel->show();
    for (SizeButton* button : mButtons) {
        button->Refresh(button->Percent() == platform::WindowSize());
        button->Box().show();
    }
}

void SizeChoice::Hide() {
    for (SizeButton* button : mButtons)
        button->Box().hide();
    if (mLabel != nullptr)
        mLabel->hide();
}

void SizeChoice::Step(int direction) {
    const auto now = std::ranges::find(mButtons, platform::WindowSize(), &SizeButton::Percent);
    const auto next = std::distance(mButtons.begin(), now) + direction;
    if (now != mButtons.end() && next >= 0 && next < std::ssize(mButtons))
        Q_EMIT Chosen(mButtons[static_cast<std::size_t>(next)]->Percent());
}

void SizeChoice::MakeRow() {
    const std::vector<int> sizes = platform::WindowSizes(mForm);
    if (sizes.size() < 2)
        return;
    mLabel = MakeBox(QStringLiteral("pSize"), QSize(92, 26));
    mLabel->setAccessibleName(QStringLiteral("Window size:"));
    mLabel->setAttribute(Qt::WA_TransparentForMouseEvents); // the window is dragged by it, too
    for (const int percent : sizes) {
        PictureBox* box = MakeBox(QStringLiteral("pSize%1").arg(percent), QSize(56, 26));
        mButtons.push_back(new SizeButton(box, percent));
        connect(mButtons.back(), &SizeButton::Clicked, this, &SizeChoice::Chosen);
    }
}

PictureBox* SizeChoice::MakeBox(const QString& name, QSize size) {
    constexpr int kBelow = 8;
    auto* box = new PictureBox(&mForm, name, size);
    box->Dc()->SetFont(ScreenFont(10));
    box->move(mLeft, mForm.height() - size.height() - kBelow);
    mLeft += size.width();
    return box;
}
