#include "editor/TitleRules.h"

#include <gtest/gtest.h>
#include <ostream>
#include <tuple>
#include <utility>
#include <vector>

static void PrintTo(const QString& text, std::ostream* out) { *out << text.toStdString(); }

namespace {

void Check(QString (*rule)(const QString&), const std::vector<std::pair<QString, QString>>& cases) {
    for (const auto& [from, to] : cases)
        EXPECT_EQ(rule(from), to) << from.toStdString();
}

TEST(TitleRulesTest, WordsAreCapitalizedButForLittleOnes) {
    Check(editor::CapitalizeWords,
          {{"", ""},
           {"DREAMS OF ÉTÉ", "Dreams of Été"},
           {"the  two   gaps ", "The  Two   Gaps "},
           {" the leading gap", " the Leading Gap"},
           {"say (again) 2nd o'clock, and after", "Say (again) 2nd O'clock, and After"},
           {"one Is the and a, if am of on but nor for or",
            "One is the and a, if am of on but nor for Or"}});
}

TEST(TitleRulesTest, CharactersThatDoNotBelongAreTakenOut) {
    Check(editor::RemoveJunk,
          {{"_My_Song_", "My Song"},
           {"a~<>{}+=/\\?b", "ab"},
           {"? padded ?", "padded"},
           {"Artist - Title* (1|2): \"x\".mp3", "Artist - Title* (1|2): \"x\".mp3"},
           {"\ttab", "\ttab"}});
}

TEST(TitleRulesTest, ArtistAndTitleAreGuessedFromTheNameAndCombinedToOne) {
    const std::tuple<QString, QString, QString> cases[] = {
        {"The Band - The= Song?", "The Band", "The Song"},
        {"band_song", "band", "song"},
        {"a-b-c_d_e", "Unknown", "a-b-c d e"},
        {"plain.MP3.name.mp3", "Unknown", "plain.name"},
        {"only-", "only", ""},
        {"", "Unknown", ""},
    };
    for (const auto& [name, artist, title] : cases) {
        const auto guess = editor::GuessFromName(name);
        EXPECT_EQ(guess.artist + u'|' + guess.title, artist + u'|' + title) << name.toStdString();
    }
    EXPECT_EQ(editor::Combine(" The Band ", " The Song "), QString("The Band-The Song"));
    EXPECT_EQ(editor::Combine("", "The Song"), QString("-The Song"));
}

} // namespace
