#pragma once

#include <QString>
#include <filesystem>

namespace game {

/// The kinds of game, each with high scores of its own.
enum class GameKind { NormalPlay, Betting };

constexpr GameKind Other(GameKind kind) {
    return kind == GameKind::Betting ? GameKind::NormalPlay : GameKind::Betting;
}

/// The name that players see.
QString NameOf(GameKind kind);

/// The file of its high scores.
std::filesystem::path TableOf(GameKind kind);

} // namespace game
