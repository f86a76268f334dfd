#pragma once

#include <filesystem>
#include <stop_token>

namespace library {

/// Keeps a game from reading a playlist whose marks the last one has yet to save, which may take
/// long on a slow disk. May be used by any thread.
class ListInPlay {
public:
    /// Waits until no other object has `list` in play, or for a stop.
    ListInPlay(std::filesystem::path list, const std::stop_token& stop);
    ~ListInPlay();
    ListInPlay(const ListInPlay&) = delete;
    ListInPlay& operator=(const ListInPlay&) = delete;

    /// The list is in play from now on, while the object lives. To be called once.
    void Begin();
    bool Begun() const { return mBegun; }

private:
    const std::filesystem::path mList;
    bool mBegun = false;
};

} // namespace library
