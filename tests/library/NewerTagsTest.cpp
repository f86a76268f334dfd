#include "library/Cover.h"
#include "library/SongTag.h"
#include "library/SongTitle.h"
#include "tests/TemporaryFolder.h"

#include <QString>
#include <string>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

/// A number in `bytes` bytes with `bits` bits each, the highest first.
std::string Number(std::size_t number, int bytes, int bits) {
    std::string text;
    for (int i = bytes - 1; i >= 0; --i)
        text += static_cast<char>(number >> (i * bits) & ((1U << bits) - 1));
    return text;
}

/// A frame of ID3v2.`version` that claims to have `size` bytes; 0 for the true number.
std::string Frame(int version, const std::string& id, const std::string& bytes,
                  std::size_t size = 0, const std::string& flags = "\0\0"s) {
    const std::size_t said = size > 0 ? size : bytes.size();
    const std::string number = Number(said, version == 2 ? 3 : 4, version == 4 ? 7 : 8);
    return id + number + (version == 2 ? "" : flags) + bytes;
}

std::string Tag(char version, const std::string& frames, char flags = 0, std::size_t size = 0) {
    return "ID3"s + version + '\0' + flags + Number(size > 0 ? size : frames.size(), 4, 7) + frames;
}

std::string Little(std::size_t number) {
    std::string text = Number(number, 4, 8);
    return {text.rbegin(), text.rend()};
}

std::string Item(const std::string& key, const std::string& value, std::size_t flags = 0) {
    return Little(value.size()) + Little(flags) + key + '\0' + value;
}

std::string Ape(const std::string& items, std::size_t count, std::size_t size = 0) {
    return items + "APETAGEX" + Little(2000) + Little(size > 0 ? size : items.size() + 32) +
           Little(count) + std::string(12, '\0');
}

constexpr char kUnsynchronised = '\x80';
constexpr char kExtended = 0x40;

std::string Title(int version, const std::string& bytes = "\0T"s, std::size_t size = 0) {
    return Frame(version, version == 2 ? "TT2" : "TIT2", bytes, size);
}

std::string Artist(int version, const std::string& bytes = "\0A"s, std::size_t size = 0) {
    return Frame(version, version == 2 ? "TP1" : "TPE1", bytes, size);
}

std::string Both(int version) { return Title(version) + Artist(version); }

std::string Id3v1(std::string title, std::string artist) {
    title.resize(30, ' ');
    artist.resize(95, ' ');
    return "TAG" + title + artist;
}

constexpr char kFront = 3; // types of pictures
constexpr char kBack = 4;
constexpr std::size_t kBinary = 2; // flags of an APE item
constexpr std::size_t kLocator = 4;
constexpr int kLimit = 8 << 20;

std::string Picture(int version, char type, const std::string& picture, std::size_t size = 0) {
    const std::string kind = version == 2 ? "\0JPG"s : "\0image/jpeg\0"s;
    return Frame(version, version == 2 ? "PIC" : "APIC", kind + type + "its name\0"s + picture,
                 size);
}

std::string ApeCover(const std::string& picture, std::size_t flags = kBinary) {
    return Item("Cover Art (front)", "cover.jpg\0"s + picture, flags);
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

TEST_F(NewerTagsTest, TitleAndFrontCoverAreTakenFromTheFirstTagThatHasThem) {
    const std::string sound(300, 'x');
    const std::string large(300'000, 'p');
    const std::string front = Picture(3, kFront, large);
    const std::string back = Picture(3, kBack, "back");
    const std::string ape = Ape(Item("Year", "1") + Item("TITLE", "P") + Item("artist", "Q") +
                                    ApeCover("ape") + Item("Year", "1"),
                                5);
    const std::string compressed = qCompress(QByteArray("\0image/jpeg\0\3\0p", 15)).toStdString();
    const struct {
        const char* what;
        std::string bytes;
        const char* read;
        std::string cover = {};
    } cases[] = {
        {"ID3v1 wins", Tag(4, Both(4)) + sound + ape + Id3v1("One", "Old"), "Old: One", "ape"},
        {"then ID3v2", Tag(4, Both(4)) + sound + ape + Id3v1("", "Old"), "A: T newer", "ape"},
        {"then APE", sound + ape + Id3v1("\t", "Old"), "Q: P newer", "ape"},
        {"APE at the end", Tag(3, Artist(3) + back) + sound + ape, "Q: P newer", "back"},
        {"an artist stays", Tag(3, Title(3)) + sound + Id3v1("", "Old"), "Old: T newer"},
        {"no title", Tag(3, Artist(3)) + sound + Id3v1("", "Old"), "Old: "},
        {"2.2", Tag(2, Picture(2, kFront, large) + Both(2)), "A: T newer", large},
        {"2.3", Tag(3, Title(3) + front + Artist(3)) + sound, "A: T newer", large},
        {"2.4", Tag(4, Picture(4, kFront, large) + Both(4)) + sound, "A: T newer", large},
        {"2.2 unsynchronised", Tag(2, Picture(2, kFront, "\xFF\0\xE0p"s, 17), kUnsynchronised),
         ": ", "\xFF\xE0p"},
        {"2.3 unsynchronised",
         Tag(3, Frame(3, "PRIV", "\xFF\0\0"s, 2) + front + Both(3), kUnsynchronised), "A: T newer",
         large},
        {"2.4 unsynchronised, Latin-1",
         Tag(4, Frame(4, "TIT2", "\1\xFF\0\xFE\xE9\0"s, 0, "\0\2"s) + Artist(4, "\0\xE9"s)),
         "\xC3\xA9: \xC3\xA9 newer"},
        {"2.3 with an extended header",
         Tag(3, Number(6, 4, 8) + std::string(6, '\0') + Both(3), kExtended), "A: T newer"},
        {"2.4 with an extended header and several values",
         Tag(4, Number(6, 4, 7) + "\1\0"s + Title(4) + Artist(4, "\3A\0\xC3\xA9"s), kExtended),
         "A, \xC3\xA9: T newer"},
        {"2.4 with sizes as in 2.3", Tag(4, front + Both(4)), "A: T newer", large},
        {"a long title with such a size",
         Tag(4, Title(3, "\0"s + std::string(299, ' ') + "T") + Artist(4)), "A: T newer"},
        {"UTF-16, UTF-16BE",
         Tag(3, Title(3, "\1\xFF\xFE\x16\x04\n\0\x3C\xD8\xB5\xDF"s) + Artist(3, "\2\x04\x16"s)),
         "\xD0\x96: \xD0\x96 \xF0\x9F\x8E\xB5 newer"},
        {"a size beyond the file", Tag(3, Both(3) + Picture(3, kFront, "p", 1000), 0, 200'000'000),
         "A: T newer"},
        {"a frame behind the tag", Tag(3, Artist(3)) + Title(3), ": "},
        {"a frame beyond the tag", Tag(3, Title(3, "\0T"s, 99) + Both(3)), ": "},
        {"a frame that ends in the next", Tag(3, Artist(3, "\0A"s, 3) + Both(3)), ": "},
        {"a frame of the highest size", Tag(3, Title(3, "\0T"s, 0xFFFFFFFF)), ": "},
        {"a title of 5000", Tag(3, Title(3, std::string(5000, 'T'))), ": "},
        {"APE items that lie", Ape(Little(0xFFFFFFFF) + Item("Title", "P").substr(4), 1), ": "},
        {"APE without items", Ape("", 0xFFFFFFFF, 4), ": "},
        {"APE beyond the file", Ape(Item("Title", "P"), 1, 100'000), ": "},
        {"the front of several", Tag(3, back + front + Picture(3, kFront, "2")), ": ", large},
        {"none of the front", Tag(3, back + Picture(3, 0, large)) + ape, "Q: P newer", "back"},
        {"APE by its name only", Ape(Item("Cover Art (Back)", "\0b"s, kBinary), 1), ": "},
        {"links", Tag(3, Frame(3, "APIC", "\0-->\0\3\0http://x"s) + back), ": ", "back"},
        {"links in APE", Ape(ApeCover("x", kLocator), 1), ": "},
        {"compressed", Tag(3, Frame(3, "APIC", compressed, 0, "\0\x80"s) + back), ": ", "back"},
        {"no bytes", Tag(3, Picture(3, kFront, "") + back), ": ", "back"},
        {"the limit", Tag(4, Picture(4, kFront, std::string(kLimit - 100, 'p'))), ": ",
         std::string(kLimit - 100, 'p')},
        {"beyond it", Tag(3, Picture(3, kFront, std::string(kLimit + 1, 'p')) + back), ": ",
         "back"},
        {"APE beyond it", Ape(ApeCover(std::string(kLimit + 1, 'p')), 1), ": "},
        {"a cut file", Tag(3, Both(3) + front).substr(0, 200'000), "A: T newer"},
    };
    for (const auto& [what, bytes, read, cover] : cases) {
        const fs::path song = mFolder.Write("song.mp3", bytes);
        EXPECT_EQ(Read(song), read) << what;
        EXPECT_TRUE(library::ReadCover(song) == QByteArray::fromStdString(cover)) << what;
    }
}

TEST_F(NewerTagsTest, AHugePictureIsNotReadAndAPipeIsNotWaitedFor) {
    const fs::path huge = mFolder.Write("huge.mp3", Tag(3, "", 0, 200'000'100));
    std::ofstream(huge, std::ios::app) << Frame(3, "APIC", "", 200'000'000);
    fs::resize_file(huge, 20 + 200'000'000);
    std::ofstream(huge, std::ios::app) << Both(3);
    EXPECT_EQ(Read(huge), "A: T newer");
    const fs::path pipe = mFolder.Path() / "pipe.mp3";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(Read(pipe), ": ");
    EXPECT_EQ(library::SongTitle(pipe), "pipe");
    for (const fs::path& song : {pipe, mFolder.Path(), mFolder.Path() / "missing.mp3"})
        EXPECT_TRUE(library::ReadCover(song).isEmpty()) << song;
}

} // namespace
