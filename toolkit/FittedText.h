#pragma once

#include <QFont>
#include <QString>

namespace toolkit {

/// A text and the font in which it fits a given width.
struct FittedText {
    QString text;
    QFont font;
    double width; ///< in logical pixels
};

/// Makes `text` fit `width` logical pixels: first with a smaller font, down to the fraction
/// `smallest` of `font`, then by cutting it off with an ellipsis. Line breaks become spaces.
FittedText FitText(const QString& text, const QFont& font, double width, double smallest = 0.55);

} // namespace toolkit
