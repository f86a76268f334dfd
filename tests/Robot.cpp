#include "tests/Robot.h"

#include "platform/Wait.h"
#include "toolkit/MessagePanel.h"
#include "toolkit/Screen.h"
#include "toolkit/Stage.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

using namespace toolkit;

namespace {

constexpr int kLookEvery = 5;
constexpr int kLimit = 30000;

QString FrameOf(const MessagePanel& panel) {
    static const char* const icons[] = {"NoIcon", "Information", "Warning", "Critical"};
    QStringList frame = {panel.What().title,
                         QLatin1String(icons[static_cast<int>(panel.What().icon)])};
    for (const QPushButton* button : panel.Buttons())
        frame << button->accessibleName();
    return frame.join(QStringLiteral(", "));
}

bool DialogOpen() {
    const Form* form = Stage::Get().Forms().Current();
    return QApplication::activeModalWidget() != nullptr || (form != nullptr && form->IsModal());
}

} // namespace

Robot::Robot(std::function<void()> act) : mAct(std::move(act)) {
    QTimer::singleShot(kLookEvery, this, &Robot::Look);
    QTimer::singleShot(kLimit, this, [] {
        ADD_FAILURE() << "the program waits for something that never comes";
        platform::RequestQuit();
    });
}

void Robot::Look() {
    // Not a repeating timer, which Qt does not fire again while its last shot is still being
    // handled.
    QTimer::singleShot(kLookEvery, this, &Robot::Look);
    // An action may itself wait; until it ends, only dialogs are answered.
    if (mActing && !DialogOpen())
        return;
    const bool outer = std::exchange(mActing, true);
    if (!CloseMessage())
        mAct();
    mActing = outer;
}

bool Robot::CloseMessage() {
    auto* panel = qobject_cast<MessagePanel*>(Stage::Get().Forms().Current());
    if (panel == nullptr)
        return false;
    const auto& buttons = panel->Buttons();
    if (buttons.size() == 3) {
        ++mSaveQuestions;
        const auto wanted = std::ranges::find(buttons, mSaving, &QPushButton::accessibleName);
        ClickOn(wanted == buttons.end() ? buttons.back() : *wanted);
        return true;
    }
    mMessages << panel->What().text;
    mFrames << FrameOf(*panel);
    ClickOn(mSaysYes ? buttons.front() : buttons.back());
    return true;
}

bool AnswerFileDialog(const QString& chosen) {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr)
        return false;
    if (chosen.isEmpty()) {
        dialog->reject();
        return true;
    }
    auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    edit->setText(chosen);
    QTest::keyClick(edit, Qt::Key_Return);
    return true;
}

bool Minimises(Screen& screen) {
    ClickOn(screen.pMin);
    const bool minimised = screen.window()->isMinimized();
    screen.window()->showNormal();
    return minimised;
}

void ClickOn(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }
