#include "editor/TitleRules.h"
#include "game/LikeTitles.h"
#include "library/SongTitle.h"
#include "library/c_ID3.h"
#include "platform/Text.h"
#include "tests/fuzz/Target.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

void TryTitle(const QString& title) {
    EXPECT_EQ(game::ComparedTitle(title).isEmpty(), title.isEmpty());
    const QString capitals = editor::CapitalizeWords(title);
    EXPECT_EQ(editor::CapitalizeWords(capitals), capitals);
    const QString kept = editor::RemoveJunk(title);
    EXPECT_EQ(editor::RemoveJunk(kept), kept);
    const editor::Fitting fitting = editor::FitTitle(title);
    EXPECT_LE(fitting.text.size(), fitting.room);
    const QString file = editor::WithEnding(editor::NameCharacters(title));
    EXPECT_EQ(editor::WithEnding(editor::WithoutEnding(file)).size(), file.size());
    const QString escaped = platform::EscapeSeparators(title);
    EXPECT_EQ(platform::UnescapeSeparators(escaped), title);
    EXPECT_FALSE(escaped.contains(u'?') || escaped.contains(u'\\') || escaped.endsWith(u' '));
}

void TryFile(const fs::path& file) {
    EXPECT_EQ(platform::PathFromText(platform::TextFromPath(file)), file);
    const QString key = platform::KeyFromPath(file);
    EXPECT_EQ(platform::PathFromKey(key), file);
    EXPECT_FALSE(key.contains(u'/') || key.contains(u'\\'));
    EXPECT_TRUE(platform::ShownText(file).isValidUtf16());
    EXPECT_TRUE(file.empty() || library::HasVisible(library::SongTitle(c_ID3(), file)) ||
                !library::HasVisible(platform::ShownText(file)));
    const auto guess = editor::GuessFromName(platform::ShownText(file.filename()));
    const auto name = editor::Combine(guess.artist, guess.title);
    EXPECT_EQ(name.has_value(), !guess.artist.isEmpty() || !guess.title.isEmpty());
}

void Run(const std::string& bytes) {
    const QString text = platform::ShownText(std::string_view(bytes));
    TryTitle(text);
    TryFile(bytes.substr(0, bytes.find('\0'))); // no file name holds one
}

const fuzz::Target kTitles("titles", Run);

} // namespace
