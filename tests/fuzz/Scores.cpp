#include "game/HighScoreTable.h"
#include "platform/Text.h"
#include "tests/fuzz/Target.h"

#include <gtest/gtest.h>

namespace {

using game::HighScoreTable;

void ExpectKept(const HighScoreTable& table) {
    HighScoreTable again;
    ASSERT_EQ(again.Parse(table.Serialise()), HighScoreTable::ReadResult::Good);
    EXPECT_EQ(again.Serialise(), table.Serialise());
}

void Run(const std::string& bytes) {
    HighScoreTable table;
    table.Parse(QByteArray::fromStdString(bytes));
    ExpectKept(table);
    for (const std::int32_t score : {0, 1, 100, 70000}) {
        if (const auto place = table.PlaceFor(score)) {
            table.Insert(*place, game::PlayerName(platform::ShownText(std::string_view(bytes))),
                         score);
            EXPECT_EQ(table.Score(*place), QString::number(score));
        }
    }
    ExpectKept(table);
}

const fuzz::Target kScores("scores", Run);

} // namespace
