#include "library/ListLook.h"

#include "library/SongCycle.h"
#include "library/c_M3U.h"
#include "platform/RegularFile.h"
#include "platform/Time.h"

namespace library {

namespace fs = std::filesystem;

namespace {

/// Whether there is such a list; reading a missing one would create it.
bool IsThere(const fs::path& list) { return !platform::RegularFile(list).Error(); }

} // namespace

UnplayedSongs CountUnplayed(const fs::path& list, const std::stop_token& stop) {
    if (!IsThere(list))
        return {};
    const SongCycle cycle(list, stop);
    return {cycle.Count(), cycle.Unplayed()};
}

SongCheck CheckSongs(const fs::path& list, double shortest,
                     const std::function<double(const fs::path&)>& lengthOf,
                     const std::stop_token& stop) {
    constexpr std::int64_t kMostTime = 2000;     // milliseconds
    constexpr double kMostBytesASecond = 40'000; // of an MP3 file
    if (!IsThere(list))
        return {};
    const std::int64_t end = platform::TickCount() + kMostTime;
    const SongCycle cycle(list, stop);
    SongCheck check{.songs = cycle.Count()};
    while (check.checked < check.songs && platform::TickCount() < end && !stop.stop_requested()) {
        const fs::path song = cycle.Songs()->FileName(check.checked++);
        const platform::RegularFile file(song);
        const bool mayBeShort = static_cast<double>(file.Size()) < shortest * kMostBytesASecond;
        if (file.Error() || (mayBeShort && lengthOf(song) < shortest))
            ++check.unplayable;
    }
    return check;
}

} // namespace library
