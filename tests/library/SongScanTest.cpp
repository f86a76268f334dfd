#include "library/SongScan.h"

#include "library/SongTag.h"
#include "tests/TemporaryFolder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Paths = std::vector<fs::path>;

struct SongScanTest : testing::Test {
    /// Scans until `wanted` songs were met.
    void Scan(const fs::path& start, std::size_t wanted = 1000) {
        const auto folderEntered = [this](const fs::path& folder) {
            mFolders.push_back(folder);
            return true;
        };
        const auto songFound = [this, wanted](const fs::path& song, const library::SongTag& tag) {
            EXPECT_EQ(tag.Title(), "Title") << song;
            mSongs.push_back(song);
            return mSongs.size() < wanted;
        };
        library::ScanSongs(start, {folderEntered, songFound});
    }

    void AddSong(const fs::path& name) { mTree.Write(name, "TAGTitle" + std::string(120, ' ')); }

    TemporaryFolder mTree;
    Paths mFolders;
    Paths mSongs;
};

TEST_F(SongScanTest, AllFilesWhoseNamesEndInMp3AreTakenWithTheirTags) {
    const Paths songs = {".mp3", "a.mp3", "b.MP3", "c.mP3", "sub/\xFF ?\\\r\n.mp3"};
    for (const fs::path& name : songs)
        AddSong(name);
    for (const char* name : {"a.mp3.bak", "mp3", "xmp3", "a.mp3 ", "folder.mp3/none"})
        AddSong(name);
    fs::create_symlink("nowhere", mTree.Path() / "dangling.mp3");
    ASSERT_EQ(mkfifo((mTree.Path() / "pipe.mp3").c_str(), 0600), 0);
    Scan(mTree.Path());
    for (fs::path& song : mSongs)
        song = song.lexically_relative(mTree.Path());
    std::sort(mSongs.begin(), mSongs.end());
    EXPECT_EQ(mSongs, songs);
}

TEST_F(SongScanTest, FilesComeBeforeSubfoldersAndSubfoldersDepthFirst) {
    for (const char* name : {"1.mp3", "x/2.mp3", "x/in/3.mp3", "y/4.mp3", "y/in/5.mp3"})
        AddSong(name);
    Scan(mTree.Path());
    ASSERT_EQ(mFolders.size(), 5u);
    EXPECT_EQ(mFolders[2], mFolders[1] / "in");
    EXPECT_EQ(mFolders[4], mFolders[3] / "in");
    ASSERT_EQ(mSongs.size(), 5u);
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(mSongs[i].parent_path(), mFolders[i]);
}

TEST_F(SongScanTest, LinkedFoldersAreReadOnceAndLoopsEnd) {
    AddSong("real/a.mp3");
    fs::create_directory_symlink("real", mTree.Path() / "again");
    fs::create_directory_symlink("..", mTree.Path() / "real/up");
    fs::create_symlink("a.mp3", mTree.Path() / "real/link.mp3");
    Scan(mTree.Path());
    EXPECT_EQ(mSongs.size(), 2u) << "the song and the link to it, on one of the ways";
    EXPECT_EQ(mFolders.size(), 2u);
}

TEST_F(SongScanTest, AFalseAnswerEndsTheScanAndAMissingFolderAddsNothing) {
    Scan(mTree.Path() / "missing");
    EXPECT_TRUE(mFolders.empty());
    for (const char* name : {"1.mp3", "2.mp3", "in/3.mp3"})
        AddSong(name);
    Scan(mTree.Path(), 1);
    EXPECT_EQ(mSongs.size(), 1u);
    EXPECT_EQ(mFolders.size(), 1u);
}

TEST_F(SongScanTest, TreesDeeperThanTheNumberOfHandlesAreReadToTheEnd) {
    rlimit old{};
    getrlimit(RLIMIT_NOFILE, &old);
    const rlimit few{64, old.rlim_max};
    fs::path deep;
    for (rlim_t i = 0; i < 2 * few.rlim_cur; ++i)
        deep /= "d";
    AddSong(deep / "a.mp3");
    setrlimit(RLIMIT_NOFILE, &few);
    Scan(mTree.Path());
    setrlimit(RLIMIT_NOFILE, &old);
    EXPECT_EQ(mSongs.size(), 1u);
}

TEST_F(SongScanTest, ASongIsSeenAnywhereInAFolderOfReasonableSize) {
    const fs::path tree = mTree.Path();
    EXPECT_FALSE(library::HoldsSongs(tree / "none"));
    EXPECT_FALSE(library::HoldsSongs(tree));
    AddSong("artist/album/song.MP3");
    EXPECT_TRUE(library::HoldsSongs(tree));
}

} // namespace
