#include "library/SongTag.h"
#include "library/SongTitle.h"
#include "tests/TemporaryFolder.h"
#include "tests/library/MadeTags.h"

#include <QString>
#include <string>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

/// Title T and artist A.
std::string Both(int version) {
    return version == 2 ? Frame(2, "TT2", "\0T"s) + Frame(2, "TP1", "\0A"s)
                        : Frame(version, "TIT2", "\0T"s) + Frame(version, "TPE1", "\0A"s);
}

std::string Id3v1(const std::string& title, const std::string& artist) {
    std::string tag = "TAG" + title;
    tag.resize(33, ' ');
    tag += artist;
    tag.resize(128, ' ');
    return tag;
}

struct NewerTagsTest : testing::Test {
    /// Artist and title of the song, and whether they are those of a newer tag: "A: T newer".
    QString Read(const fs::path& song) {
        mTag.Read(song);
        return mTag.Artist() + ": " + mTag.Title() + (mTag.IsNewer() ? " newer" : "");
    }

    const TemporaryFolder mFolder;
    library::SongTag mTag;
};

TEST_F(NewerTagsTest, ATitleIsTakenFromTheFirstTagThatHasOne) {
    const std::string sound(300, 'x');
    const std::string picture(20'000, 'p');
    const std::string ape = Ape(Item("Year", "1") + Item("TITLE", "P") + Item("artist", "Q"), 3);
    const struct {
        const char* what;
        std::string bytes;
        const char* read;
    } cases[] = {
        {"ID3v1 wins", Tag(4, Both(4)) + sound + ape + Id3v1("One", "Old"), "Old: One"},
        {"then ID3v2", Tag(4, Both(4)) + sound + ape + Id3v1("", "Old"), "A: T newer"},
        {"then APE", sound + ape + Id3v1("\t", "Old"), "Q: P newer"},
        {"APE at the end", Tag(3, Frame(3, "TPE1", "\0A"s)) + sound + ape, "Q: P newer"},
        {"an artist stays", Tag(3, Frame(3, "TIT2", "\0T"s)) + sound + Id3v1("", "Old"),
         "Old: T newer"},
        {"no title", Tag(3, Frame(3, "TPE1", "\0A"s)) + sound + Id3v1("", "Old"), "Old: "},
        {"2.2", Tag(2, Frame(2, "PIC", picture) + Both(2)), "A: T newer"},
        {"2.3 behind a picture", Tag(3, Frame(3, "APIC", picture) + Both(3)), "A: T newer"},
        {"2.4 behind a picture", Tag(4, Frame(4, "APIC", picture) + Both(4)), "A: T newer"},
        {"2.4 with sizes as in 2.3",
         Tag(4, "APIC" + Number(picture.size(), 4, 8) + "\0\0"s + picture + Both(4)), "A: T newer"},
        {"a long title with such a size",
         Tag(4, "TIT2" + Number(301, 4, 8) + "\0\0\0"s + std::string(299, ' ') + "T" +
                    Frame(4, "TPE1", "\0A"s)),
         "A: T newer"},
        {"extended headers", Tag(3, Number(6, 4, 8) + std::string(6, '\0') + Both(3), 0x40),
         "A: T newer"},
        {"extended headers", Tag(4, Number(6, 4, 7) + "\1\0"s + Both(4), 0x40), "A: T newer"},
        {"2.3 unsynchronised", Tag(3, Frame(3, "PRIV", "\xFF\0\0"s, 2) + Both(3), 0x80),
         "A: T newer"},
        {"2.4 unsynchronised",
         Tag(4, Frame(4, "TIT2", "\1\xFF\0\xFE\xE9\0"s, -1, "\0\2"s) + Frame(4, "TPE1", "\0A"s)),
         "A: \xC3\xA9 newer"},
        {"UTF-16, UTF-16BE, UTF-8",
         Tag(4, Frame(4, "TIT2", "\1\xFF\xFE\x16\x04\n\0"s + "\x3C\xD8\xB5\xDF"s) +
                    Frame(4, "TPE1", "\2\x04\x16"s)),
         "\xD0\x96: \xD0\x96 \xF0\x9F\x8E\xB5 newer"},
        {"several values", Tag(4, Frame(4, "TPE1", "\3A\0\xC3\xA9"s) + Frame(4, "TIT2", "\0T\0"s)),
         "A, \xC3\xA9: T newer"},
        {"a size beyond the file", Tag(3, Both(3), 0, 200'000'000), "A: T newer"},
        {"a frame beyond the tag", Tag(3, Frame(3, "TIT2", "\0T"s, 99) + Both(3)), ": "},
        {"a frame that ends in the next", Tag(3, Frame(3, "TPE1", "\0A"s, 3) + Both(3)), ": "},
        {"a frame of the highest size", Tag(3, Frame(3, "TIT2", "\0T"s, 0xFFFFFFFF)), ": "},
        {"a title of 5000", Tag(3, Frame(3, "TIT2", std::string(5000, 'T'))), ": "},
        {"nothing but padding", Tag(3, std::string(100, '\0')), ": "},
        {"a cut header", "ID3\3", ": "},
        {"APE items that lie", Ape(Little(0xFFFFFFFF) + Item("Title", "P").substr(4), 1), ": "},
        {"APE without items", Ape("", 0xFFFFFFFF, 4), ": "},
        {"APE beyond the file", Ape(Item("Title", "P"), 1, 100'000), ": "},
    };
    for (const auto& [what, bytes, read] : cases)
        EXPECT_EQ(Read(mFolder.Write("song.mp3", bytes)), read) << what;
}

TEST_F(NewerTagsTest, AHugePictureIsNotReadAndAPipeIsNotWaitedFor) {
    const fs::path huge = mFolder.Write("huge.mp3", Tag(3, Frame(3, "APIC", "", 200'000'000)));
    fs::resize_file(huge, 20 + 200'000'000);
    std::ofstream(huge, std::ios::app) << Both(3);
    mTag.Read(huge);
    EXPECT_EQ(mTag.Title(), "") << "the tag ends before";
    std::fstream(huge) << Tag(3, "", 0, 200'000'100) << Frame(3, "APIC", "", 200'000'000);
    EXPECT_EQ(Read(huge), "A: T newer");
    const fs::path pipe = mFolder.Path() / "pipe.mp3";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(Read(pipe), ": ");
    EXPECT_EQ(library::SongTitle(pipe), "pipe");
}

} // namespace
