#include "library/SongSearch.h"

#include "library/SongScan.h"

#include <mutex>
#include <utility>

namespace library {

namespace fs = std::filesystem;

struct SongSearch::Shared {
    std::mutex mutex;
    News news; // guarded by the mutex

    void Scan(const fs::path& start, const std::stop_token& stop) {
        ScanSongs(start, {[&](const fs::path& folder) {
                              const std::lock_guard lock(mutex);
                              news.folder = folder;
                              return !stop.stop_requested();
                          },
                          [&](const fs::path& song, const SongTag& tag) {
                              const std::lock_guard lock(mutex);
                              news.songs.push_back({song, tag});
                              return !stop.stop_requested();
                          }});
        const std::lock_guard lock(mutex);
        news.ended = true;
    }
};

SongSearch::SongSearch(const fs::path& folder)
    : mShared(std::make_shared<Shared>()),
      mScan([shared = mShared, folder](const std::stop_token& stop) {
          shared->Scan(folder, stop);
      }) {}

SongSearch::News SongSearch::Take() {
    const std::lock_guard lock(mShared->mutex);
    News& news = mShared->news;
    return {std::exchange(news.songs, {}), news.folder, news.ended};
}

} // namespace library
