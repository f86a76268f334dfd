#include "game/HighScoreTable.h"

#include "game/Evening.h"
#include "game/PerfectGame.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

using game::HighScoreTable;
using Result = HighScoreTable::ReadResult;

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
    // The names are those of a table that held "x" in all places before.
    const std::tuple<const char*, QByteArray, Result, QString> cases[] = {
        {"check line with blanks and decimals", QByteArray(good).replace("246\r\n", "  246.0x\r\n"),
         Result::Good, "abcdefghij"},
        {"other line ends", QByteArray(good).replace("\r\n", "\n"), Result::Good, "abcdefghij"},
        {"huge scores", Record("z", QByteArray(400, '9')).repeated(10), Result::Good, "zzzzzzzzzz"},
        {"score edited", QByteArray(good).replace("60", "61"), Result::Tampered,
         QString("Blank").repeated(10)},
        {"wrong before it ends too early", "a\r\n1\r\n2\r\n", Result::Tampered,
         QString("Blank").repeated(10)},
        {"last line missing", good.chopped(5), Result::Unreadable, "xxxxxxxxxx"},
        {"a megabyte of zeros", QByteArray(1 << 20, '\0'), Result::Unreadable, "xxxxxxxxxx"},
    };
    for (const auto& [what, file, result, names] : cases) {
        HighScoreTable table;
        for (int i = 0; i < HighScoreTable::kPlaces; ++i)
            table.Insert(0, "x", 5);
        EXPECT_EQ(table.Parse(file), result) << what;
        EXPECT_EQ(Names(table), names) << what;
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
        if (place != kNone) {
            table.Insert(place, "*", score);
            EXPECT_TRUE(table.IsNew(place));
        }
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
