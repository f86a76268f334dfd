#pragma once

#include <QImage>
#include <QString>

namespace toolkit {

/// Whether `name` is the skin of a window button, which has a sign: a cross or a bar.
bool HasWindowSign(const QString& name);

/// The plain skin that replaces such a skin, with the sign in each of its frames.
QImage WithWindowSign(QImage plainSkin, const QString& name);

} // namespace toolkit
