#pragma once

#include "toolkit/Place.h"
#include "toolkit/Stage.h"

#include <QWindow>

/// The window that gets a test's mouse and key events.
inline QWindow* StageWindow() { return toolkit::Stage::Get().windowHandle(); }

/// Where a point of a form lies in that window.
inline QPoint OnStage(const QWidget& form, QPoint logical) {
    return form.mapTo(form.window(), toolkit::FromLogical(QRect(logical, QSize(1, 1))).topLeft());
}
