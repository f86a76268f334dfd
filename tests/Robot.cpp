#include "tests/Robot.h"

#include "platform/Wait.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMetaEnum>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>
#include <utility>

namespace {

constexpr int kLookEvery = 5;
constexpr int kLimit = 30000;

QString FrameOf(const QMessageBox& box) {
    const char* icon = QMetaEnum::fromType<QMessageBox::Icon>().valueToKey(box.icon());
    QStringList frame = {box.windowTitle(), QString::fromLatin1(icon)};
    for (const QAbstractButton* button : box.buttons())
        frame << button->text().remove(u'&');
    return frame.join(QStringLiteral(", "));
}

} // namespace

Robot::Robot(std::function<void()> act) : mAct(std::move(act)) {
    QTimer::singleShot(kLookEvery, this, &Robot::Look);
    mLimit.setSingleShot(true);
    connect(&mLimit, &QTimer::timeout, this, [] {
        ADD_FAILURE() << "the program waits for something that never comes";
        platform::RequestQuit();
    });
    mLimit.start(kLimit);
}

void Robot::Look() {
    // Not a repeating timer: Qt holds its next shot back while the last one is still handled.
    QTimer::singleShot(kLookEvery, this, &Robot::Look);
    // What is done now may itself wait, but only for a dialog's answer.
    if (mActing && QApplication::activeModalWidget() == nullptr)
        return;
    const bool outer = std::exchange(mActing, true);
    if (!CloseMessage())
        mAct();
    mActing = outer;
}

bool Robot::CloseMessage() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr)
        return false;
    mMessages << box->text();
    mFrames << FrameOf(*box);
    const bool question = box->button(QMessageBox::Yes) != nullptr;
    ClickOn(box->button(!question  ? QMessageBox::Ok
                        : mSaysYes ? QMessageBox::Yes
                                   : QMessageBox::No));
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

void ClickOn(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }
