#pragma once

#include <QObject>
#include <QStringList>
#include <functional>
#include <ostream>

class QWidget;
namespace toolkit {
class Screen;
}

/// Uses the program while that waits: every few milliseconds it closes a message box, if one is
/// open, or else looks and acts. Ends the program if it takes too long.
class Robot : public QObject {
public:
    explicit Robot(std::function<void()> act);

    /// The texts of the message boxes so far.
    const QStringList& Messages() const { return mMessages; }

    /// The title, icon and buttons of each, as in "Songrush, Information, OK".
    const QStringList& Frames() const { return mFrames; }

    /// How a question with two answers is answered.
    bool mSaysYes = true;

    /// How the question whether to save is answered; such questions are counted, not listed.
    QString mSaving = QStringLiteral("Don't save");
    int mSaveQuestions = 0;

private:
    void Look();
    bool CloseMessage();

    std::function<void()> mAct;
    QStringList mMessages;
    QStringList mFrames;
    bool mActing = false;
};

/// For the messages of failed tests.
inline void PrintTo(const QString& text, std::ostream* out) { *out << text.toStdString(); }

/// Answers an open file dialog with the path `chosen`, or cancels it if that is empty. Returns
/// whether there was one.
bool AnswerFileDialog(const QString& chosen);

/// Returns whether the minimise button of a screen works; restores the window.
bool Minimises(toolkit::Screen& screen);

/// A click of the left mouse button in the middle of a visible widget.
void ClickOn(QWidget* widget);
