#pragma once

#include "game/SongSource.h"

#include <filesystem>
#include <utility>

/// Has a game play a playlist without asking for one.
struct FixedSource : game::SongSource {
    explicit FixedSource(std::filesystem::path path, bool leaves = false)
        : list(std::move(path)), exits(leaves) {}
    std::filesystem::path GetM3U() override { return list; }
    bool ExitProgram() const override { return exits; }
    bool Loading() const override { return true; }
    void LoadingDone() override {}
    std::filesystem::path list;
    bool exits;
};
