#pragma once

#include <QString>

namespace toolkit {

/// Looks for a text in the columns of a list's lines, ignoring case.
class TextSearch {
public:
    explicit TextSearch(const QString& text) : mText(text) {}

    /// Whether one of the columns of a line's text holds it as it is shown.
    bool FindsIn(const QString& line) const;

private:
    bool IsPartOf(QStringView shown) const;

    QString mText;
};

} // namespace toolkit
