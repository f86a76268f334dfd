#pragma once

#include <QString>

namespace toolkit {

/// The text of a tool tip that shows `text` as it is, even if it looks like HTML.
QString ToolTipOf(const QString& text);

} // namespace toolkit
