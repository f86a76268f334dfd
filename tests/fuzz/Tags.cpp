#include "editor/TitleRules.h"
#include "library/Cover.h"
#include "library/SongTag.h"
#include "library/SongTitle.h"
#include "tests/TemporaryFolder.h"
#include "tests/fuzz/Target.h"

namespace {

constexpr std::size_t kTagSize = 128;

void Run(const std::string& bytes) {
    static const TemporaryFolder folder;
    const std::filesystem::path song = folder.Write("song.mp3", bytes);
    library::SongTag tag;
    tag.Read(song);
    EXPECT_TRUE(library::HasVisible(library::SongTitle(tag, song)));
    EXPECT_LE(library::ReadCover(song).size(), static_cast<qsizetype>(bytes.size()));

    const QByteArray end = c_ID3::EndOf(song);
    EXPECT_EQ(end.isEmpty(), bytes.size() < kTagSize);
    const std::string sound = bytes.substr(0, bytes.size() - static_cast<std::size_t>(end.size()));
    const editor::Fitting title = editor::FitTitle(tag.Title());
    const editor::Fitting artist = editor::FitArtist(tag.Artist());
    tag.SetTitle(editor::TagText(tag.Title()));
    tag.SetArtist(editor::TagText(tag.Artist()));
    tag.SetComment({});
    tag.PutIdTag(song);
    const std::string tagged = BytesOf(song);
    EXPECT_EQ(tagged.size(), end.isEmpty() ? bytes.size() : sound.size() + kTagSize);
    EXPECT_TRUE(tagged.starts_with(sound));
    if (!end.isEmpty()) {
        c_ID3 again;
        again.GetIdTag(song);
        EXPECT_EQ(again.Title().toStdString(), title.text.toStdString());
        EXPECT_EQ(again.Artist().toStdString(), artist.text.toStdString());
    }
    EXPECT_FALSE(c_ID3::PutEnd(song, end));
    EXPECT_EQ(BytesOf(song), bytes);
}

const fuzz::Target kTags("tags", Run);

} // namespace
