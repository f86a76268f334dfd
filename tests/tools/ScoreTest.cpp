#include "tools/songs/Chord.h"
#include "tools/songs/Figure.h"
#include "tools/songs/Performance.h"
#include "tools/songs/ScoreError.h"
#include "tools/songs/ScoreReader.h"

#include <gtest/gtest.h>
#include <sstream>

using namespace songs;

namespace {

const std::string kHeader = "title: Tune\n"
                            "artist: Traditional\n"
                            "genre: Folk\n"
                            "meter: 3/4\n"
                            "tempo: 60\n"
                            "lead: flute\n"
                            "chords: organ x--\n"
                            "bass: pluck 1.2\n"
                            "order: A\n";

Score Read(const std::string& text) {
    std::istringstream in(text);
    return ReadScore(in, "tune.score");
}

std::string ErrorOf(const std::string& text) {
    try {
        Read(text);
    } catch (const ScoreError& error) {
        return error.what();
    }
    return "none";
}

/// The header with the line that begins like `line` replaced by it.
std::string HeaderWith(const std::string& line) {
    const std::size_t start = kHeader.find(line.substr(0, line.find(':')));
    return std::string(kHeader).replace(start, kHeader.find('\n', start) - start, line);
}

std::vector<Note> Melody(const std::string& section) {
    return Read(kHeader + section).sections.front().melody;
}

TEST(ScoreTest, LengthsHoldAndAreDottedMadeTripletsAndTiedOverTheBarLine) {
    const std::vector<Note> expected = {{0, 72, 60},   {72, 16, 66},   {88, 16, 66},
                                        {104, 16, 70}, {144, 120, 62}, {276, 12, 62}};
    EXPECT_EQ(Melody("[A]\nC4q. F#e3 F# Bb Re | D4h ~e Rs Ds\n: C | C"), expected);
}

TEST(ScoreTest, AnUpbeatStartsBeforeTheFirstBarLine) {
    const std::vector<Note> expected = {{-48, 24, 67}, {-24, 24, 69}, {0, 144, 71}};
    EXPECT_EQ(Melody("[A]\nG4e A || B4h.\n: G"), expected);
}

TEST(ScoreTest, ChordsOfABarShareItEvenly) {
    const std::vector<ChordChange> chords =
        Read(kHeader + "[A]\nC4h. | C4h.\n: C . G7 | F").sections.front().chords;
    ASSERT_EQ(chords.size(), 3U);
    EXPECT_EQ(chords[1].start, 96);
    EXPECT_EQ(chords[1].chord, ReadChord("G7"));
    EXPECT_EQ(chords[2].start, 144);
}

TEST(ScoreTest, WhatIsWrongIsToldWithFileAndLine) {
    const std::string bars = "[A]\nC4h.\n: C\n";
    const struct {
        std::string text;
        std::string error;
    } cases[] = {
        {kHeader + "[A]\n\nC4q C C | C C\n: C | C",
         "tune.score:12: bar 2 of the line lasts 2 quarter notes instead of 3"},
        {kHeader + "[A]\nC4h. | C\n: C", "tune.score:12: 1 bars of chords for 2 bars of melody"},
        {kHeader + "[A]\nC4h.\nC4h.", "tune.score:12: the melody line before has no chords"},
        {kHeader + "[A]\nC4h.\n: C H", "tune.score:12: \"H\" begins with no note name"},
        {kHeader + "[A]\nC4h.\n: Cmin", "tune.score:12: unknown chord \"Cmin\""},
        {kHeader + "[A]\nC4h.\n: C C C C C", "tune.score:12: 5 chords do not divide a bar"},
        {kHeader + "[A]\nC4q Cx C\n: C", "tune.score:11: \"x\" makes no sense in \"Cx\""},
        {kHeader + "[A]\nCq C C\n: C", "tune.score:11: the first note has no octave"},
        {kHeader + "[A]\nC4 C C\n: C", "tune.score:11: the first note has no length"},
        {kHeader + "[A]\n~q C4 C\n: C", "tune.score:11: \"~q\" follows no note"},
        {kHeader + "[A]\nC4q C C || C C C\n: C",
         "tune.score:11: an upbeat lasts 3 quarter notes, but must be shorter than a bar"},
        {HeaderWith("order: A B") + bars, "tune.score:9: no section is called \"B\""},
        {HeaderWith("order: A=harp") + bars, "tune.score:9: unknown voice \"harp\""},
        {HeaderWith("order: A+25") + bars,
         "tune.score:9: a transposition is of 24 semitones at most"},
        {HeaderWith("chords: organ x----") + bars,
         "tune.score:7: the figure \"x----\" does not divide a bar"},
        {HeaderWith("tempo: fast") + bars, "tune.score:5: \"fast\" is no number"},
        {"mood: gay\n", "tune.score:1: unknown header line \"mood: gay\""},
        {"meter: 3/4\n" + bars, "tune.score:4: there is no title line"},
    };
    for (const auto& [text, error] : cases)
        EXPECT_EQ(ErrorOf(text), error);
}

TEST(ChordTest, TonesLieCloseAndTheBassBelowThem) {
    EXPECT_EQ(CloseTones(ReadChord("C")), (std::vector<int>{55, 60, 64}));
    EXPECT_EQ(CloseTones(ReadChord("F#m7")), (std::vector<int>{57, 61, 64, 66}));
    EXPECT_EQ(BassTones(ReadChord("C")), (std::vector<int>{48, 52, 55}));
    EXPECT_EQ(BassTones(ReadChord("G/B")), (std::vector<int>{47, 50, 55}));
    EXPECT_TRUE(BassTones(ReadChord("N")).empty());
}

TEST(FigureTest, SignsStrikeHoldAndRestAndAChordThatChangesIsStruckAnew) {
    const std::vector<ChordChange> rest = {{0, ReadChord("C")}, {144, ReadChord("N")}};
    const std::vector<Note> struck = {{0, 96, 55}, {0, 96, 60}, {0, 96, 64}, {96, 48, 67}};
    EXPECT_EQ(PlayFigure("x-4", 144, rest, CloseTones, 0, 288), struck);
    const std::vector<ChordChange> change = {{0, ReadChord("C")}, {96, ReadChord("G")}};
    const std::vector<Note> anew = {{0, 96, 48}, {96, 48, 43}};
    EXPECT_EQ(PlayFigure("1--", 144, change, BassTones, 0, 144), anew);
}

TEST(PerformanceTest, TurnsKeepTheirVoiceTempoAndPitchUntilTheyChange) {
    const Performance played =
        Perform(Read(HeaderWith("order: A A=bells@120+2 A-1") + "[A]\nC4h.\n: C\n"));
    ASSERT_EQ(played.lead.size(), 3U);
    const int keys[] = {60, 62, 59};
    const double starts[] = {0, 3, 4.5};
    for (std::size_t turn = 0; turn < 3; ++turn) {
        EXPECT_EQ(played.lead[turn].voice, turn == 0 ? &Flute : &Bells);
        EXPECT_EQ(played.lead[turn].key, keys[turn]);
        EXPECT_DOUBLE_EQ(played.lead[turn].start, starts[turn]);
    }
    EXPECT_DOUBLE_EQ(played.seconds, 6);
    EXPECT_DOUBLE_EQ(played.bass.back().seconds, 1.5) << "the last bar is held";
}

TEST(PerformanceTest, AnUpbeatCutsShortWhatWasPlayedBefore) {
    const Performance played =
        Perform(Read(HeaderWith("order: A A") + "[A]\nG4q || C5q D E\n: C\n"));
    ASSERT_EQ(played.lead.size(), 7U); // the first E gives way to the upbeat
    EXPECT_EQ(played.lead[3].key, 67);
    EXPECT_DOUBLE_EQ(played.lead[3].start, 3);
}

} // namespace
