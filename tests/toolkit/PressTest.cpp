#include "tests/Fingers.h"
#include "tests/toolkit/Pictures.h"
#include "toolkit/Form.h"
#include "toolkit/c_SurfButton.h"

#include <QLineEdit>
#include <QMap>
#include <QPainter>
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

namespace {

using namespace toolkit;

constexpr QSize kFrame(40, 21);
constexpr QRect kHole(0, 0, 10, 21); // of each frame, transparent
constexpr ColorRef kFrames[] = {Rgb(0, 0, 200), Rgb(0, 200, 0), Rgb(200, 0, 0)};
constexpr QPoint kGo(31, 17);
constexpr QPoint kStay(120, 50);

/// Points in the form; all but the first in and around the button "Stay".
const QMap<QString, QPoint> kPlaces = {{"go", kGo + QPoint(20, 10)},
                                       {"shape", kStay + QPoint(20, 10)},
                                       {"hole", kStay + QPoint(5, 10)},
                                       {"beside", kStay + QPoint(-4, 10)},
                                       {"below", kStay + QPoint(20, 21)}};

/// A form with a button "Go" that is replaced by "Next" when it is pressed, a button "Stay", and a
/// prompt for a text that appears when "Next" is pressed. They get real events.
class Presses : public testing::Test {
protected:
    Presses() {
        Scribble(*mForm.Dc());
        QImage skin(kFrame.width(), 3 * kFrame.height(), QImage::Format_RGB888);
        skin.fill(Qt::black);
        for (int frame = 0; frame < 3; ++frame)
            QPainter(&skin).fillRect(kHole.width(), frame * kFrame.height(), kFrame.width(),
                                     kFrame.height(), ToQColor(kFrames[frame]));
        mFolder.Save("Images/Skin.bmp", skin);
        for (auto& [name, place, box, button] : mButtons) {
            box = new PictureBox(&mForm, name, QSize(5, 5)); // gets the skin's
            box->MoveTo(place.x(), place.y());
            button.Create(box, "Images\\Skin.bmp", QString());
            button.Refresh();
            QObject::connect(&button, &c_SurfButton::Clicked, &mForm, [this, name = name] {
                mPressed << name;
                if (name == "Go")
                    Show(1);
                if (name == "Next")
                    mPrompt.ShowInPlace();
            });
        }
        mStay = mButtons[2].box;
        Put(mText, QRect(10, 10, 80, 20));
        QObject::connect(&mText, &QLineEdit::returnPressed, &mForm, [this] { mPressed << "Name"; });
    }

    /// Shows one of the first two buttons.
    void Show(int shown) {
        mButtons[1 - shown].box->hide();
        mButtons[shown].box->show();
        mButtons[shown].box->setFocus();
    }

    void Begin() {
        mPrompt.hide();
        mForm.ShowInPlace();
        Show(0);
        mText.clear();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Stage::Get()));
        Do("go");
        mFingers.mTime += 10000;
        mPressed.clear();
    }

    /// Does a step: a place takes the pointer there, a number lets that many milliseconds pass, "+"
    /// presses and "-" releases what follows, and "*" repeats it as some systems report it.
    void Do(const QString& step) {
        const QChar act = step.front();
        const QString what = step.mid(1);
        const auto mouse = what == "L" ? Qt::LeftButton : Qt::RightButton;
        if (kPlaces.contains(step)) {
            mFingers.mAt = OnStage(mForm, kPlaces[step]);
            QTest::mouseMove(StageWindow(), mFingers.mAt);
        } else if (mActs.contains(step)) {
            mActs[step]();
        } else if (act.isDigit()) {
            mFingers.mTime += step.toULongLong();
        } else if (what == "L" || what == "R") {
            act == u'+' ? mFingers.Press(mouse) : mFingers.Release(mouse);
        } else {
            const QKeyCombination keys = QKeySequence(what)[0];
            mFingers.mWith = keys.keyboardModifiers();
            act == u'-' ? mFingers.Up(keys.key()) : mFingers.Down(keys.key(), act == u'*');
        }
        QCoreApplication::processEvents();
    }

    /// How "Stay" looks: 0 normal, 1 hovered, 2 pressed, - none of these.
    QChar Look() const {
        const auto* frame = std::ranges::find(kFrames, mStay->Picture().Pixel(20, 10));
        return frame == std::end(kFrames) ? u'-' : u"012"[frame - kFrames];
    }

    struct Named {
        QString name;
        QPoint place;
        PictureBox* box = nullptr;
        c_SurfButton button = {};
    };

    const QMap<QString, std::function<void()>> mActs = {
        {"change", [this] { Show(1); }},          {"prompt", [this] { mPrompt.ShowInPlace(); }},
        {"hide", [this] { mStay->hide(); }},      {"show", [this] { mStay->show(); }},
        {"focus", [this] { mStay->setFocus(); }}, {"leave", [this] { mStay->clearFocus(); }},
        {"wait", [] { QTest::qWait(40); }}, // longer than a release is held back
    };
    AtRatio mRatio{1.5};
    PictureFolder mFolder;
    Form mForm{"f_Test", QSize(200, 100)};
    Form mPrompt{"f_Prompt", QSize(100, 50)};
    QLineEdit mText{&mPrompt};
    Named mButtons[3] = {{"Go", kGo}, {"Next", kGo}, {"Stay", kStay}};
    PictureBox* mStay = nullptr;
    QStringList mPressed;
    Fingers mFingers;
};

TEST_F(Presses, CountForWhatWasShownWhenTheyBegan) {
    // The steps, and the buttons pressed by them or the text.
    const std::pair<const char*, const char*> cases[] = {
        {"+L 5 -L 350 +L 5 -L 350 +L 5 -L", "Go"},
        {"+L 5 -L 700 +L 5 -L", "Go Next"},
        {"+L 5 -L 100 +R 5 -R", "Go Next"},
        {"+L change 5 -L", ""},
        {"+L 5 -L 100 shape +L 5 -L", "Go Stay"},
        {"+R 5 -R 100 +R shape +L 5 -R", "Go"},
        {"shape +L 5 -L 100 +L 5 -L", "Stay Stay"},
        {"+Return 5 -Return 100 +Return 5 -Return", "Go"},
        {"+Return 5 -Return 700 +Return 5 -Return 100 +Return 5 -Return 700 +Return 5 -Return",
         "Go Next Name"},
        // Held, as Qt reports it and as X does.
        {"+Return 600 *Return 40 *Return 40 -Return", "Go"},
        {"+Return 600 -Return +Return 40 -Return +Return 40 -Return", "Go"},
        {"+Return 600 *Return 40 -Return 700 +Return 700 *Return", "Go Next"},
        {"change +Return 5 -Return 700 +Return 700 *Return 40 *Return", "Next Name"},
        {"+Alt+Return -Alt+Return", ""},
        {"+Ctrl+Space -Ctrl+Space", ""},
        // A held key moves and types, but not where something else came up meanwhile.
        {"prompt +A *A *A -A +Backspace *Backspace", "A"},
        {"prompt +A -A +B -B +Left *Left -Left +Del *Del -Del +C", "C"},
        {"prompt +A -A 5 +Ctrl+A -Ctrl+A +B", "B"},
        {"+A 600 prompt *A -A +B", "B"},
    };
    for (const auto& [steps, result] : cases) {
        Begin();
        for (const QString& step : QString(steps).split(u' '))
            Do(step);
        EXPECT_EQ((mPressed.join(u' ') + mText.text()).toStdString(), result) << steps;
    }
}

TEST_F(Presses, AreSeenOnTheButtonsShapeAndEndWithIt) {
    // After each step, how the button looks, and "!" if it was pressed.
    for (const char* steps :
         {"shape 1, hole 0, shape 1, below 0", "hole 0, +L 0, -L 0", "shape 1, +L 2, below 2, -L 0",
          "shape 1, +R 2, hole 0, -R 0", "shape 1, +R 2, beside 2, shape 2, -R 0!",
          "shape 1, +L 2, hide 0, -L 0, show 0, hole 0, shape 1",
          "focus 0, +Return 2!, *Return 2, -Return 2, wait 0",
          "focus 0, shape 1, +Enter 2!, go 2, -Enter 2, wait 0",
          "focus 0, +Space 2!, leave 0, -Space 0",
          "focus 0, +Space 2!, hide 0, -Space 0, show 0"}) {
        Begin();
        mButtons[2].button.Refresh(c_SurfButton::Normal);
        QStringList seen;
        for (const QString& step : QString(steps).split(", ")) {
            mPressed.clear();
            Do(step.section(u' ', 0, 0));
            seen << step.section(u' ', 0, 0) + u' ' + Look() + (mPressed.isEmpty() ? "" : "!");
        }
        EXPECT_EQ(seen.join(", ").toStdString(), steps);
    }
    mForm.Dc()->Fill(QRect(0, 0, 200, 100), Rgb(9, 8, 7));
    mButtons[2].button.Refresh(c_SurfButton::Hover);
    for (int y = 0; y < kFrame.height(); ++y)
        for (int x = 0; x < kFrame.width(); ++x)
            ASSERT_EQ(mStay->Picture().Pixel(x, y),
                      kHole.contains(x, y) ? Rgb(9, 8, 7) : kFrames[1])
                << x << ", " << y;
}

} // namespace
