#include "tools/contrast/TextTable.h"

#include "tools/contrast/Luminance.h"

#include <QStringList>

#include <optional>

namespace contrast {

namespace {

constexpr int kFields = 6; // and a limit

/// Exactly `count` numbers from a field, or nothing.
std::optional<std::vector<double>> Numbers(const QString& field, int count) {
    std::vector<double> numbers;
    for (const QString& word : field.split(u' ', Qt::SkipEmptyParts)) {
        bool isNumber = false;
        numbers.push_back(word.toDouble(&isNumber));
        if (!isNumber)
            return std::nullopt;
    }
    if (numbers.size() != std::size_t(count))
        return std::nullopt;
    return numbers;
}

std::optional<Text> ParseText(const QString& line) {
    const QStringList fields = line.split(u'|');
    if (fields.size() != kFields && fields.size() != kFields + 1)
        return std::nullopt;
    const auto area = Numbers(fields[2], 4);
    const auto color = Numbers(fields[3], 3);
    const auto points = Numbers(fields[4], 1);
    const auto shadow = Numbers(fields[5], 1);
    const bool lowered = fields.size() > kFields;
    const auto limit = lowered ? Numbers(fields[kFields], 1) : points;
    if (!area || !color || !points || !shadow || !limit)
        return std::nullopt;
    return Text{.picture = fields[0].trimmed(),
                .name = fields[1].trimmed(),
                .area = QRect(int((*area)[0]), int((*area)[1]), int((*area)[2]), int((*area)[3])),
                .hand = {.color = qRgb(int((*color)[0]), int((*color)[1]), int((*color)[2])),
                         .points = points->front(),
                         .shadow = int(shadow->front())},
                .limit = lowered ? limit->front() : Limit(points->front())};
}

} // namespace

TextTable ParseTexts(const QString& table) {
    TextTable all;
    int number = 0;
    for (const QString& line : table.split(u'\n')) {
        ++number;
        if (line.trimmed().isEmpty() || line.startsWith(u'#'))
            continue;
        const std::optional<Text> text = ParseText(line);
        if (!text) {
            all.error = QStringLiteral("line %1: %2").arg(number).arg(line);
            return all;
        }
        all.texts.push_back(*text);
    }
    return all;
}

} // namespace contrast
