// The bitmaps that the build renders from assets/skins, in the folder SONGRUSH_IMAGES.

#include <QImage>
#include <QRect>
#include <QString>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

namespace {

/// After WCAG 2.
double Luminance(QRgb color) {
    const auto linear = [](int channel) {
        const double value = channel / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) +
           0.0722 * linear(qBlue(color));
}

double Ratio(double one, double other) {
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

struct Skin {
    const char* file;
    int width, height; // of one frame
};

constexpr Skin kSkins[] = {
    {"X.bmp", 44, 36},       {"bMin.bmp", 36, 24},     {"bSingle.bmp", 400, 88},
    {"bMulti.bmp", 400, 88}, {"bEditor.bmp", 400, 88}, {"bPlayBig.bmp", 160, 160},
    {"bHint.bmp", 150, 54},  {"bCont.bmp", 220, 54},   {"BGeneric.bmp", 496, 66},
    {"bPlay.bmp", 34, 34},   {"bPause.bmp", 34, 34},   {"bStop.bmp", 34, 34},
    {"BFF.BMP", 34, 34},     {"sBar.bmp", 16, 48},
};

constexpr QRgb kHole = qRgb(0, 0, 0);

QImage Picture(const char* file, const char* folder = "") {
    return QImage(QStringLiteral(SONGRUSH_IMAGES "/") + QLatin1String(folder) +
                  QLatin1String(file));
}

std::vector<double> Luminances(const QImage& image, const QRect& area) {
    std::vector<double> all;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            all.push_back(Luminance(image.pixel(x, y)));
    }
    std::sort(all.begin(), all.end());
    return all;
}

TEST(Skins, HaveThreeFramesAtEveryScale) {
    const struct {
        const char* folder;
        double scale;
    } sets[] = {{"", 1}, {"1.5x/", 1.5}, {"2x/", 2}, {"3x/", 3}};
    for (const Skin& skin : kSkins) {
        for (const auto& set : sets) {
            EXPECT_EQ(Picture(skin.file, set.folder).size(),
                      QSize(skin.width, skin.height * 3) * set.scale)
                << skin.file << " at scale " << set.scale;
        }
    }
}

TEST(Skins, AreHolesOutsideAndWholeInsideWithOneOutlineInAllLooks) {
    for (const Skin& skin : kSkins) {
        SCOPED_TRACE(skin.file);
        const QImage image = Picture(skin.file);
        EXPECT_EQ(image.pixel(0, skin.height - 1), kHole);
        for (int y = 0; y < skin.height; ++y) {
            int edges = 0;
            bool hole = true;
            for (int x = 0; x < skin.width; ++x) {
                edges += (image.pixel(x, y) == kHole) != hole ? 1 : 0;
                hole = image.pixel(x, y) == kHole;
                ASSERT_EQ(image.pixel(x, y + skin.height) == kHole, hole) << x << ", " << y;
                ASSERT_EQ(image.pixel(x, y + 2 * skin.height) == kHole, hole) << x << ", " << y;
            }
            EXPECT_EQ(edges, hole ? 2 : 1) << "empty or broken row " << y;
        }
    }
}

TEST(Skins, TellTheirLooksApartWithoutColour) {
    for (const Skin& skin : kSkins) {
        SCOPED_TRACE(skin.file);
        const QImage image = Picture(skin.file);
        const auto half = [&](int index) {
            const std::vector<double> all =
                Luminances(image, {0, index * skin.height / 2, skin.width, skin.height / 2});
            return std::accumulate(all.begin(), all.end(), 0.0) / double(all.size());
        };
        const double normal = half(0) + half(1);
        EXPECT_GT(half(2) + half(3), 1.6 * normal) << "hover is brighter";
        EXPECT_LT(half(4) + half(5), 0.8 * normal) << "pressed lies in shadow";
        EXPECT_GT(half(0), half(1)) << "normal is lit from above";
        EXPECT_GT(half(5), half(4)) << "pressed is lit from below";
    }
}

TEST(Skins, CarryAWhiteCaptionOnAnAnswer) {
    const QImage image = Picture("BGeneric.bmp");
    for (int frame = 0; frame < 3; ++frame) {
        const double brightest = Luminances(image, {56, 66 * frame + 14, 384, 38}).back();
        EXPECT_GE(Ratio(1, brightest), 4.5) << "frame " << frame;
    }
}

TEST(Background, IsDarkWhereBrightTextsStand) {
    const QImage back = Picture("Back.bmp");
    ASSERT_EQ(back.size(), QSize(800, 600));
    for (const QRect& text :
         {QRect(10, 8, 190, 34), QRect(568, 88, 222, 38), QRect(335, 74, 130, 13),
          QRect(308, 92, 84, 24), QRect(100, 150, 600, 290), QRect(180, 550, 440, 40)}) {
        const std::vector<double> sorted = Luminances(back, text);
        EXPECT_LT(sorted[sorted.size() * 97 / 100], 0.02) << "at y " << text.top();
        EXPECT_LT(sorted.back(), 0.08) << "at y " << text.top();
    }
}

TEST(Background, LightsTheClockForDarkDigitsAndWhiteTitles) {
    const QImage back = Picture("Back.bmp");
    const std::vector<double> digits = Luminances(back, {422, 92, 72, 22});
    EXPECT_GE(Ratio(Luminance(qRgb(50, 0, 100)), digits.front()), 3);
    const std::vector<double> title = Luminances(back, {245, 109, 310, 33});
    EXPECT_GE(Ratio(1, title[title.size() * 99 / 100]), 3);
}

} // namespace
