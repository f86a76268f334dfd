#include "library/SongScan.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <iterator>
#include <mutex>
#include <optional>
#include <set>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace library {

namespace fs = std::filesystem;

namespace {

/// Whether the name ends in ".mp3", in any mixture of cases.
bool IsMp3(const fs::path::string_type& name) {
    constexpr std::string_view kEnding = ".mp3";
    if (name.size() < kEnding.size())
        return false;
    const auto same = [](auto c, char wanted) {
        return c == wanted || (c >= 'A' && c <= 'Z' && c - 'A' + 'a' == wanted);
    };
    return std::equal(name.end() - kEnding.size(), name.end(), kEnding.begin(), same);
}

/// Some songs of a folder.
struct Batch {
    fs::path entered; ///< set in a folder's first batch, which may have no songs
    std::vector<fs::path> songs;
    std::vector<SongTag> tags; ///< once they are read, as many as songs
    bool read = false;
};

/// One thread lists the folders, several read the tags of what it has listed, batch by batch, and
/// the caller's thread reports the batches in the order of the list.
class Scan {
public:
    explicit Scan(const ScanCalls& calls) : mCalls(calls) {}

    void Run(const fs::path& start) {
        // A disk that has to seek works fastest for many readers at once.
        constexpr int kReaders = 8;
        std::vector<std::jthread> threads;
        threads.emplace_back([this, &start] { ListAll(start); });
        for (int i = 0; i < kReaders; ++i)
            threads.emplace_back([this] { ReadBatches(); });
        while (const auto batch = TakeBatch()) {
            if (!Tell(*batch))
                break;
        }
        const std::lock_guard lock(mMutex);
        mStopped = true;
        NotifyAll();
    }

private:
    static constexpr std::size_t kBatch = 16;
    static constexpr std::size_t kAhead = 256; // batches

    // The thread that lists.

    void ListAll(const fs::path& start) {
        // A stack instead of recursion: trees may be deep, and only one folder need be open at a
        // time.
        mPending.push_back(start);
        while (!mPending.empty()) {
            const fs::path folder = std::move(mPending.back());
            mPending.pop_back();
            std::error_code error;
            fs::directory_iterator entries(folder, error);
            if (!error && mSeen.insert(fs::canonical(folder, error)).second &&
                !List(folder, std::move(entries)))
                return;
        }
        const std::lock_guard lock(mMutex);
        mListed = true;
        NotifyAll();
    }

    /// Whether to go on.
    bool List(const fs::path& folder, fs::directory_iterator entry) {
        std::vector<fs::path> subfolders;
        Batch batch;
        batch.entered = folder;
        std::error_code error;
        for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
            std::error_code unknown;
            if (entry->is_directory(unknown))
                subfolders.push_back(entry->path());
            else if (IsMp3(entry->path().native()) && entry->is_regular_file(unknown))
                batch.songs.push_back(entry->path());
            if (batch.songs.size() == kBatch && !Add(std::exchange(batch, {})))
                return false;
        }
        mPending.insert(mPending.end(), std::make_move_iterator(subfolders.rbegin()),
                        std::make_move_iterator(subfolders.rend()));
        return Add(std::move(batch));
    }

    /// Waits until there is room; false if the scan was stopped.
    bool Add(Batch batch) {
        std::unique_lock lock(mMutex);
        mRoom.wait(lock, [this] { return mBatches.size() < kAhead || mStopped; });
        mBatches.push_back(std::move(batch));
        mUnread.notify_one();
        return !mStopped;
    }

    // The threads that read.

    void ReadBatches() {
        std::unique_lock lock(mMutex);
        while (true) {
            mUnread.wait(lock, [this] { return mNext < mBatches.size() || mListed || mStopped; });
            if (mStopped || mNext == mBatches.size())
                return;
            Batch& batch = mBatches[mNext++]; // keeps its place in memory
            lock.unlock();
            batch.tags.resize(batch.songs.size());
            for (std::size_t i = 0; i < batch.songs.size(); ++i)
                batch.tags[i].Read(batch.songs[i]);
            lock.lock();
            batch.read = true;
            if (&batch == &mBatches.front())
                mRead.notify_one();
        }
    }

    // The caller's thread.

    std::optional<Batch> TakeBatch() {
        std::unique_lock lock(mMutex);
        mRead.wait(lock, [this] { return mBatches.empty() ? mListed : mBatches.front().read; });
        if (mBatches.empty())
            return std::nullopt;
        Batch batch = std::move(mBatches.front());
        mBatches.pop_front();
        --mNext;
        if (mBatches.size() == kAhead / 2) // not for every batch, as threads take time to wake
            mRoom.notify_one();
        return batch;
    }

    bool Tell(const Batch& batch) const {
        if (!batch.entered.empty() && !mCalls.folderEntered(batch.entered))
            return false;
        for (std::size_t i = 0; i < batch.songs.size(); ++i) {
            if (!mCalls.songFound(batch.songs[i], batch.tags[i]))
                return false;
        }
        return true;
    }

    void NotifyAll() {
        for (std::condition_variable* changed : {&mRoom, &mUnread, &mRead})
            changed->notify_all();
    }

    const ScanCalls& mCalls;
    std::vector<fs::path> mPending; ///< folders still to be read, the next one last
    std::set<fs::path> mSeen;       ///< by their paths without links

    std::mutex mMutex;
    std::condition_variable mRoom;
    std::condition_variable mUnread;
    std::condition_variable mRead;
    // Guarded by the mutex:
    std::deque<Batch> mBatches;
    std::size_t mNext = 0; ///< the first batch that no thread reads yet
    bool mListed = false;
    bool mStopped = false;
};

} // namespace

void ScanSongs(const fs::path& folder, const ScanCalls& calls) { Scan(calls).Run(folder); }

bool HoldsSongs(const fs::path& folder, const std::stop_token& stop) {
    int folders = 0;
    bool found = false;
    ScanSongs(folder, {[&](const fs::path&) { return ++folders <= 1000 && !stop.stop_requested(); },
                       [&](const fs::path&, const SongTag&) {
                           found = true;
                           return false;
                       }});
    return found;
}

} // namespace library
