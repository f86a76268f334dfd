#include "library/Cover.h"
#include "library/SongTag.h"
#include "library/SongTitle.h"
#include "tests/TemporaryFolder.h"

#include <QStringList>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

std::string Padded(std::string text, std::size_t size, char padding = ' ') {
    text.resize(size, padding);
    return text;
}

std::string TagWith(const std::string& title, const std::string& comment = "", char genre = 0) {
    return "TAG" + Padded(title, 30, '\0') + Padded("The Artist", 30) + Padded("The Album", 30) +
           "1999" + Padded(comment, 30, '\0') + genre;
}

class TagTest : public testing::Test {
protected:
    c_ID3 Read(const std::string& bytes) const {
        c_ID3 tag;
        tag.GetIdTag(mFolder.Write("read.mp3", bytes));
        return tag;
    }

    /// The last 128 bytes after writing `tag` to a file that had another one.
    std::string Written(c_ID3& tag) const {
        const fs::path file = mFolder.Write("written.mp3", "sound" + TagWith("Old"));
        tag.PutIdTag(file);
        const std::string bytes = BytesOf(file);
        EXPECT_TRUE(bytes.starts_with("soundTAG") && bytes.size() == 5 + 128);
        return bytes.substr(5);
    }

    TemporaryFolder mFolder;
};

TEST_F(TagTest, FieldsAreReadAndCleaned) {
    const struct {
        std::string stored;
        QString title;
    } cases[] = {
        {"Hello", "Hello"}, {Padded("Hello", 30), "Hello"}, {"  Song  \0\0"s, "Song  "},
        {"a\r\n\\b", "ab"}, {"caf\xE9 \x80", "café €"},     {Padded("", 30), QString()},
    };
    for (const auto& [stored, title] : cases)
        EXPECT_EQ(Read(TagWith(stored)).Title(), title) << stored;
    const std::string bytes = "soundtAg" + TagWith("Title", "A Comment", 17).substr(3);
    c_ID3 tag = Read(bytes);
    EXPECT_EQ(tag.Artist(), "The Artist");
    EXPECT_EQ(tag.Album(), "The Album");
    EXPECT_EQ(tag.Year(), "1999");
    EXPECT_EQ(tag.Comment(), "A Comment");
    tag.GetIdTag(mFolder.Write("untagged.mp3", bytes.substr(0, 127)));
    EXPECT_EQ(tag.Title() + tag.Artist() + tag.Album() + tag.Year() + tag.Comment(), "");
    EXPECT_EQ(tag.Genre(), "Rock") << "alone stays";
}

TEST_F(TagTest, GenresKeepTheirNumbersAndOddSpellings) {
    QStringList genres;
    for (int number = 0; number < 256; ++number)
        genres << Read(TagWith("", "", static_cast<char>(number))).Genre();
    EXPECT_EQ(genres[117], "power Ballad");
    // That of all names, odd spellings and all.
    EXPECT_EQ(qChecksum(genres.join(u'|').toUtf8()), 24841) << genres.join(u'|').toStdString();
    c_ID3 tag;
    tag.SetGenre("jazz+funk");
    EXPECT_EQ(Written(tag).back(), 29);
    tag.SetGenre("Nothing Of The Kind");
    EXPECT_EQ(Written(tag).back(), 0);
}

TEST_F(TagTest, EveryByteIsWrittenInItsPlace) {
    c_ID3 tag;
    tag.SetTitle("Üï Ж🎵");
    tag.SetArtist(QString(40, u'a'));
    tag.SetYear("20012");
    tag.SetComment(" c\\");
    EXPECT_EQ(Written(tag), "TAG" + Padded("\xDC\xEF ??", 30) + std::string(30, 'a') +
                                Padded("", 30) + "2001" + Padded(" c\\", 30) + '\0');
    EXPECT_EQ(tag.Comment(), "c");
}

TEST_F(TagTest, ALongTitleGoesOnInTheComment) {
    const QString thirty = "A title that is long and has| ";
    const struct {
        QString title;
        QString readBack;
        QString comment;
    } cases[] = {
        {QString(30, u't'), QString(30, u't'), "Comment"},
        {thirty + " a|b ", thirty + " a b ", "||a|b|"},
        {QString(70, u't'), QString(59, u't'), QString(30, u't')},
        {QString("🎵").repeated(30), QString(30, u'?'), "Comment"},
        {QString(31, u'€'), QString(31, u'€'), "€€"},
    };
    for (const auto& [title, readBack, comment] : cases) {
        c_ID3 tag;
        tag.SetTitle(title);
        tag.SetComment("Comment");
        const c_ID3 read = Read(Written(tag));
        EXPECT_EQ(read.Title(), readBack);
        EXPECT_EQ(read.Comment(), comment);
        EXPECT_EQ(tag.Comment(), comment);
        EXPECT_EQ(tag.Title().size(), 30);
    }
}

TEST_F(TagTest, TheByteUnderANewTagIsPutBackOnlyWhereThatTagStillIs) {
    const std::string sound(127, 'x');
    const fs::path song = mFolder.Write("song.mp3", sound + "other");
    EXPECT_FALSE(c_ID3::PutEnd(song, "!"));
    EXPECT_EQ(BytesOf(song), sound + "other");
    c_ID3().PutIdTag(song);
    EXPECT_FALSE(c_ID3::PutEnd(song, "!"));
    EXPECT_EQ(BytesOf(song), sound + "othe!");
}

TEST(SongTitleTest, IsThatOfTheTagOrElseOfTheFileButNeverWithoutAVisibleCharacter) {
    const struct {
        const char* song;
        QString title;
        QString tag = {};
    } cases[] = {
        {"/music/song.mp3", "Title", "Title"}, {"/my_song.mp3", "my song", " \u00A0\u200B\t\u0001"},
        {"C:\\Music\\My_Song.MP3", "My Song"}, {"a.mp3.b.MP3", "a.b"},
        {"/music/ song.mp3 ", "song"},         {"/music/_song.ogg", " song.ogg"},
        {"/music/caf\xE9.mp3", "café"},        {"/music/.m.mp3p3", ".mp3"},
        {"/music/AC\\DC.mp3", "ACDC"},         {"/music/.mp3", ".mp3"},
        {"/music/ _.mp3", " _.mp3", " "},      {"/music/\t", "/music/\t"},
    };
    for (const auto& [song, title, tagged] : cases) {
        c_ID3 tag;
        tag.SetTitle(tagged);
        EXPECT_EQ(library::SongTitle(tag, song), title) << song;
    }
}

struct NewerTagsTest : testing::Test {
    /// A copy of one of the corpus's songs, which zeros bring to `size` bytes, if that is not 0.
    fs::path Song(const std::string& name, std::uintmax_t size) const {
        const fs::path song = mFolder.Write("song.mp3", BytesOf(SONGRUSH_CORPUS "/tags/" + name));
        if (size > 0)
            fs::resize_file(song, size);
        return song;
    }

    /// Artist and title of the song, and whether they are those of a newer tag: "A: T newer".
    QString Read(const fs::path& song) {
        mTag.Read(song);
        return mTag.Artist() + ": " + mTag.Title() + (mTag.IsNewer() ? " newer" : "");
    }

    const TemporaryFolder mFolder;
    library::SongTag mTag;
};

TEST_F(NewerTagsTest, TitleAndFrontCoverAreTakenFromTheFirstTagThatHasThem) {
    constexpr std::size_t kLimit = 8 << 20; // bytes of a frame with a picture
    const struct {
        const char* name;
        QString read;
        std::string cover = {};
        std::uintmax_t size = 0;
    } cases[] = {
        {"v1", "Ann: Song"},
        {"v1-id3v2-and-ape", "Old: One", "ape"},
        {"v1-without-title-id3v2-and-ape", "A: T newer", "ape"},
        {"v1-without-title-and-ape", "Q: P newer", "ape"},
        {"v1-and-id3v2-without-artist", "Old: T newer"},
        {"v1-and-id3v2-without-title", "Old: "},
        {"id3v2-without-title-and-ape", "Q: P newer", "back"},
        {"id3v2-2", "Ann: Song newer", "PICPIC"},
        {"id3v2-2-unsynchronised", ": ", "\xFF\xE0p"},
        {"id3v2-3", "An: Song newer", "PICPICPICPICPIC"},
        {"id3v2-3-unsynchronised", ": So\u00FFng newer", "front"},
        {"id3v2-extended", ": Song newer"},
        {"id3v2-compressed", ": Song newer"},
        {"id3v2-4", "An: Song newer", "PICPICPICPICPIC"},
        {"id3v2-4-unsynchronised", "\u00E9: \u00E9 newer"},
        {"id3v2-4-extended-several-values", "A, \u00E9: T newer"},
        {"id3v2-4-plain-size-before-a-frame", "A: T newer"},
        {"id3v2-4-plain-size-before-padding", "A: T newer"},
        {"id3v2-utf16", "\u0416: \u0416 \U0001F3B5 newer"},
        {"id3v2-beyond-the-file", "A: T newer"},
        {"id3v2-frame-behind-the-tag", ": "},
        {"id3v2-frame-beyond-the-tag", ": "},
        {"id3v2-frame-into-the-next", ": "},
        {"id3v2-frame-of-the-highest-size", ": "},
        {"id3v2-title-of-5000", ": ", {}, 5020},
        {"ape", "Ann, Bob: Song newer", "PICPIC"},
        {"ape-v1", "Ann, Bob: Song newer", "PICPIC"},
        {"ape-items-that-lie", ": "},
        {"ape-without-items", ": "},
        {"ape-beyond-the-file", ": "},
        {"cover-front-of-several", ": ", "front"},
        {"cover-none-of-the-front", "Q: P newer", "back"},
        {"cover-ape-by-its-name-only", ": "},
        {"cover-ape-link", ": "},
        {"cover-link", ": ", "back"},
        {"cover-compressed", ": ", "back"},
        {"cover-without-bytes", ": ", "back"},
        {"cover-of-8-MiB", ": ", "p" + std::string(kLimit - 23, '\0'), kLimit + 20},
        {"cover-beyond-8-MiB", ": ", "back", kLimit + 1000},
    };
    for (const auto& [name, read, cover, size] : cases) {
        const fs::path song = Song(name, size);
        EXPECT_EQ(Read(song), read) << name;
        EXPECT_TRUE(library::ReadCover(song) == QByteArray::fromStdString(cover)) << name;
    }
}

TEST_F(NewerTagsTest, AHugePictureIsNotReadAndAPipeIsNotWaitedFor) {
    const fs::path huge = Song("id3v2-huge-picture", 20 + 200'000'000);
    std::ofstream(huge, std::ios::app) << "TIT2\0\0\0\2\0\0\0T"s;
    EXPECT_EQ(Read(huge), ": T newer");
    const fs::path pipe = mFolder.Path() / "pipe.mp3";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(Read(pipe), ": ");
    EXPECT_EQ(library::SongTitle(pipe), "pipe");
    for (const fs::path& song : {pipe, mFolder.Path(), mFolder.Path() / "missing.mp3"})
        EXPECT_TRUE(library::ReadCover(song).isEmpty()) << song;
}

} // namespace
