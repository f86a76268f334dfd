#pragma once

#include "game/SongSource.h"

#include <filesystem>
#include <utility>

/// Has a game play a playlist without asking for one.
struct FixedSource : game::SongSource {
    explicit FixedSource(std::filesystem::path path) : list(std::move(path)) {}
    std::filesystem::path GetM3U() override { return list; }
    bool ExitProgram() const override { return false; }
    bool Loading() const override { return true; }
    void LoadingDone() override {}
    std::filesystem::path list;
};
