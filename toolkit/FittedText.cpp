#include "toolkit/FittedText.h"

#include <QFontMetricsF>
#include <cmath>

namespace toolkit {

FittedText FitText(const QString& text, const QFont& font, double width, double smallest) {
    const QString line = QString(text).replace(u'\n', u' ');
    QFont fitted = font;
    const int smallestSize = static_cast<int>(std::lround(font.pixelSize() * smallest));
    while (QFontMetricsF(fitted).horizontalAdvance(line) > width &&
           fitted.pixelSize() > smallestSize)
        fitted.setPixelSize(fitted.pixelSize() - 1);
    const QFontMetricsF metrics(fitted);
    const QString shown = metrics.horizontalAdvance(line) > width
                              ? metrics.elidedText(line, Qt::ElideRight, width)
                              : line;
    return {shown, fitted, metrics.horizontalAdvance(shown)};
}

} // namespace toolkit
