#include "editor/TitleRules.h"
#include "game/Choices.h"
#include "game/LikeTitles.h"
#include "library/SongTitle.h"
#include "library/c_ID3.h"
#include "platform/Chance.h"
#include "platform/Text.h"
#include "tests/fuzz/Target.h"

#include <QStringList>
#include <gtest/gtest.h>
#include <set>

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
    EXPECT_FALSE(fitting.Hint().isEmpty());
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

/// Four choices out of songs with these titles.
void TryQuestion(const QStringList& titles) {
    const int count = static_cast<int>(titles.size());
    const auto fileOf = [](int index) { return fs::path(std::to_string(index)); };
    const auto titleOf = [&](const fs::path& file) { return titles.value(std::stoi(file)); };
    platform::Randomize(count);
    const auto choices = game::DrawChoices(count, fileOf, fileOf(count - 1), titleOf);
    const std::set<int> candidates(choices.candidates.begin(), choices.candidates.end());
    EXPECT_TRUE(*candidates.begin() >= 0 && *candidates.rbegin() < count);
    if (count >= 6) {
        EXPECT_EQ(candidates.size(), 4u);
        EXPECT_FALSE(candidates.contains(0) || candidates.contains(count - 1));
    }
}

void Run(const std::string& bytes) {
    const QString text = platform::ShownText(std::string_view(bytes));
    TryTitle(text);
    TryFile(bytes.substr(0, bytes.find('\0'))); // no file name holds one
    TryQuestion(text.split(u'\n'));
}

const fuzz::Target kTitles("titles", Run);

} // namespace
