#include "game/Choices.h"

#include "game/LikeTitles.h"
#include "platform/Chance.h"

#include <QStringList>
#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

namespace {

/// These random numbers and no more.
std::function<double()> Numbers(const std::vector<double>& numbers) {
    return [numbers, used = std::size_t{0}]() mutable { return numbers.at(used++); };
}

std::string NumberedFile(int index) { return "/music/song" + std::to_string(index) + ".mp3"; }

TEST(Choices, DrawsRoundHalfToEvenAndSkipWhatIsAlreadyThere) {
    // Of 11 entries:          0 first, 2, 2 drawn, 3 now, 4,  10,   6;  slot 2
    platform::ReplaceRandom(Numbers({0.04, 0.25, 0.2, 0.3, 0.35, 0.999, 0.55, 0.5}));
    const auto choices = game::DrawChoices(11, NumberedFile, "/MUSIC/Song3.MP3");
    EXPECT_EQ(choices.candidates, (std::array{2, 4, 10, 6}));
    EXPECT_EQ(choices.correctSlot, 2);
    // A hint beside slot 1:         1,   3,   3,    0
    platform::ReplaceRandom(Numbers({0.4, 0.9, 0.95, 0.1}));
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
}

TEST(Choices, ARareSongIsFoundInALongList) {
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
        {"", ""},
    };
    for (const auto& [title, compared] : titles)
        EXPECT_EQ(game::ComparedTitle(title), QString::fromUtf8(compared)) << title;
}

} // namespace
