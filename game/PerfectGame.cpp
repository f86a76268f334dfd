#include "game/PerfectGame.h"

#include <QStringList>

namespace game {

QString PerfectGame(const std::vector<int>& streaks, int rounds) {
    QStringList players;
    for (std::size_t i = 0; i < streaks.size(); ++i)
        if (streaks[i] == rounds)
            players << QString::number(i + 1);
    if (players.isEmpty())
        return {};
    if (streaks.size() == 1)
        return QStringLiteral("A perfect game!");
    const QString last = players.takeLast();
    const QString all =
        players.isEmpty()
            ? QStringLiteral("Player ") + last
            : QStringLiteral("Players %1 and %2").arg(players.join(QStringLiteral(", ")), last);
    return all + QStringLiteral(" played a perfect game!");
}

} // namespace game
