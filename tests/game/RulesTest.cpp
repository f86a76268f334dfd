#include "game/Choices.h"
#include "game/Evening.h"
#include "game/HighScoreTable.h"
#include "game/LikeTitles.h"
#include "game/PerfectGame.h"
#include "game/Scoring.h"
#include "platform/Chance.h"

#include <QStringList>
#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace {

using game::HighScoreTable;
using Result = HighScoreTable::ReadResult;

TEST(Scoring, EveryBandOfTheClockHasItsPoints) {
    constexpr auto kNaN = std::numeric_limits<float>::quiet_NaN();
    const std::pair<float, int> cases[] = {
        {0.0F, 120000}, {1.9F, 81999}, {4.999F, 20019}, {5.0F, 15000}, {9.9999F, 0},
        {10.0F, 1250},  {14.999F, 0},  {15.0F, 200},    {25.99F, 200}, {26.0F, 100},
        {-0.5F, 100},   {1e30F, 100},  {kNaN, 100},
    };
    for (const auto& [seconds, points] : cases)
        EXPECT_EQ(game::PointsForTime(seconds), points) << seconds << " s";
}

TEST(Scoring, ScoresStayWithinTheirRangeAndUpToTwoSecondsCountAsOne) {
    constexpr auto kMax = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(game::AddPoints(70000, 35000), 105000);
    EXPECT_EQ(game::AddPoints(kMax - 1, 140000), kMax);
    EXPECT_EQ(game::ScoreAfterHint(9999), 0);
    EXPECT_EQ(game::ScoreAfterHint(10001), 1);
    EXPECT_EQ(game::AnswerTimeText(1.99F), "Wow, Did it in 1 second");
    EXPECT_EQ(game::AnswerTimeText(2.0F), "You answered in 2 Seconds");
}

/// These random numbers and no more.
std::function<double()> Numbers(const std::vector<double>& numbers) {
    return [numbers, used = std::size_t{0}]() mutable { return numbers.at(used++); };
}

std::string NumberedFile(int index) { return "/music/song" + std::to_string(index) + ".mp3"; }

TEST(Choices, DrawsRoundHalfToEvenAndSkipWhatIsAlreadyThere) {
    // Of 11 entries:          0 first, 2, 2 drawn, 3 now, 4,  10,   6;  slot 2
    platform::ReplaceRandom(Numbers({0.04, 0.25, 0.2, 0.3, 0.35, 0.999, 0.55, 0.5,
                                     // a hint beside slot 1:     1,   3,   3,    0
                                     0.4, 0.9, 0.95, 0.1}));
    const auto choices = game::DrawChoices(11, NumberedFile, "/MUSIC/Song3.MP3");
    EXPECT_EQ(choices.candidates, (std::array{2, 4, 10, 6}));
    EXPECT_EQ(choices.correctSlot, 2);
    EXPECT_EQ(game::DrawHint(1), (std::array{3, 0}));
    platform::ReplaceRandom({});
}

TEST(Choices, PoorPlaylistsGiveRulesUpLeastImportantFirst) {
    // Playlists of one letter a file, of which A is the current song, and the indices that each
    // of the candidates may have.
    const std::pair<std::string, std::array<QString, 4>> cases[] = {
        {"ABBCCAAAAA", {"1234", "1234", "1234", "1234"}}, // files twice, as different entries
        {"XBBBAAAAAA", {"123", "123", "123", "0"}},       // then the first entry
        {"BAAABAAAAA", {"4", "0", "04", "04"}},           // then the same entry again
        {"AAAABAAAAA", {"4", "4", "4", "4"}},
        {"", {"0", "0", "0", "0"}},
    };
    for (const auto& [playlist, allowed] : cases) {
        const auto fileName = [&songs = playlist](int index) {
            return songs.substr(std::min(songs.size(), static_cast<std::size_t>(index)), 1);
        };
        for (int seed = 0; seed < 20; ++seed) {
            platform::Randomize(seed);
            const auto drawn =
                game::DrawChoices(static_cast<int>(playlist.size()), fileName, "a").candidates;
            for (std::size_t slot = 0; slot < drawn.size(); ++slot)
                EXPECT_TRUE(allowed[slot].contains(QString::number(drawn[slot])))
                    << playlist << ": " << drawn[slot] << " in slot " << slot;
            if (playlist == cases[0].first) {
                EXPECT_NE(fileName(drawn[0]), fileName(drawn[1]));
                EXPECT_NE(drawn[2], drawn[3]);
            }
        }
    }
    const auto rare = [](int index) { return NumberedFile(index == 777 ? 777 : 1); };
    EXPECT_EQ(game::DrawChoices(100000, rare, NumberedFile(1)).candidates[0], 777);
}

TEST(Choices, TitlesThatReadAlikeAreDrawnAnewWhileThereAreOthers) {
    const QStringList titles = {"X", "The Song (Live)", "the song!", "A", "a [feat. B]",
                                "B", "Now Asked",       "now asked"};
    const auto titleOf = [&titles](const std::filesystem::path& song) {
        return titles[QString::fromStdString(song.stem().string()).mid(4).toInt()];
    };
    for (int seed = 0; seed < 20; ++seed) {
        platform::Randomize(seed);
        const auto drawn = game::DrawChoices(8, NumberedFile, NumberedFile(6), titleOf).candidates;
        // Three others are all there are; then one comes again that is like one of them.
        std::set<QString> compared;
        for (int i = 0; i < 3; ++i)
            compared.insert(game::ComparedTitle(titles[drawn[static_cast<std::size_t>(i)]]));
        EXPECT_EQ(compared, (std::set<QString>{"a", "b", "thesong"}));
        EXPECT_NE(drawn[3], 0);
    }
}

TEST(Choices, WhatTitlesHaveBesideTheirWordsIsNotCompared) {
    const std::pair<const char*, const char*> titles[] = {
        {"Don't Stop (Me [Now]) {Remastered 2009}", "dontstop"},
        {"\u00C4U\u00DF \uFF11 - Live", "\u00E4u\u00DF1live"},
        {"(Untitled)", "untitled"},
        {"Song (unclosed", "songunclosed"},
        {"???", "???"},
    };
    for (const auto& [title, compared] : titles)
        EXPECT_EQ(game::ComparedTitle(title), QString::fromUtf8(compared)) << title;
}

QByteArray Record(const QByteArray& name, const QByteArray& score) {
    const QByteArray check = QByteArray::number(game::Checksum(name + score));
    return name + "\r\n" + score + "\r\n" + check + "\r\n";
}

/// A file of ten players, "a" with 100 down to "j" with 10.
QByteArray TenPlayers() {
    QByteArray file;
    for (int i = 0; i < HighScoreTable::kPlaces; ++i)
        file += Record(QByteArray(1, static_cast<char>('a' + i)), QByteArray::number(100 - 10 * i));
    return file;
}

QString Names(const HighScoreTable& table) {
    QString names;
    for (int i = 0; i < HighScoreTable::kPlaces; ++i)
        names += table.Name(i);
    return names;
}

TEST(HighScoreTable, ChecksumAddsBytesAndFoldsAbove100000) {
    EXPECT_EQ(game::Checksum({}), 0);
    EXPECT_EQ(game::Checksum("Blank0"), 536);
    const QByteArray nearlyFull(392, '\xFF'); // 99960
    EXPECT_EQ(game::Checksum(nearlyFull + '('), 100000);
    EXPECT_EQ(game::Checksum(nearlyFull + ')'), 50001);
}

TEST(HighScoreTable, EveryKindOfFileIsToldApart) {
    const QByteArray good = TenPlayers();
    // The first name is that of a table that held "x" before.
    const std::tuple<const char*, QByteArray, Result, const char*> cases[] = {
        {"check line with blanks and decimals", QByteArray(good).replace("246\r\n", "  246.0x\r\n"),
         Result::Good, "a"},
        {"other line ends", QByteArray(good).replace("\r\n", "\n"), Result::Good, "a"},
        {"huge scores", Record("z", QByteArray(400, '9')).repeated(10), Result::Good, "z"},
        {"score edited", QByteArray(good).replace("60", "61"), Result::Tampered, "Blank"},
        {"wrong before it ends too early", "a\r\n1\r\n2\r\n", Result::Tampered, "Blank"},
        {"last line missing", good.chopped(5), Result::Unreadable, "x"},
    };
    for (const auto& [what, file, result, name] : cases) {
        HighScoreTable table;
        table.Insert(0, "x", 5);
        EXPECT_EQ(table.Parse(file), result) << what;
        EXPECT_EQ(table.Name(0), name) << what;
        EXPECT_EQ(table.IsNew(0), result == Result::Unreadable) << what;
    }
}

TEST(HighScoreTable, NewScoresGoBelowEqualOnes) {
    constexpr int kNone = -1;
    const std::tuple<int, int, const char*> cases[] = {
        {101, 0, "*abcdefghi"},    {100, 1, "a*bcdefghi"},    {11, 9, "abcdefghi*"},
        {10, kNone, "abcdefghij"}, {-5, kNone, "abcdefghij"},
    };
    for (const auto& [score, place, names] : cases) {
        HighScoreTable table;
        ASSERT_EQ(table.Parse(TenPlayers()), Result::Good);
        EXPECT_EQ(table.PlaceFor(score).value_or(kNone), place) << score;
        if (place != kNone)
            table.Insert(place, "*", score);
        EXPECT_EQ(Names(table), names) << score;
    }
    EXPECT_FALSE(HighScoreTable().PlaceFor(0));
}

TEST(HighScoreTable, NamesKeepTheirBytesAndNeverBreakTheFile) {
    const QByteArray file = Record("Caf\xE9", "7") + Record("Jos\xC3\xA9", "6") +
                            Record(" two  blanks ", "5") + Record("", "4").repeated(7);
    HighScoreTable table;
    ASSERT_EQ(table.Parse(file), Result::Good);
    EXPECT_EQ(table.Name(0), "Caf\u00E9");
    EXPECT_EQ(table.Name(1), "Jos\u00E9");
    EXPECT_EQ(table.Serialise(), file);

    table.Insert(0, "Bj\u00F6rn\r\n9\n", 8);
    HighScoreTable again;
    ASSERT_EQ(again.Parse(table.Serialise()), Result::Good);
    EXPECT_EQ(again.Name(0), "Bj\u00F6rn  9 ");
    EXPECT_EQ(game::PlayerName("  "), "Blank");
}

TEST(PerfectGame, NamesAllWhoPlayedIt) {
    const std::pair<std::vector<int>, const char*> cases[] = {
        {{5}, ""},
        {{6}, "A perfect game!"},
        {{5, 6}, "Player 2 played a perfect game!"},
        {{6, 0, 6, 6}, "Players 1, 3 and 4 played a perfect game!"},
    };
    for (const auto& [streaks, text] : cases)
        EXPECT_EQ(game::PerfectGame(streaks, 6), text);
}

TEST(Evening, KnowsItsBestScoreOfEachKindOfGameFromTheSecondOn) {
    using enum game::GameKind;
    game::Evening evening;
    const std::tuple<game::GameKind, int, bool> games[] = {
        {NormalPlay, 20, false}, {Betting, 30, false},    {NormalPlay, 20, false},
        {NormalPlay, 21, true},  {NormalPlay, 20, false}, {Betting, 31, true}};
    for (const auto& [kind, score, isNewBest] : games)
        EXPECT_EQ(evening.IsNewBest(kind, score), isNewBest) << score;
}

} // namespace
