#pragma once

#include <QImage>
#include <QString>

namespace toolkit {

/// Draws the sign of a window button's skin `name`, a cross or a bar, into each frame of the plain
/// skin that replaces it. False for any other skin.
bool DrawWindowSign(QImage& plainSkin, const QString& name);

} // namespace toolkit
