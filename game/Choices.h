#pragma once

#include <QString>
#include <array>
#include <filesystem>
#include <functional>

namespace game {

/// The four titles of a question, as 0-based indices into the playlist, and the 0-based slot whose
/// title is replaced by the right one.
struct Choices {
    std::array<int, 4> candidates{};
    int correctSlot = 0;
};

/// Draws the choices for `currentSong` from a playlist of `count` entries; `fileName` returns the
/// path of an entry by its 0-based index. The caller reseeds the generator.
///
/// A candidate is never the current song (compared without regard to case), never an entry or a
/// file that was drawn before, and never the playlist's first entry. If a playlist has no such
/// entry left, rules are dropped, least important first: then a file may come twice (as different
/// entries), then the first entry may come, then an entry twice, then the current song.
///
/// With `titleOf`, which gives the title of a song, a candidate whose title reads like that of the
/// current song or of another candidate is drawn again, at most 50 times. No song is asked for its
/// title before it is drawn.
Choices DrawChoices(int count, const std::function<std::filesystem::path(int)>& fileName,
                    const std::filesystem::path& currentSong,
                    const std::function<QString(const std::filesystem::path&)>& titleOf = {});

/// Draws the two wrong 0-based slots that a hint takes away, in the order in which they disappear.
std::array<int, 2> DrawHint(int correctSlot);

} // namespace game
