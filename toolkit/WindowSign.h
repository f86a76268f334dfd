#pragma once

#include <QImage>
#include <QString>

namespace toolkit {

/// Draws what the skin `name` of a window's button shows, a cross or a bar, into each frame of the
/// plain skin that stands in for it. False for any other skin.
bool DrawWindowSign(QImage& plainSkin, const QString& name);

} // namespace toolkit
