#pragma once

#include <QString>
#include <deque>
#include <filesystem>
#include <functional>
#include <vector>

class c_ID3;

namespace editor {

/// Fills the editor's list from folders and playlists, one after the other, letting events run
/// meanwhile. What is asked for during that is only noted and comes in its turn.
class Filling {
public:
    /// The list that is filled.
    struct List {
        /// Appends a song.
        std::function<void(const std::filesystem::path& song, const c_ID3& tag)> add;
        /// Shows what was added so far, and `Reading`.
        std::function<void()> show;
        /// A false answer gives everything up.
        std::function<bool()> wanted;
    };

    explicit Filling(List list) : mList(std::move(list)) {}

    /// Adds a folder's songs and those of its subfolders, after all that was asked for before.
    void AddFolder(const std::filesystem::path& folder);

    /// Adds these songs, of the playlist `name`, in place of all that was asked for before.
    void Load(const QString& name, std::vector<std::filesystem::path> songs);

    /// What is being read, to be shown; empty when nothing is.
    const QString& Reading() const { return mReading; }

private:
    void Work();
    void ReadFolder(const std::filesystem::path& folder);
    void ReadSongs(const QString& name, const std::vector<std::filesystem::path>& songs);
    bool GoOn();
    void ShowNowAndThen(int added) const;

    List mList;
    std::deque<std::function<void()>> mJobs;
    bool mWorking = false;
    bool mDropped = false; // the job under way is not wanted any more
    QString mReading;
};

} // namespace editor
