#include "library/SongScan.h"

#include "library/c_ID3.h"
#include "platform/Folder.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <set>
#include <span>
#include <string>
#include <string_view>
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
            const fs::path path = std::move(mPending.back());
            mPending.pop_back();
            platform::Folder folder(path);
            if (folder.Open() && mSeen.insert(folder.Identity()).second &&
                !(mCalls.folderEntered(path) && List(path, folder)))
                return;
        }
    }

private:
    bool List(const fs::path& path, platform::Folder& folder) {
        std::vector<fs::path> subfolders;
        platform::Folder::Entry entry;
        fs::path song = path / fs::path();
        while (folder.Next(entry)) {
            if (entry.kind == platform::Folder::Kind::Folder) {
                subfolders.push_back(path / entry.name);
            } else if (entry.kind == platform::Folder::Kind::File && IsMp3(entry.name)) {
                ReadTag(folder, entry);
                if (!mCalls.songFound(song.replace_filename(entry.name), mTag))
                    return false;
            }
        }
        mPending.insert(mPending.end(), std::make_move_iterator(subfolders.rbegin()),
                        std::make_move_iterator(subfolders.rend()));
        return true;
    }

    void ReadTag(const platform::Folder& folder, const platform::Folder::Entry& entry) {
        std::array<char, c_ID3::kTagSize> tail{};
        const bool read = folder.ReadTail(entry, tail);
        mTag.GetIdTag(read ? std::span<const char>(tail) : std::span<const char>());
    }

    const ScanCalls& mCalls;
    c_ID3 mTag;
    std::vector<fs::path> mPending; ///< folders still to be read, the next one last
    std::set<std::string> mSeen;
};

} // namespace

void ScanSongs(const fs::path& folder, const ScanCalls& calls) { Scan(calls).Run(folder); }

} // namespace library
