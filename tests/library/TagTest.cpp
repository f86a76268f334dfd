#include "library/SongTitle.h"
#include "library/c_ID3.h"
#include "tests/TemporaryFolder.h"

#include <QStringList>
#include <gtest/gtest.h>
#include <string>

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

TEST_F(TagTest, ANewTagReplacesTheLastByteAndIsTakenBackUnlessItIsGone) {
    const std::string sound(127, 'x');
    const fs::path song = mFolder.Write("song.mp3", sound + '!');
    const QByteArray before = c_ID3::EndOf(song);
    c_ID3().PutIdTag(song);
    EXPECT_EQ(BytesOf(song).substr(0, 130), sound + "TAG");
    EXPECT_EQ(fs::file_size(song), 255u);
    EXPECT_FALSE(c_ID3::PutEnd(song, before));
    EXPECT_EQ(BytesOf(song), sound + '!');
    mFolder.Write("song.mp3", sound + "other");
    EXPECT_FALSE(c_ID3::PutEnd(song, before));
    EXPECT_EQ(BytesOf(song), sound + "other");
    const fs::path readOnly = mFolder.Write("readonly.mp3", TagWith("Old"));
    MakeReadOnly(readOnly);
    for (const fs::path& kept : {readOnly, mFolder.Path() / "missing.mp3"})
        c_ID3().PutIdTag(kept);
    EXPECT_EQ(BytesOf(readOnly), TagWith("Old"));
    EXPECT_TRUE(c_ID3::PutEnd(readOnly, before));
    EXPECT_EQ(mFolder.Entries(), 2);
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

} // namespace
