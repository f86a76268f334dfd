#include "app/ShippedFiles.h"

#include "tests/FileSizeLimit.h"
#include "tests/TemporaryFolder.h"

#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <tuple>

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// What came with the program, read-only and of last year, and a user's folder that is not there.
class ShippedFilesTest : public testing::Test {
protected:
    ShippedFilesTest() {
        Ship("Images/X.bmp", "picture", -365 * 24h);
        Ship("Music/a.mp3", "song", -365 * 24h);
        Ship("PlayList/Sample.m3u", "list", -365 * 24h);
    }

    void Ship(const fs::path& place, const std::string& bytes, std::chrono::hours age) const {
        fs::remove(mShipped / place);
        const fs::path file = mFolder.Write(mShipped / place, bytes);
        fs::last_write_time(file, fs::file_time_type::clock::now() + age);
        MakeReadOnly(file);
    }

    std::error_code Bring() const { return app::BringShippedFiles(mShipped, mOwn); }

    /// What the user's folder for the songs holds.
    std::string Music() const {
        std::set<fs::path> songs(fs::directory_iterator(mOwn / "Music"), {});
        std::string music;
        for (const fs::path& song : songs)
            music += song.filename().string() + "=" + BytesOf(song) + " ";
        return music;
    }

    const TemporaryFolder mFolder;
    const fs::path mShipped = mFolder.Path() / "shipped";
    const fs::path mOwn = mFolder.Path() / "data/own";
};

TEST_F(ShippedFilesTest, SongsThatCanBeWrittenAreGivenAndANewerProgramSparesWhatTheUserDid) {
    using Act = std::function<void(const fs::path&)>;
    const std::tuple<const char*, Act, const char*> cases[] = {
        {"nothing", [](const fs::path&) {}, "a.mp3=better song b.mp3=new song "},
        {"changed", [this](const fs::path& song) { mFolder.Write(song, "mine"); },
         "a.mp3=mine b.mp3=new song "},
        {"renamed", [](const fs::path& song) { fs::rename(song, song.parent_path() / "my.mp3"); },
         "b.mp3=new song my.mp3=song "},
        {"added the same name",
         [this](const fs::path& song) { mFolder.Write(song.parent_path() / "b.mp3", "my b"); },
         "a.mp3=better song b.mp3=my b "},
    };
    for (const auto& [what, act, music] : cases) {
        fs::remove_all(mOwn);
        Ship("Music/a.mp3", "song", -365 * 24h);
        fs::remove(mShipped / "Music/b.mp3");
        ASSERT_FALSE(Bring());
        EXPECT_EQ(Music(), "a.mp3=song ");
        EXPECT_TRUE(fs::is_empty(mOwn / "Images"));
        for (const char* place : {"Music/a.mp3", "PlayList/Sample.m3u"})
            EXPECT_NE(fs::status(mOwn / place).permissions() & fs::perms::owner_write,
                      fs::perms::none)
                << place;
        act(mOwn / "Music/a.mp3");
        ASSERT_FALSE(Bring());
        Ship("Music/a.mp3", "better song", -24h);
        Ship("Music/b.mp3", "new song", -24h);
        for (const char* start : {"first", "second"}) {
            ASSERT_FALSE(Bring());
            EXPECT_EQ(Music(), music) << what << ", the " << start << " start";
        }
    }
}

TEST_F(ShippedFilesTest, WhatAKilledProgramOrAFullDiskLeftIsCompleted) {
    Ship("Music/b.mp3", std::string(5000, 'b'), -24h);
    {
        const FileSizeLimit limit(4096);
        EXPECT_TRUE(Bring());
    }
    EXPECT_EQ(Music(), "a.mp3=song ");
    MakeReadOnly(mFolder.Write(mOwn / "Music/.songrush-copy.tmp", "half"));
    EXPECT_FALSE(Bring());
    EXPECT_EQ(Music(), "a.mp3=song b.mp3=" + std::string(5000, 'b') + " ");
}

} // namespace
