// The sample songs that the build makes, as the program reads them; SONGRUSH_PLAYLIST is the folder
// of their playlist.

#include "library/PlaylistFormat.h"
#include "library/c_ID3.h"

#include <QFile>
#include <QStringList>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

/// The letters of a title or file name, without accents: all that both have in common.
QString Letters(const QString& text) {
    QString letters = text.normalized(QString::NormalizationForm_D);
    letters.removeIf([](QChar c) { return !c.isLetter(); });
    return letters;
}

TEST(Samples, AreListedAsTheProgramWritesPlaylistsAndTaggedAsTheirFilesAreNamed) {
    QFile playlist(QStringLiteral(SONGRUSH_PLAYLIST "/Sample.m3u"));
    ASSERT_TRUE(playlist.open(QIODevice::ReadOnly));
    const std::string listed = playlist.readAll().toStdString();
    std::string written;
    library::AppendHeader(written);
    int songs = 0;
    library::PlaylistReader reader(listed);
    while (const auto entry = reader.Next()) {
        library::AppendEntry(written, *entry);
        ++songs;
        const std::filesystem::path path(entry->path);
        SCOPED_TRACE(path);
        c_ID3 tag;
        tag.GetIdTag(SONGRUSH_PLAYLIST / path);
        const QStringList names = QString::fromStdString(path.stem()).split(" - ");
        ASSERT_EQ(names.size(), 2);
        EXPECT_EQ(tag.Artist(), names[0]);
        EXPECT_EQ(Letters(tag.Title()), Letters(names[1]));
        EXPECT_EQ(tag.Album(), "Songrush Samples");
        EXPECT_NE(tag.Genre(), "");
    }
    EXPECT_EQ(songs, 23);
    EXPECT_EQ(written, listed);
}

} // namespace
