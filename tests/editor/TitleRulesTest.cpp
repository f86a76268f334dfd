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
    Check(editor::NameCharacters, {{"a:b\\/<>:*|?", "ab"},
                                   {"two\r\nlines", "twolines"},
                                   {" \"quoted\" + 50% ", " \"quoted\" + 50% "}});
}

TEST(TitleRulesTest, TheEndingIsTakenOffAndPutBack) {
    Check(editor::WithoutEnding,
          {{"song.mp3.Mp3", "song.mp3"}, {".mp3", ""}, {"song.ogg", "song.ogg"}, {"mp3", "mp3"}});
    Check(editor::WithEnding, {{"song", "song.mp3"}, {"song.MP3", "song.MP3"}, {"", ".mp3"}});
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

TEST(TitleRulesTest, ItIsToldHowMuchOfATextATagHolds) {
    const QString alphabet = "abcdefghijklmnopqrstuvwxyz 0123456789";
    const std::pair<editor::Fitting, QString> cases[] = {
        {editor::FitArtist(" Größe "), "5 of 30 characters"},
        {editor::FitArtist(alphabet),
         "37 of 30 characters; the tag will have \"" + alphabet.left(30) + "\""},
        {editor::FitTitle(alphabet), "37 of 59 characters"},
        {editor::FitTitle(alphabet + alphabet),
         "74 of 59 characters; the tag will have \"" + (alphabet + alphabet).left(59) + "\""},
        {editor::FitTitle("Д-1"), "3 of 59 characters; the tag will have \"?-1\""},
    };
    for (const auto& [fitting, hint] : cases)
        EXPECT_EQ(fitting.Hint(), hint);
}

} // namespace
