#pragma once

#include "toolkit/Place.h"
#include "toolkit/Stage.h"

#include <QCursor>
#include <QTest>
#include <QWindow>

/// The window that gets a test's mouse and key events.
inline QWindow* StageWindow() { return toolkit::Stage::Get().windowHandle(); }

/// Where a point of a form lies in that window.
inline QPoint OnStage(const QWidget& form, QPoint logical) {
    return form.mapTo(form.window(), toolkit::FromLogical(QRect(logical, QSize(1, 1))).topLeft());
}

/// Drags with the left mouse button from one point of the window to another.
inline void Drag(QPoint from, QPoint to) {
    const auto move = [](QPoint at) {
        QCursor::setPos(toolkit::Stage::Get().mapToGlobal(at));
        QTest::mouseMove(StageWindow(), at);
    };
    move(from);
    QTest::mousePress(StageWindow(), Qt::LeftButton, {}, from);
    move((from + to) / 2);
    move(to);
    QTest::mouseRelease(StageWindow(), Qt::LeftButton, {}, to);
}
