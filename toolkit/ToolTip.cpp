#include "toolkit/ToolTip.h"

#include <QTextDocument>

namespace toolkit {

QString ToolTipOf(const QString& text) {
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

} // namespace toolkit
