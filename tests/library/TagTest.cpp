#include "library/c_ID3.h"
#include "tests/TemporaryFolder.h"

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

c_ID3 Read(const TemporaryFolder& folder, const std::string& bytes) {
    c_ID3 tag;
    tag.GetIdTag(folder.Write("read.mp3", bytes));
    return tag;
}

class TagTest : public testing::Test {
protected:
    /// The last 128 bytes of a file that had another tag.
    std::string Written(c_ID3& tag) const {
        const fs::path file = mFolder.Write("written.mp3", "sound" + TagWith("Old"));
        tag.PutIdTag(file);
        EXPECT_EQ(BytesOf(file).substr(0, 5), "sound");
        EXPECT_EQ(fs::file_size(file), 5u + 128u);
        return BytesOf(file).substr(5);
    }

    TemporaryFolder mFolder;
};

TEST_F(TagTest, FieldsAreReadAndCleaned) {
    const struct {
        std::string stored;
        QString title;
    } cases[] = {
        {"Hello", QStringLiteral("Hello")},          {Padded("Hello", 30), QStringLiteral("Hello")},
        {"  Song  \0\0"s, QStringLiteral("Song  ")}, {"a\r\n\\b", QStringLiteral("ab")},
        {"caf\xE9 \x80", QStringLiteral("café €")},  {Padded("", 30), QString()},
    };
    for (const auto& [stored, title] : cases)
        EXPECT_EQ(Read(mFolder, TagWith(stored)).Title(), title) << stored;
    const c_ID3 tag = Read(mFolder, "soundtAg" + TagWith("Title", "A Comment", 17).substr(3));
    EXPECT_EQ(tag.Artist(), QStringLiteral("The Artist"));
    EXPECT_EQ(tag.Album(), QStringLiteral("The Album"));
    EXPECT_EQ(tag.Year(), QStringLiteral("1999"));
    EXPECT_EQ(tag.Comment(), QStringLiteral("A Comment"));
    EXPECT_EQ(tag.Genre(), QStringLiteral("Rock"));
}

TEST_F(TagTest, WithoutATagAllButTheGenreIsEmpty) {
    mFolder.Write("untagged.mp3", std::string(500, 'x'));
    mFolder.Write("short.mp3", TagWith("Title").substr(0, 127));
    for (const char* name : {"untagged.mp3", "short.mp3", "missing.mp3"}) {
        c_ID3 tag = Read(mFolder, TagWith("Title", "Comment", 17));
        tag.GetIdTag(mFolder.Path() / name);
        EXPECT_EQ(tag.Title() + tag.Artist() + tag.Album() + tag.Year() + tag.Comment(), QString());
        EXPECT_EQ(tag.Genre(), QStringLiteral("Rock"));
    }
}

TEST_F(TagTest, GenreNumbersAndNames) {
    EXPECT_EQ(Read(mFolder, TagWith("", "", '\x93')).Genre(), QStringLiteral("Synth Pop"));
    EXPECT_EQ(Read(mFolder, TagWith("", "", '\x94')).Genre(), QString());
    EXPECT_EQ(Read(mFolder, TagWith("", "", '\xFF')).Genre(), QString());
    const struct {
        QString name;
        char number;
    } cases[] = {
        {QStringLiteral("jazz+funk"), 29},          {QStringLiteral("Phychedelic"), 67},
        {QStringLiteral("Trash Metal"), '\x90'},    {QStringLiteral("Synth Pop"), '\x93'},
        {QStringLiteral("Nothing Of The Kind"), 0}, {QString(), 0},
    };
    for (const auto& [name, number] : cases) {
        c_ID3 tag;
        tag.SetGenre(name);
        EXPECT_EQ(Written(tag).back(), number) << name.toStdString();
    }
}

TEST_F(TagTest, EveryByteIsWrittenInItsPlace) {
    c_ID3 tag;
    tag.SetTitle(QStringLiteral("Üï Ж🎵"));
    tag.SetArtist(QString(40, u'a'));
    tag.SetAlbum(QStringLiteral("Album"));
    tag.SetYear(QStringLiteral("20012"));
    tag.SetComment(QStringLiteral(" c\\"));
    EXPECT_EQ(Written(tag), "TAG" + Padded("\xDC\xEF ??", 30) + std::string(30, 'a') +
                                Padded("Album", 30) + "2001" + Padded(" c\\", 30) + '\0');
    EXPECT_EQ(tag.Album(), QStringLiteral("Album"));
    EXPECT_EQ(tag.Comment(), QStringLiteral("c"));
}

TEST_F(TagTest, ALongTitleGoesOnInTheComment) {
    const QString thirty = QStringLiteral("A title that is long and has| ");
    const struct {
        QString title;
        QString readBack;
        QString comment;
    } cases[] = {
        {QString(30, u't'), QString(30, u't'), QStringLiteral("Comment")},
        {thirty + QStringLiteral(" a|b "), thirty + QStringLiteral(" a b "),
         QStringLiteral("||a|b|")},
        {QString(70, u't'), QString(59, u't'), QString(30, u't')},
        {QStringLiteral("🎵").repeated(30), QString(30, u'?'), QStringLiteral("Comment")},
        {QStringLiteral("€").repeated(31), QStringLiteral("€").repeated(31), QStringLiteral("€€")},
    };
    for (const auto& [title, readBack, comment] : cases) {
        c_ID3 tag;
        tag.SetTitle(title);
        tag.SetComment(QStringLiteral("Comment"));
        const c_ID3 read = Read(mFolder, Written(tag));
        EXPECT_EQ(read.Title(), readBack);
        EXPECT_EQ(read.Comment(), comment);
        EXPECT_EQ(tag.Comment(), comment);
        EXPECT_EQ(tag.Title().size(), 30);
    }
}

TEST_F(TagTest, ANewTagReplacesTheLastByteOfTheFile) {
    const fs::path file = mFolder.Write("new.mp3", std::string(999, 'x') + "y");
    c_ID3 tag;
    tag.SetTitle(QStringLiteral("New"));
    tag.PutIdTag(file);
    EXPECT_EQ(BytesOf(file).substr(0, 1005), std::string(999, 'x') + "TAGNew");
    EXPECT_EQ(fs::file_size(file), 1127u);
}

TEST_F(TagTest, ShortAndReadOnlyFilesAndMissingOnesStayAsTheyWere) {
    const fs::path shortFile = mFolder.Write("short.mp3", std::string(127, 'x'));
    const fs::path readOnly = mFolder.Write("readonly.mp3", TagWith("Old"));
    MakeReadOnly(readOnly);
    for (const fs::path& file : {shortFile, readOnly, mFolder.Path() / "missing.mp3"})
        c_ID3().PutIdTag(file);
    EXPECT_EQ(BytesOf(shortFile), std::string(127, 'x'));
    EXPECT_EQ(BytesOf(readOnly), TagWith("Old"));
    EXPECT_EQ(mFolder.Entries(), 2);
}

TEST(TagTextTest, TitlesFromFileNames) {
    const struct {
        const char* file;
        QString title;
    } cases[] = {
        {"C:\\Music\\My_Song.MP3", QStringLiteral("My Song")},
        {"/music/My_Song.mp3", QStringLiteral("My Song")},
        {"a.mp3.b.MP3", QStringLiteral("a.b")},
        {"/music/ song.mp3 ", QStringLiteral("song")},
        {"/music/_song.ogg", QStringLiteral(" song.ogg")},
        {"/music/caf\xE9.mp3", QStringLiteral("café")},
        {"/music/.m.mp3p3", QStringLiteral(".mp3")},
    };
    for (const auto& [file, title] : cases)
        EXPECT_EQ(c_ID3::TitleFromFileName(file), title) << file;
}

} // namespace
