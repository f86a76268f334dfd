#include "game/GameKind.h"

#include "platform/ProgramFolder.h"

namespace game {

QString NameOf(GameKind kind) {
    return kind == GameKind::Betting ? QStringLiteral("Betting") : QStringLiteral("Normal Play");
}

std::filesystem::path TableOf(GameKind kind) {
    return platform::ProgramFolder() / (kind == GameKind::Betting ? "H2.dat" : "H1.dat");
}

} // namespace game
