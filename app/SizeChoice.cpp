#include "app/SizeChoice.h"

#include "toolkit/Stage.h"

#include <algorithm>
#include <utility>

using namespace toolkit;

namespace {

constexpr int kFullScreen = 0;
constexpr int kMargin = 14;
constexpr int kLabel = 100;

} // namespace

SizeChoice::SizeChoice(Form& form)
    : QObject(&form), mForm(form), mLeft(kMargin),
      mLabel(MakeBox(QStringLiteral("pSize"), kLabel)) {
    mLabel->setAccessibleName(QStringLiteral("Window size:"));
    mLabel->setAttribute(Qt::WA_TransparentForMouseEvents); // the window is dragged by it, too
    mLabel->hide();
    connect(&Stage::Get(), &Stage::SizeChanged, this, [this] {
        if (mLabel->isVisibleTo(&mForm))
            Show();
    });
}

void SizeChoice::Show() {
    const std::vector<int> sizes = Stage::Get().Sizes();
    if (!Offers(sizes))
        MakeRow(sizes);
    Draw();
    mLabel->show();
    for (const Choice& choice : mChoices)
        choice.button->Box().show();
}

void SizeChoice::Hide() {
    for (const Choice& choice : mChoices)
        choice.button->Box().hide();
    mLabel->hide();
}

void SizeChoice::Draw() {
    const Stage& stage = Stage::Get();
    const int now = stage.isFullScreen() ? kFullScreen : stage.Size();
    WordButton::Write(*mLabel, mLabel->accessibleName(), WordButton::kQuiet);
    for (const Choice& choice : mChoices)
        choice.button->Refresh(choice.percent == now);
}

/// Whether the row offers these, and full screen.
bool SizeChoice::Offers(const std::vector<int>& sizes) const {
    return mChoices.size() == sizes.size() + 1 &&
           std::equal(sizes.begin(), sizes.end(), mChoices.begin(),
                      [](int size, const Choice& choice) { return size == choice.percent; });
}

void SizeChoice::MakeRow(const std::vector<int>& sizes) {
    for (const Choice& choice : std::exchange(mChoices, {}))
        choice.button->Box().deleteLater();
    mLeft = kMargin + kLabel;
    for (const int percent : sizes)
        AddChoice(percent, QStringLiteral("pSize%1").arg(percent),
                  QStringLiteral("%1 %").arg(percent), 60);
    AddChoice(kFullScreen, QStringLiteral("pFullScreen"), QStringLiteral("Full screen"), 96);
}

void SizeChoice::AddChoice(int percent, const QString& name, const QString& words, int width) {
    auto* button = new WordButton(MakeBox(name, width), words);
    mChoices.push_back({percent, button});
    connect(button, &WordButton::Clicked, this, [percent] {
        Stage& stage = Stage::Get();
        percent == kFullScreen ? stage.SetFullScreen(!stage.isFullScreen())
                               : stage.SetSize(percent);
    });
}

PictureBox* SizeChoice::MakeBox(const QString& name, int width) {
    constexpr int kHeight = 26;
    constexpr int kBelow = 8;
    auto* box = new PictureBox(&mForm, name, QSize(width, kHeight));
    box->Dc()->SetFont(RoundFont(10));
    box->MoveTo(mLeft, mForm.Height() - kHeight - kBelow);
    mLeft += width;
    return box;
}
