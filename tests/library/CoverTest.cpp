#include "library/Cover.h"
#include "tests/TemporaryFolder.h"
#include "tests/library/MadeTags.h"

#include <string>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

constexpr char kFront = 3;
constexpr char kBack = 4;
constexpr std::size_t kBinary = 2; // flags of an APE item
constexpr std::size_t kLocator = 4;
constexpr int kUnsynchronised = 0x80;
constexpr int kLimit = 8 << 20;

/// What a frame of ID3v2.`version` holds.
std::string Field(int version, char type, const std::string& picture) {
    return (version == 2 ? "\0JPG"s : "\0image/jpeg\0"s) + type + "its name\0"s + picture;
}

std::string Picture(int version, char type, const std::string& picture, long size = -1) {
    return Frame(version, version == 2 ? "PIC" : "APIC", Field(version, type, picture), size);
}

std::string ApeCover(const std::string& picture, std::size_t flags = kBinary) {
    return Item("Cover Art (front)", "cover.jpg\0"s + picture, flags);
}

TEST(Cover, TheFrontCoverComesFirstFromTheFirstTagThatHasPictures) {
    const TemporaryFolder folder;
    const std::string sound(300, 'x');
    const std::string title = Frame(3, "TIT2", "\0T"s);
    const std::string large(300'000, 'p');
    const std::string id3v1 = "TAG" + std::string(125, ' ');
    const std::string ape = Ape(Item("Title", "T") + ApeCover("ape") + Item("Year", "1"), 3);
    const std::string field = Field(4, kFront, large);
    const std::string compressed = qCompress(QByteArray::fromStdString(field)).toStdString();
    const std::string back = Picture(3, kBack, "back");
    const struct {
        const char* what;
        std::string bytes;
        std::string cover;
    } cases[] = {
        {"2.2", Tag(2, Frame(2, "TT2", "\0T"s) + Picture(2, kFront, large)), large},
        {"2.3", Tag(3, title + Picture(3, kFront, large) + title) + sound, large},
        {"2.4", Tag(4, Picture(4, kFront, large)) + sound + id3v1, large},
        {"2.4 with sizes as in 2.3",
         Tag(4, "APIC" + Number(field.size(), 4, 8) + "\0\0"s + field + Frame(4, "TIT2", "\0T"s)),
         large},
        {"a name in UTF-16", Tag(3, Frame(3, "APIC", "\1image/png\0\3\xFF\xFEn\0\0\0\1\2\3"s)),
         "\1\2\3"},
        {"2.2 unsynchronised", Tag(2, Picture(2, kFront, "\xFF\0\xE0p"s, 17), kUnsynchronised),
         "\xFF\xE0p"},
        {"2.3 unsynchronised",
         Tag(3, Frame(3, "PRIV", "\xFF\0\0"s, 2) + Picture(3, kFront, large), kUnsynchronised),
         large},
        {"2.4 unsynchronised",
         Tag(4, Frame(4, "APIC", "\0\0\0\x1A"s + Field(4, kFront, "\xFF\0\xE0p"s), -1, "\0\3"s)),
         "\xFF\xE0p"},
        {"the front", Tag(3, back + Picture(3, kFront, large) + Picture(3, kFront, "2")), large},
        {"else the first", Tag(3, title + back + Picture(3, 0, large)) + ape, "back"},
        {"else APE", Tag(3, title) + sound + ape, "ape"},
        {"APE before ID3v1", sound + Ape(ApeCover(large), 1) + id3v1, large},
        {"APE by its name only", Ape(Item("Cover Art (Back)", "\0b"s, kBinary), 1), ""},
        {"links", Tag(3, Frame(3, "APIC", "\0-->\0\3\0http://x"s) + back), "back"},
        {"links in 2.2", Tag(2, Frame(2, "PIC", "\0-->\3\0http://x"s)), ""},
        {"links in APE", Ape(ApeCover("x", kLocator), 1), ""},
        {"compressed", Tag(3, Frame(3, "APIC", compressed, -1, "\0\x80"s) + back), "back"},
        {"no bytes", Tag(3, Picture(3, kFront, "") + back), "back"},
        {"the limit", Tag(4, Picture(4, kFront, std::string(kLimit - 100, 'p'))),
         std::string(kLimit - 100, 'p')},
        {"beyond it", Tag(3, Picture(3, kFront, std::string(kLimit + 1, 'p')) + back), "back"},
        {"APE beyond it", Ape(ApeCover(std::string(kLimit + 1, 'p')), 1), ""},
        {"a size beyond the file", Tag(3, Picture(3, kFront, "p", 1000), 0, 5'000'000), ""},
        {"a size beyond the tag", Tag(3, Picture(3, kFront, "p", 200)) + sound, ""},
        {"the highest size", Tag(3, Picture(3, kFront, "p", 0xFFFFFFFF)) + sound, ""},
        {"a cut file", Tag(4, Picture(4, kFront, large)).substr(0, 200'000), ""},
        {"cut in the head", Tag(4, Frame(4, "APIC", "\0i"s)), ""},
        {"APE beyond the tag", Ape(Little(40) + ApeCover("ape").substr(4), 1) + id3v1, ""},
        {"neither", sound, ""},
        {"nothing", "", ""},
    };
    for (const auto& [what, bytes, cover] : cases) {
        const QByteArray read = library::ReadCover(folder.Write("song.mp3", bytes));
        EXPECT_TRUE(read == QByteArray::fromStdString(cover))
            << what << ": " << read.size() << " bytes, " << read.left(20).toStdString();
    }
}

TEST(Cover, WhatIsNoFileHasNone) {
    const TemporaryFolder folder;
    const fs::path pipe = folder.Path() / "pipe.mp3";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const fs::path& song : {pipe, folder.Path(), folder.Path() / "missing.mp3"})
        EXPECT_TRUE(library::ReadCover(song).isEmpty()) << song;
}

} // namespace
