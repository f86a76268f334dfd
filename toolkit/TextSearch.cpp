#include "toolkit/TextSearch.h"

#include "toolkit/ListLines.h"

namespace toolkit {

bool TextSearch::FindsIn(const QString& line) const {
    constexpr QChar kSeparator = u'\\';
    // What holds no separator lies within a column.
    if (ShownAsItIs(line) && !mText.contains(kSeparator))
        return IsPartOf(line);
    for (int column = 0; column <= line.count(kSeparator); ++column)
        if (IsPartOf(ShownColumn(line, column)))
            return true;
    return false;
}

/// Looking for the first letter in both cases is several times as fast as ignoring its case.
bool TextSearch::IsPartOf(QStringView shown) const {
    if (mText.isEmpty())
        return true;
    for (const QChar first : {mText.front().toLower(), mText.front().toUpper()})
        for (qsizetype at = shown.indexOf(first); at >= 0; at = shown.indexOf(first, at + 1))
            if (shown.mid(at).startsWith(mText, Qt::CaseInsensitive))
                return true;
    return false;
}

} // namespace toolkit
