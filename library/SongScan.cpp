#include "library/SongScan.h"

#include "library/c_ID3.h"

#include <algorithm>
#include <chrono>
#include <future>
#include <iterator>
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

class Scan {
public:
    explicit Scan(const ScanCalls& calls) : mCalls(calls) {}

    void Run(const fs::path& start) {
        // A stack of its own instead of recursion: trees may be deep, and one handle is enough.
        mPending.push_back(start);
        while (!mPending.empty()) {
            const fs::path folder = std::move(mPending.back());
            mPending.pop_back();
            std::error_code error;
            fs::directory_iterator entries(folder, error);
            if (!error && mSeen.insert(fs::canonical(folder, error)).second &&
                !(mCalls.folderEntered(folder) && List(std::move(entries))))
                return;
        }
    }

private:
    bool List(fs::directory_iterator entry) {
        std::vector<fs::path> subfolders;
        std::error_code error;
        for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
            std::error_code unknown;
            if (entry->is_directory(unknown)) {
                subfolders.push_back(entry->path());
            } else if (IsMp3(entry->path().native()) && entry->is_regular_file(unknown)) {
                mTag.GetIdTag(entry->path());
                if (!mCalls.songFound(entry->path(), mTag))
                    return false;
            }
        }
        mPending.insert(mPending.end(), std::make_move_iterator(subfolders.rbegin()),
                        std::make_move_iterator(subfolders.rend()));
        return true;
    }

    const ScanCalls& mCalls;
    c_ID3 mTag;
    std::vector<fs::path> mPending; ///< folders still to be read, the next one last
    std::set<fs::path> mSeen;       ///< by their paths without links
};

} // namespace

void ScanSongs(const fs::path& folder, const ScanCalls& calls) { Scan(calls).Run(folder); }

bool SeemsToHoldSongs(const fs::path& folder) {
    // On a thread that nobody waits for longer: a dead network drive may never answer.
    std::packaged_task<bool()> look([folder] {
        int folders = 0;
        bool found = false;
        ScanSongs(folder, {[&](const fs::path&) { return ++folders <= 1000; },
                           [&](const fs::path&, const c_ID3&) {
                               found = true;
                               return false;
                           }});
        return found;
    });
    std::future<bool> answer = look.get_future();
    std::thread(std::move(look)).detach();
    return answer.wait_for(std::chrono::milliseconds(500)) != std::future_status::ready ||
           answer.get();
}

} // namespace library
