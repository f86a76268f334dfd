// The bitmaps that the build renders from assets/skins, in the folder SONGRUSH_IMAGES.

#include <QImage>
#include <QString>
#include <gtest/gtest.h>

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

QImage Picture(const char* file, const char* folder = "") {
    return QImage(QStringLiteral(SONGRUSH_IMAGES "/") + QLatin1String(folder) +
                  QLatin1String(file));
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
        int brightness[3] = {};
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < skin.width; ++x)
                brightness[y / skin.height] += qGray(image.pixel(x, y));
        EXPECT_GT(brightness[1], 1.4 * brightness[0]) << "hover is brighter";
        EXPECT_LT(brightness[2], 0.8 * brightness[0]) << "pressed lies in shadow";
    }
}

} // namespace
