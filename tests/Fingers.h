#pragma once

#include "tests/OnStage.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

/// Presses keys and mouse buttons on the stage's window, at times that a test chooses.
struct Fingers {
    Fingers() { mTime += 10000; } // since the last test

    void Down(int key, bool repeats = false) { Key(QEvent::KeyPress, key, repeats); }
    void Up(int key) { Key(QEvent::KeyRelease, key, false); }
    void Press(Qt::MouseButton button) { Mouse(QEvent::MouseButtonPress, button, button); }
    void Release(Qt::MouseButton button) {
        Mouse(QEvent::MouseButtonRelease, button, Qt::NoButton);
    }

    inline static quint64 mTime = 1'000'000; // milliseconds
    QPoint mAt;                              // in the window
    Qt::KeyboardModifiers mWith;
    quint32 mScanCode = 0;

private:
    void Key(QEvent::Type type, int key, bool repeats) {
        const QString text = key < Qt::Key_Escape ? QString(QChar(key)) : QString();
        QKeyEvent event(type, key, mWith, mScanCode, 0, 0, text, repeats);
        Send(event);
    }
    void Mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
        QMouseEvent event(type, mAt, StageWindow()->mapToGlobal(mAt), button, held, mWith);
        Send(event);
    }
    void Send(QInputEvent& event) {
        event.setTimestamp(mTime);
        QCoreApplication::sendEvent(StageWindow(), &event);
    }
};
