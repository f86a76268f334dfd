#include "platform/File.h"

#include "platform/Aside.h"
#include "tests/FileSizeLimit.h"
#include "tests/TemporaryFolder.h"

#include <chrono>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using namespace std::string_literals;

TEST(FileTest, BytesComeBackWhateverTheyAreAndPermissionsStayButThoseOfTheOwner) {
    const TemporaryFolder folder;
    const std::string bytes("\0\r\n\xFF tail", 9);
    const std::tuple<std::string, unsigned, unsigned> cases[] = {
        {" \xFF\r\n?\\*.mp3", 0440, 0640}, {std::string(255, 'x'), 0, 0600}, {"x", 0777, 0777}};
    for (const auto& [name, before, after] : cases) {
        const fs::path file = folder.Write(name, "old");
        fs::permissions(file, fs::perms(before));
        EXPECT_FALSE(platform::ReplaceFile(file, bytes));
        QByteArray read;
        EXPECT_FALSE(platform::ReadWholeFile(file, read));
        EXPECT_EQ(read.toStdString(), bytes);
        EXPECT_EQ(fs::status(file).permissions(), fs::perms(after));
    }
}

TEST(FileTest, WhatIsNoRegularFileIsRefusedAndNeverWaitedFor) {
    const TemporaryFolder folder;
    fs::create_directory(folder.Path() / "folder.mp3");
    fs::create_symlink("nowhere", folder.Path() / "dangling.mp3");
    fs::create_symlink("loop.mp3", folder.Path() / "loop.mp3");
    ASSERT_EQ(mkfifo((folder.Path() / "pipe.mp3").c_str(), 0600), 0);
    for (const char* name : {"folder.mp3", "dangling.mp3", "loop.mp3", "pipe.mp3", "missing.mp3"}) {
        const fs::path file = folder.Path() / name;
        QByteArray read("old");
        EXPECT_TRUE(platform::ReadWholeFile(file, read)) << name;
        EXPECT_TRUE(read.isEmpty()) << name;
        EXPECT_TRUE(platform::ReplaceTail(file, 1, "x")) << name;
    }
    for (const char* name : {"folder.mp3", "loop.mp3", "pipe.mp3"})
        EXPECT_TRUE(platform::ReplaceFile(folder.Path() / name, "x")) << name;
    EXPECT_EQ(folder.Entries(), 4);
}

TEST(ReplaceFileTest, WhatAKilledWritingLeftGoesAndWhatIsBeingWrittenStays) {
    const TemporaryFolder folder;
    for (const char* name : {".songrush-1-1.tmp", "songrush-1-1.tmp", ".songrush-1-1.tm"})
        fs::last_write_time(folder.Write(name, ""), fs::file_time_type::clock::now() - 1h);
    folder.Write(".songrush-2-1.tmp", "half");
    EXPECT_FALSE(platform::ReplaceFile(folder.Path() / "list", "new"));
    EXPECT_TRUE(platform::AsidesEnd(20s));
    EXPECT_FALSE(fs::exists(folder.Path() / ".songrush-1-1.tmp"));
    EXPECT_EQ(folder.Entries(), 4);
}

TEST(ReplaceFileTest, LinksStayAndWhatTheyLeadToIsReplaced) {
    const TemporaryFolder folder;
    fs::create_directory(folder.Path() / "sub");
    fs::create_symlink("sub/inner", folder.Path() / "outer");
    fs::create_symlink(folder.Path() / "target", folder.Path() / "sub/inner");
    for (const char* bytes : {"first, there is no target", "second"}) {
        EXPECT_FALSE(platform::ReplaceFile(folder.Path() / "outer", bytes));
        EXPECT_EQ(BytesOf(folder.Path() / "target"), bytes);
    }
    EXPECT_TRUE(fs::is_symlink(folder.Path() / "outer"));
    EXPECT_TRUE(fs::is_symlink(folder.Path() / "sub/inner"));
}

TEST(RenameTest, AFileMovesOnlyToANameThatIsFree) {
    const TemporaryFolder folder;
    const fs::path song = folder.Write("song \xFF?", "song");
    const fs::path other = folder.Write("other", "other");
    fs::create_symlink("nowhere", folder.Path() / "dangling");
    fs::create_directory(folder.Path() / "folder");
    for (const std::string& name : {"other"s, "dangling"s, "folder"s, "missing/name"s,
                                    std::string(256, 'n'), song.filename().string()})
        EXPECT_TRUE(platform::RenameNoReplace(song, folder.Path() / name)) << name;
    EXPECT_EQ(BytesOf(other), "other");
    EXPECT_FALSE(platform::RenameNoReplace(song, folder.Path() / "new"));
    EXPECT_EQ(BytesOf(folder.Path() / "new"), "song");
    EXPECT_EQ(folder.Entries(), 4);
}

TEST(FullDiskTest, AFailureLeavesTheOldFileWholeAndNothingBeside) {
    const TemporaryFolder folder;
    const std::string old(1000, 'o');
    const fs::path file = folder.Write("file", old);
    {
        const FileSizeLimit limit(1050);
        EXPECT_TRUE(platform::ReplaceFile(file, std::string(2000, 'n')));
        EXPECT_TRUE(platform::ReplaceFile(folder.Path() / "new", std::string(2000, 'n')));
        EXPECT_TRUE(platform::ReplaceTail(file, 1, std::string(128, 'n')));
    }
    EXPECT_EQ(BytesOf(file), old);
    EXPECT_EQ(folder.Entries(), 1);
}

} // namespace
