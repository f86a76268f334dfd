#include "library/SongScan.h"

#include "library/SongTag.h"
#include "tests/TemporaryFolder.h"

#include <algorithm>
#include <sys/resource.h>
#include <sys/stat.h>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Paths = std::vector<fs::path>;

struct SongScanTest : testing::Test {
    /// Scans until `wanted` songs have been found.
    void Scan(std::size_t wanted = 1000) {
        mFolders.clear();
        mSongs.clear();
        const auto folderEntered = [this](const fs::path& folder) {
            mFolders.push_back(folder.lexically_relative(mTree.Path()));
            return true;
        };
        const auto songFound = [this, wanted](const fs::path& song, const library::SongTag& tag) {
            EXPECT_EQ(tag.Title(), "Title") << song;
            mSongs.push_back(song.lexically_relative(mTree.Path()));
            if (song.parent_path().lexically_relative(mTree.Path()) != mFolders.back())
                mFolders.push_back("songs of another folder");
            return mSongs.size() < wanted;
        };
        library::ScanSongs(mTree.Path(), {folderEntered, songFound});
    }

    void AddSong(const fs::path& name) { mTree.Write(name, "TAGTitle" + std::string(120, ' ')); }

    TemporaryFolder mTree;
    Paths mFolders;
    Paths mSongs;
};

TEST_F(SongScanTest, AllFilesWhoseNamesEndInMp3AreTakenOnceWithTheirTags) {
    Paths songs = {".mp3", "a.mp3", "b.MP3", "c.mP3", "sub/\xFF ?\\\r\n.mp3"};
    for (const fs::path& name : songs)
        AddSong(name);
    songs.insert(songs.end() - 1, "link.mp3");
    fs::create_symlink("a.mp3", mTree.Path() / "link.mp3");
    fs::create_directory_symlink("..", mTree.Path() / "sub/up");
    for (const char* name : {"a.mp3.bak", "mp3", "xmp3", "a.mp3 ", "folder.mp3/none"})
        AddSong(name);
    fs::create_symlink("nowhere", mTree.Path() / "dangling.mp3");
    ASSERT_EQ(mkfifo((mTree.Path() / "pipe.mp3").c_str(), 0600), 0);
    Scan();
    std::sort(mSongs.begin(), mSongs.end());
    EXPECT_EQ(mSongs, songs);
    EXPECT_EQ(mFolders.size(), 3u);
}

TEST_F(SongScanTest, FilesComeBeforeSubfoldersAndSubfoldersDepthFirstUntilAFalseAnswer) {
    AddSong("1.mp3");
    for (int i = 0; i < 80; ++i) // more than are read at a time
        AddSong(fs::path(i % 2 == 0 ? "x/in" : "y/in") / (std::to_string(i) + ".mp3"));
    Scan();
    const fs::path first = mFolders.at(1); // as the system lists them
    const fs::path second = first == "x" ? "y" : "x";
    EXPECT_EQ(mFolders, (Paths{".", first, first / "in", second, second / "in"}));
    EXPECT_EQ(mSongs.size(), 81u);
    Scan(1);
    EXPECT_EQ(mSongs, Paths{"1.mp3"});
    EXPECT_EQ(mFolders, Paths{"."});
}

TEST_F(SongScanTest, SongsAreSeenInTreesDeeperThanTheNumberOfHandles) {
    EXPECT_FALSE(library::HoldsSongs(mTree.Path() / "missing"));
    EXPECT_FALSE(library::HoldsSongs(mTree.Path()));
    rlimit old{};
    getrlimit(RLIMIT_NOFILE, &old);
    const rlimit few{64, old.rlim_max};
    fs::path deep;
    for (rlim_t i = 0; i < 2 * few.rlim_cur; ++i)
        deep /= "d";
    AddSong(deep / "a.MP3");
    setrlimit(RLIMIT_NOFILE, &few);
    EXPECT_TRUE(library::HoldsSongs(mTree.Path()));
    setrlimit(RLIMIT_NOFILE, &old);
}

} // namespace
