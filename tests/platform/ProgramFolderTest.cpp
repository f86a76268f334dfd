#include "platform/ProgramFolder.h"

#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

TEST(ProgramFolderTest, DataBesideTheProgramComesBeforeTheSystemsData) {
    const TemporaryFolder folder;
    const fs::path program = folder.Path() / "games";
    const fs::path shared = folder.Path() / "share/games/songrush";
    const auto expect = [&](const fs::path& own, const fs::path& shipped) {
        const auto folders = platform::FoldersOf(program, "/home/data");
        EXPECT_EQ(folders.own, own);
        EXPECT_EQ(folders.shipped, shipped);
    };
    expect(program, program);
    fs::create_directories(shared / "Images");
    expect("/home/data/Songrush", shared);
    fs::create_directories(program / "Images");
    expect(program, program);
}

} // namespace
