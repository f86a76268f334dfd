#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <ostream>

class QWidget;
namespace toolkit {
class Screen;
}

/// Sits at the program while it waits: every few milliseconds it closes what message box is open,
/// or else looks and acts. Gives the program up when it takes too long.
class Robot : public QObject {
public:
    explicit Robot(std::function<void()> act);

    /// The texts of the message boxes so far.
    const QStringList& Messages() const { return mMessages; }

    /// Of each of them title, icon and buttons, as in "Songrush, Information, OK".
    const QStringList& Frames() const { return mFrames; }

    /// How a question is answered.
    bool mSaysYes = true;

    /// How a question with three answers is answered, which is counted instead of kept.
    QString mSaving = QStringLiteral("Don't save");
    int mSaveQuestions = 0;

private:
    void Look();
    bool CloseMessage();

    std::function<void()> mAct;
    QTimer mLimit;
    QStringList mMessages;
    QStringList mFrames;
    bool mActing = false;
};

/// For the messages of failed tests.
inline void PrintTo(const QString& text, std::ostream* out) { *out << text.toStdString(); }

/// Answers an open file dialog with the path `chosen`, or cancels it if that is empty; whether
/// there was one.
bool AnswerFileDialog(const QString& chosen);

/// Whether the minimise button of a screen works; brings the window back.
bool Minimises(toolkit::Screen& screen);

/// A click of the left mouse button in the middle of a visible widget.
void ClickOn(QWidget* widget);
