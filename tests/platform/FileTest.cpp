#include "platform/File.h"

#include "platform/Aside.h"
#include "tests/FileSizeLimit.h"
#include "tests/TemporaryFolder.h"

#include <chrono>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using namespace std::string_literals;

struct FileTest : testing::Test {
    const TemporaryFolder mFolder;
    const fs::path mPath = mFolder.Path();
};

TEST_F(FileTest, BytesComeBackWhateverTheyAreAndPermissionsStayButThoseOfTheOwner) {
    const std::string bytes("\0\r\n\xFF tail", 9);
    const std::tuple<std::string, unsigned, unsigned> cases[] = {
        {" \xFF\r\n?\\*.mp3", 0440, 0640}, {std::string(255, 'x'), 0, 0600}, {"x", 0777, 0777}};
    for (const auto& [name, before, after] : cases) {
        const fs::path file = mFolder.Write(name, "old");
        fs::permissions(file, fs::perms(before));
        EXPECT_FALSE(platform::ReplaceFile(file, bytes));
        QByteArray read;
        EXPECT_FALSE(platform::ReadWholeFile(file, read));
        EXPECT_EQ(read.toStdString(), bytes);
        EXPECT_EQ(fs::status(file).permissions(), fs::perms(after));
    }
}

TEST_F(FileTest, WhatIsNoRegularFileIsRefusedAndNeverWaitedFor) {
    fs::create_directory(mPath / "folder.mp3");
    fs::create_symlink("nowhere", mPath / "dangling.mp3");
    fs::create_symlink("loop.mp3", mPath / "loop.mp3");
    ASSERT_EQ(mkfifo((mPath / "pipe.mp3").c_str(), 0600), 0);
    for (const char* name : {"folder.mp3", "loop.mp3", "pipe.mp3", "dangling.mp3", "missing.mp3"}) {
        QByteArray read("old");
        EXPECT_TRUE(platform::ReadWholeFile(mPath / name, read)) << name;
        EXPECT_TRUE(read.isEmpty()) << name;
        EXPECT_TRUE(platform::ReplaceTail(mPath / name, 1, "x")) << name;
    }
    for (const char* name : {"folder.mp3", "loop.mp3", "pipe.mp3"})
        EXPECT_TRUE(platform::ReplaceFile(mPath / name, "x")) << name;
    EXPECT_EQ(mFolder.Entries(), 4);
}

TEST_F(FileTest, WhatAKilledWritingLeftGoesAndWhatIsBeingWrittenStays) {
    for (const char* name : {".songrush-1-1.tmp", "songrush-1-1.tmp", ".songrush-1-1.tm"})
        fs::last_write_time(mFolder.Write(name, ""), fs::file_time_type::clock::now() - 1h);
    mFolder.Write(".songrush-2-1.tmp", "half");
    EXPECT_FALSE(platform::ReplaceFile(mPath / "list", "new"));
    EXPECT_TRUE(platform::AsidesEnd(20s));
    EXPECT_FALSE(fs::exists(mPath / ".songrush-1-1.tmp"));
    EXPECT_EQ(mFolder.Entries(), 4);
}

TEST_F(FileTest, LinksStayAndWhatTheyLeadToIsReplaced) {
    fs::create_directory(mPath / "sub");
    fs::create_symlink("sub/inner", mPath / "outer");
    fs::create_symlink(mPath / "target", mPath / "sub/inner");
    for (const char* bytes : {"first, there is no target", "second"}) {
        EXPECT_FALSE(platform::ReplaceFile(mPath / "outer", bytes));
        EXPECT_EQ(BytesOf(mPath / "target"), bytes);
    }
    EXPECT_TRUE(fs::is_symlink(mPath / "outer"));
    EXPECT_TRUE(fs::is_symlink(mPath / "sub/inner"));
}

TEST_F(FileTest, AFileMovesOnlyToANameThatIsFree) {
    const fs::path song = mFolder.Write("song \xFF?", "song");
    const fs::path other = mFolder.Write("other", "other");
    fs::create_symlink("nowhere", mPath / "dangling");
    fs::create_directory(mPath / "folder");
    for (const std::string& name : {"other"s, "dangling"s, "folder"s, "missing/name"s,
                                    std::string(256, 'n'), song.filename().string()})
        EXPECT_TRUE(platform::RenameNoReplace(song, mPath / name)) << name;
    EXPECT_EQ(BytesOf(other), "other");
    EXPECT_FALSE(platform::RenameNoReplace(song, mPath / "new"));
    EXPECT_EQ(BytesOf(mPath / "new"), "song");
    EXPECT_EQ(mFolder.Entries(), 4);
}

TEST_F(FileTest, AFailureLeavesTheOldFileWholeAndNothingBeside) {
    const std::string old(1000, 'o');
    const fs::path file = mFolder.Write("file", old);
    {
        const FileSizeLimit limit(1050);
        EXPECT_TRUE(platform::ReplaceFile(file, std::string(2000, 'n')));
        EXPECT_TRUE(platform::ReplaceFile(mPath / "new", std::string(2000, 'n')));
        EXPECT_TRUE(platform::ReplaceTail(file, 1, std::string(128, 'n')));
    }
    EXPECT_EQ(BytesOf(file), old);
    EXPECT_EQ(mFolder.Entries(), 1);
}

} // namespace
