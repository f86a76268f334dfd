#include "game/LastNames.h"

#include "platform/Settings.h"

namespace game {

namespace {

constexpr int kMost = 8;
constexpr QChar kBetween = u'\n'; // which no name holds

} // namespace

QStringList LastNames() {
    return platform::ReadSetting(QStringLiteral("Songrush"), QStringLiteral("Scores"),
                                 QStringLiteral("Names"), QString())
        .split(kBetween, Qt::SkipEmptyParts);
}

void RememberName(const QString& name) {
    QStringList names = LastNames();
    names.removeIf(
        [&name](const QString& other) { return other.compare(name, Qt::CaseInsensitive) == 0; });
    names.prepend(name);
    platform::WriteSetting(QStringLiteral("Songrush"), QStringLiteral("Scores"),
                           QStringLiteral("Names"), names.mid(0, kMost).join(kBetween));
}

} // namespace game
