#pragma once

#include "toolkit/Place.h"
#include "toolkit/Stage.h"

#include <QWindow>

/// The window to which a test sends its mouse and keys.
inline QWindow* StageWindow() { return toolkit::Stage::Get().windowHandle(); }

/// Where the point of a form lies in that window.
inline QPoint OnStage(const QWidget& form, QPoint logical) {
    return form.mapTo(form.window(), toolkit::FromLogical(QRect(logical, QSize(1, 1))).topLeft());
}
