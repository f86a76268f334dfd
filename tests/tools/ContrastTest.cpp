// The measuring of texts, on pictures whose contrast is known.

#include "tools/contrast/Luminance.h"
#include "tools/contrast/Measure.h"
#include "tools/contrast/TextTable.h"

#include <QColor>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

using namespace contrast;

namespace {

constexpr QRect kAll(0, 0, 360, 70);
constexpr Hand kWhite = {qRgb(255, 255, 255), 24, 0};
constexpr double kClose = 0.03; // of a ratio

QImage Ground(const QColor& color) {
    QImage picture(kAll.size(), QImage::Format_RGB32);
    picture.fill(color);
    return picture;
}

void Write(QImage& picture, const QColor& color, int size, int shadow = 0) {
    QPainter painter(&picture);
    QFont font(QStringLiteral("Liberation Serif"));
    font.setPixelSize(size);
    painter.setFont(font);
    if (shadow > 0) {
        painter.setPen(Qt::black);
        painter.drawText(20 + shadow, 50 + shadow, QStringLiteral("Oh! What a Song"));
    }
    painter.setPen(color);
    painter.drawText(20, 50, QStringLiteral("Oh! What a Song"));
}

double Ratio(const QColor& one, const QColor& other) {
    return contrast::Ratio(Luminance(one.rgb()), Luminance(other.rgb()));
}

TEST(Contrast, FollowsTheStandardsFigures) {
    EXPECT_NEAR(Ratio(Qt::white, Qt::black), 21, 1e-9);
    EXPECT_NEAR(Ratio(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.005);
    EXPECT_NEAR(Ratio(QColor(255, 0, 0), Qt::white), 4.00, 0.005);
    EXPECT_EQ(Limit(17.5), 4.5);
    EXPECT_EQ(Limit(18), 3);
}

TEST(Contrast, OfAnEvenGroundIsThatOfTheTwoColours) {
    const struct {
        QColor text, ground;
        int size, shadow;
    } cases[] = {
        {Qt::white, QColor(20, 16, 90), 32, 3},
        {QColor(50, 0, 100), QColor(120, 140, 255), 32, 0},
        {QColor(255, 0, 0), QColor(118, 118, 118), 43, 2},
        {QColor(140, 140, 230), QColor(60, 60, 60), 13, 1},
        {QColor(255, 50, 50), QColor(9, 7, 32), 16, 0},
    };
    for (const auto& [text, ground, size, shadow] : cases) {
        SCOPED_TRACE(qPrintable(text.name()));
        QImage picture = Ground(ground);
        Write(picture, text, size, shadow);
        const auto found = Measure(picture, kAll, {text.rgb(), size * 0.75, shadow});
        ASSERT_TRUE(found);
        const double expected = Ratio(text, ground);
        EXPECT_NEAR(found->typical, expected, expected * kClose);
        EXPECT_LE(found->worst, expected * 1.001);
        EXPECT_GE(found->worst, expected * 0.9);
    }
}

TEST(Contrast, IsThatOfTheWorstTenthOfTheGround) {
    const QColor dark(10, 10, 30);
    for (const QColor& light :
         {QColor(110, 110, 110), QColor(150, 150, 150), QColor(225, 225, 225)}) {
        SCOPED_TRACE(qPrintable(light.name()));
        QImage picture = Ground(dark);
        QPainter(&picture).fillRect(20, 0, 45, 70, light); // behind the first letter or two
        Write(picture, Qt::white, 32);
        const auto found = Measure(picture, kAll, kWhite);
        ASSERT_TRUE(found);
        EXPECT_NEAR(found->worst, Ratio(Qt::white, light), 0.3);
        EXPECT_NEAR(found->typical, Ratio(Qt::white, dark), 0.6);
    }
}

TEST(Contrast, IsNotRaisedByTheShadowNorByWhatLiesFarOff) {
    const QColor ground(140, 140, 140);
    QImage picture = Ground(ground);
    QPainter(&picture).fillRect(300, 0, 60, 70, Qt::black);
    Write(picture, Qt::white, 32, 3);
    const auto found = Measure(picture, kAll, {kWhite.color, kWhite.points, 3});
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->typical, Ratio(Qt::white, ground), 0.1);
}

TEST(Contrast, OfWhatCannotBeSeenIsNone) {
    QImage picture = Ground(Qt::white);
    EXPECT_FALSE(Measure(picture, kAll, kWhite)) << "no ground";
    EXPECT_FALSE(Measure(picture, kAll, {qRgb(255, 0, 0), 24, 0})) << "no text";
    EXPECT_FALSE(Measure(picture, kAll.translated(1, 0), kWhite)) << "outside";
    EXPECT_FALSE(Measure(QImage(), kAll, kWhite)) << "no picture";
}

TEST(TextTable, TakesTheLimitFromTheSizeOrFromTheLine) {
    const TextTable table =
        ParseTexts("# a comment\n\n"
                   "*-menu.png | credits | 300 70 200 18 | 140 140 230 | 10 | 1\n"
                   "*-menu.png | Back    | 370 398 29 34 | 255 0 100 | 18 | 2 | 2.5\n");
    ASSERT_EQ(table.error, "");
    ASSERT_EQ(table.texts.size(), 2u);
    EXPECT_EQ(table.texts[0].name, "credits");
    EXPECT_EQ(table.texts[0].area, QRect(300, 70, 200, 18));
    EXPECT_EQ(table.texts[0].hand.color, qRgb(140, 140, 230));
    EXPECT_EQ(table.texts[0].limit, 4.5);
    EXPECT_EQ(table.texts[1].limit, 2.5);
}

TEST(TextTable, TellsWhichLineCannotBeRead) {
    const char* wrong[] = {"a.png | b | 1 2 3 | 1 2 3 | 9 | 0", "a.png | b | 1 2 3 4 | 1 2 3 | 9",
                           "a.png | b | 1 2 3 x | 1 2 3 | 9 | 0"};
    for (const char* line : wrong)
        EXPECT_TRUE(ParseTexts(QString::fromUtf8("#\n") + line).error.startsWith("line 2")) << line;
}

} // namespace
