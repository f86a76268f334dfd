// The bitmaps that the build renders from assets/skins, in the folder SONGRUSH_IMAGES.

#include <QImage>
#include <QString>
#include <gtest/gtest.h>
#include <utility>

namespace {

struct Skin {
    const char* file;
    int width, height; // of one frame
};

constexpr Skin kSkins[] = {
    {"X.bmp", 44, 36},       {"bMin.bmp", 36, 24},     {"bSingle.bmp", 400, 88},
    {"bMulti.bmp", 400, 88}, {"bEditor.bmp", 400, 88}, {"bPlayBig.bmp", 160, 160},
    {"bHint.bmp", 150, 54},  {"bCont.bmp", 220, 54},   {"BGeneric.bmp", 496, 66},
    {"bPlay.bmp", 34, 34},   {"bPause.bmp", 34, 34},   {"bStop.bmp", 34, 34},
    {"BFF.BMP", 34, 34},     {"bPrev.bmp", 34, 34},    {"bNext.bmp", 34, 34},
    {"sBar.bmp", 16, 48},
};

constexpr QRgb kHole = qRgb(0, 0, 0);

QImage Picture(const char* folder, const char* file) {
    return QImage(QStringLiteral(SONGRUSH_IMAGES "/%1/%2").arg(folder, file));
}

TEST(Skins, HaveThreeFramesAtEveryScale) {
    for (const Skin& skin : kSkins) {
        for (const auto& [folder, scale] :
             {std::pair(".", 1.0), {"1.5x", 1.5}, {"2x", 2}, {"3x", 3}})
            EXPECT_EQ(Picture(folder, skin.file).size(), QSize(skin.width, skin.height * 3) * scale)
                << skin.file << " in " << folder;
    }
}

TEST(Skins, AreHolesOutsideAndWholeInsideWithLooksThatDifferInBrightnessOnly) {
    for (const Skin& skin : kSkins) {
        SCOPED_TRACE(skin.file);
        const QImage image = Picture(".", skin.file);
        EXPECT_EQ(image.pixel(0, skin.height - 1), kHole);
        int brightness[3] = {};
        for (int y = 0; y < skin.height; ++y) {
            int edges = 0;
            bool hole = true;
            for (int x = 0; x < skin.width; ++x) {
                edges += (image.pixel(x, y) == kHole) != hole ? 1 : 0;
                hole = image.pixel(x, y) == kHole;
                for (int look = 0; look < 3; ++look) {
                    const QRgb pixel = image.pixel(x, y + look * skin.height);
                    ASSERT_EQ(pixel == kHole, hole) << x << ", " << y << " in look " << look;
                    brightness[look] += qGray(pixel);
                }
            }
            EXPECT_EQ(edges, hole ? 2 : 1) << "empty or broken row " << y;
        }
        EXPECT_GT(brightness[1], 1.4 * brightness[0]) << "hover is brighter";
        EXPECT_LT(brightness[2], 0.8 * brightness[0]) << "pressed lies in shadow";
    }
}

} // namespace
