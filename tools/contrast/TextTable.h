#pragma once

#include "tools/contrast/Measure.h"

#include <QRect>
#include <QString>

#include <vector>

namespace contrast {

/// A text of the program: where it is to be seen, and how it is written.
struct Text {
    QString picture; ///< path within the pictures' folder, * for any characters
    QString name;
    QRect area;
    Hand hand;
    double limit; ///< the least contrast ratio
};

struct TextTable {
    std::vector<Text> texts;
    QString error; ///< what is wrong with the first line that cannot be read; empty if none is
};

/// Reads a table of texts: a text a line, fields separated by bars, lines that begin with # are
/// comments. The fields: picture | name | left top width height | red green blue | points | shadow,
/// and for a text that may stand lower than its size allows, | limit.
TextTable ParseTexts(const QString& table);

} // namespace contrast
