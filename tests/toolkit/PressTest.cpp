#include "tests/Fingers.h"
#include "toolkit/Form.h"
#include "toolkit/c_PicButton.h"

#include <QLineEdit>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

using namespace toolkit;

/// A form with a button "Go" that is replaced by "Next" when it is pressed, another button that
/// stays, and a prompt that appears when "Next" is pressed.
class Presses : public testing::Test {
protected:
    Presses() {
        for (auto& [name, left, box, button] : mButtons) {
            box = new PictureBox(&mForm, name, QSize(50, 20));
            box->MoveTo(left, 10);
            button.Create(box, name);
            QObject::connect(&button, &c_PicButton::Clicked, &mForm, [this, name = name] {
                mPressed << name;
                if (name == "Go")
                    Show(1);
                if (name == "Next")
                    mPrompt.ShowInPlace();
            });
        }
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
        mFingers.mAt = OnStage(mForm, QPoint(20, 20));
        mFingers.mTime += 10000;
        mPressed.clear();
    }

    /// Does the steps, as in "+L 90 -L": a number lets that many milliseconds pass, "+" presses and
    /// "-" releases what follows, "*" repeats it as some systems report it; "x" is the change
    /// itself, "p" shows the prompt, and ">" takes the pointer to the button that stays.
    void Do(const QString& steps) {
        for (const QString& step : steps.split(u' ')) {
            const QChar act = step.front();
            const QString what = step.mid(1);
            const auto mouse = what == "L" ? Qt::LeftButton : Qt::RightButton;
            if (act.isDigit()) {
                mFingers.mTime += step.toULongLong();
            } else if (act == u'x') {
                Show(1);
            } else if (act == u'p') {
                mPrompt.ShowInPlace();
            } else if (act == u'>') {
                mFingers.mAt = OnStage(mForm, QPoint(120, 20));
            } else if (what == "L" || what == "R") {
                act == u'+' ? mFingers.Press(mouse) : mFingers.Release(mouse);
            } else {
                const QKeyCombination keys = QKeySequence(what)[0];
                mFingers.mWith = keys.keyboardModifiers();
                act == u'-' ? mFingers.Up(keys.key()) : mFingers.Down(keys.key(), act == u'*');
            }
            QCoreApplication::processEvents();
        }
    }

    struct Named {
        QString name;
        int left;
        PictureBox* box = nullptr;
        c_PicButton button = {};
    };

    Form mForm{"f_Test", QSize(200, 100)};
    Form mPrompt{"f_Prompt", QSize(100, 50)};
    QLineEdit mText{&mPrompt};
    Named mButtons[3] = {{"Go", 10}, {"Next", 10}, {"Stay", 100}};
    QStringList mPressed;
    Fingers mFingers;
};

TEST_F(Presses, CountForWhatWasShownWhenTheyBegan) {
    const std::pair<const char*, const char*> cases[] = {
        {"+L 5 -L 350 +L 5 -L 350 +L 5 -L", "Go"},
        {"+L 5 -L 700 +L 5 -L", "Go Next"},
        {"+L 5 -L 100 +R 5 -R", "Go Next"},
        {"+L x 5 -L", ""},
        {"+L > 5 -L", "Go"},
        {"+L 5 -L 100 > +L 5 -L", "Go Stay"},
        {"+R 5 -R 100 +R > +L 5 -R", "Go"},
        {"> +L 5 -L 100 +L 5 -L", "Stay Stay"},
        {"+Return 5 -Return 100 +Return 5 -Return", "Go"},
        {"+Space 5 -Space 350 +Space 5 -Space", "Go"},
        {"+Return 5 -Return 700 +Return 5 -Return 100 +Return 5 -Return 700 +Return 5 -Return",
         "Go Next Name"},
        // Held, as Qt reports it and as X does.
        {"+Return 600 *Return 40 *Return 40 -Return", "Go"},
        {"+Return 600 -Return +Return 40 -Return +Return 40 -Return", "Go"},
        {"+Return 600 *Return 40 -Return 700 +Return 700 *Return", "Go Next"},
        {"x +Return 5 -Return 700 +Return 700 *Return 40 *Return", "Next Name"},
        {"+Alt+Return -Alt+Return", ""},
        {"+Ctrl+Space -Ctrl+Space", ""},
    };
    for (const auto& [steps, pressed] : cases) {
        Begin();
        Do(steps);
        EXPECT_EQ(mPressed.join(u' ').toStdString(), pressed) << steps;
    }
}

TEST_F(Presses, OfTheSecondHalfReachNoControl) {
    Begin();
    QSignalSpy downs(mButtons[1].box, &PictureBox::MouseDown);
    QTest::mouseDClick(StageWindow(), Qt::LeftButton, {}, mFingers.mAt);
    EXPECT_EQ(mPressed.join(u' '), "Go");
    EXPECT_EQ(downs.size(), 0);
}

TEST_F(Presses, WorkAsShortcutsUnderTheSameRule) {
    Begin();
    QShortcut shortcut(Qt::CTRL | Qt::Key_J, &mForm);
    QObject::connect(&shortcut, &QShortcut::activated, &mForm, [this] {
        mPressed << "Ctrl+J";
        Show(1);
    });
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(StageWindow(), Qt::Key_J, Qt::ControlModifier);
    EXPECT_EQ(mPressed.join(u' '), "Ctrl+J");
}

TEST_F(Presses, OfAHeldKeyMoveAndTypeButNotElsewhere) {
    const std::pair<const char*, const char*> cases[] = {
        {"p +A *A -A +A", "AAA"},
        {"p +A *A *A -A +Backspace *Backspace", "A"},
        {"p +A -A +B -B +Left *Left -Left +Del *Del -Del +C", "C"},
        {"p +A -A 5 +Ctrl+A -Ctrl+A +B", "B"},
        {"+A 600 p *A -A +B", "B"},
    };
    for (const auto& [steps, text] : cases) {
        Begin();
        Do(steps);
        EXPECT_EQ(mText.text().toStdString(), text) << steps;
    }
}

} // namespace
