#pragma once

#include <QString>

namespace toolkit {

/// What a tool tip must be given so that it shows `text` as it is, even if that looks like HTML.
QString ToolTipOf(const QString& text);

} // namespace toolkit
