#include "tests/Robot.h"
#include "tests/toolkit/Pictures.h"
#include "toolkit/Picture.h"
#include "toolkit/c_SurfButton.h"
#include "toolkit/c_Surface.h"

#include <QPainter>
#include <QTest>
#include <gtest/gtest.h>

namespace {

using namespace toolkit;

QImage Plain(int width, int height, const QColor& color) {
    QImage image(width, height, QImage::Format_RGB888);
    image.fill(color);
    return image;
}

TEST(Surfaces, ScaleAFileToTheirSize) {
    const PictureFolder folder;
    folder.Save("images/2x/back.bmp", Plain(3, 9, QColor(1, 2, 3)));
    folder.Save("images/Back.BMP", Plain(8, 5, QColor(1, 2, 3)));
    for (const double ratio : {1.0, 1.25, 2.0}) {
        const AtRatio atRatio(ratio);
        c_Surface surfaces;
        const Hdc dc = surfaces.CreateSurface(4, 4, "\\IMAGES\\back.bmp");
        EXPECT_EQ(dc->Image().size(), Canvas(4, 4).Image().size()) << ratio;
        EXPECT_EQ(dc->Pixel(3, 3), Rgb(1, 2, 3));
    }
}

TEST(Pictures, ComeFromTheSetForTheScreen) {
    const PictureFolder folder;
    folder.Save("Images/Both.bmp", Plain(10, 6, Qt::red));
    folder.Save("Images/2x/both.bmp", Plain(20, 12, Qt::green));
    folder.Save("Images/1.5x/Half.bmp", Plain(15, 9, Qt::blue));
    folder.Save("Images/1.5x/Holes.bmp", Plain(15, 9, Qt::black));
    folder.Write("Images/2x/Holes.bmp", PictureFolder::Bytes(Plain(20, 12, Qt::green)).chopped(1));
    folder.Save("Images/3x/Holes.bmp", Plain(30, 18, Qt::blue));
    const std::tuple<double, QString, QSize, QColor> cases[] = {
        {1, "Images\\Both.bmp", {10, 6}, Qt::red},
        {1.5, "Images\\Half.bmp", {15, 9}, Qt::blue},
        {1.25, "Images\\Both.bmp", {13, 8}, Qt::green},
        {3, "Images\\Both.bmp", {30, 18}, Qt::red},
        {2, "Images\\Holes.bmp", {20, 12}, Qt::blue},
    };
    for (const auto& [ratio, file, size, color] : cases) {
        const AtRatio atRatio(ratio);
        const QImage picture = LoadSkin(file).load();
        EXPECT_EQ(picture.size(), size) << file.toStdString() << " at " << ratio;
        EXPECT_EQ(picture.pixelColor(0, 0), color) << file.toStdString();
    }
}

TEST(Pictures, AreScaledWithoutBlendingTheTransparentBlack) {
    const PictureFolder folder;
    const AtRatio ratio(1.6);
    QImage skin = Plain(200, 200, Qt::black);
    QPainter(&skin).fillRect(35, 51, 60, 60, QColor(10, 240, 90));
    QPainter(&skin).fillRect(95, 51, 60, 60, QColor(0, 0, 1));
    folder.Save("Images/2x/Skin.bmp", skin);
    const QImage scaled = LoadSkin("Images\\Skin.bmp").load();
    ASSERT_EQ(scaled.size(), QSize(160, 160));
    const QRect inside(28, 41, 96, 48);
    for (int y = 0; y < 160; ++y)
        for (int x = 0; x < 160; ++x) {
            const QRgb pixel = scaled.pixel(x, y);
            ASSERT_EQ(pixel != qRgb(0, 0, 0), inside.contains(x, y)) << x << ", " << y;
            ASSERT_TRUE(!inside.contains(x, y) || x >= 75 || pixel == qRgb(10, 240, 90)) << x;
        }
}

TEST(Pictures, CountByTheirColoursAlone) {
    const PictureFolder folder;
    QImage skin(40, 60, QImage::Format_ARGB32);
    for (const int alpha : {0, 77}) {
        skin.fill(qRgba(10, 240, 90, alpha));
        folder.Save("Images/Skin.bmp", skin, "PNG");
        EXPECT_EQ(LoadSkin("Images\\Skin.bmp").load().pixel(20, 30), qRgb(10, 240, 90)) << alpha;
    }
}

TEST(Pictures, ThatCannotBeUsedAreNamedTogetherOnce) {
    const PictureFolder folder;
    QImage unseen = Plain(40, 63, Qt::white); // until the pointer would be on it
    QPainter(&unseen).fillRect(0, 0, 40, 21, Qt::black);
    const QImage white = Plain(40, 63, Qt::white);
    const QByteArray whole = PictureFolder::Bytes(white);
    const QByteArray indexed = PictureFolder::Bytes(white.convertToFormat(QImage::Format_Indexed8));
    const std::pair<QString, QByteArray> cases[] = {
        {"Cut", whole.chopped(1)},
        {"Header", whole.left(54)},
        {"CutIndexed", indexed.chopped(1)},
        {"Empty", QByteArray()},
        {"Dot", PictureFolder::Bytes(Plain(1, 1, Qt::white))},
        {"TwoRows", PictureFolder::Bytes(Plain(40, 2, Qt::white))},
        {"Unseen", PictureFolder::Bytes(unseen)},
    };
    c_Surface surfaces;
    const Hdc dc = surfaces.CreateSurface(20, 10, "\\Images\\NoBack.bmp");
    EXPECT_NE(dc->Pixel(10, 5), kBlack) << "no ground in its place";
    LoadGround("images\\noback.bmp", QSize(4, 4));
    folder.Write("Images/CutBack.bmp", whole.chopped(1));
    LoadGround("Images\\CutBack.bmp", QSize(40, 63));
    QString named = "\nImages\\NoBack.bmp\nImages\\CutBack.bmp\n";
    for (const auto& [name, bytes] : cases) {
        folder.Write(QStringLiteral("Images/%1.bmp").arg(name), bytes);
        PictureBox box(nullptr, "pHint", QSize(40, 21));
        c_SurfButton button;
        button.Create(&box, QStringLiteral("Images\\%1.bmp").arg(name), QString());
        EXPECT_EQ(box.size(), QSize(40, 21)) << name.toStdString();
        EXPECT_TRUE(button.IsTouching(20, 10)) << name.toStdString();
        named += QStringLiteral("Images\\%1.bmp\n").arg(name);
    }
    PictureBox box(nullptr, "pX", QSize(44, 36));
    c_SurfButton button;
    button.Create(&box, "Images\\X.bmp", QString());
    button.Refresh();
    EXPECT_EQ(box.Picture().Pixel(15, 25), kWhite) << "no sign of the window's button";
    EXPECT_NE(box.Picture().Pixel(22, 11), kWhite);
    const Robot robot([] {});
    EXPECT_TRUE(QTest::qWaitFor([&] { return robot.Messages().join(u' ').contains(named); }));
}

} // namespace
