#include "tests/Robot.h"
#include "tests/toolkit/Pictures.h"
#include "toolkit/Picture.h"
#include "toolkit/Stage.h"
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

TEST(Pictures, ComeFromTheSetForTheScreen) {
    const PictureFolder folder;
    QImage clear(10, 6, QImage::Format_ARGB32); // only its colours count
    clear.fill(qRgba(255, 0, 0, 77));
    folder.Save("Images/Both.BMP", clear, "PNG");
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
        c_Surface surfaces;
        const Hdc ground = surfaces.CreateSurface(5, 3, file.toUpper());
        EXPECT_EQ(ground->Image().size(), Canvas(5, 3).Image().size()) << file.toStdString();
    }
}

TEST(Pictures, AreScaledWithoutBlendingTheTransparentBlack) {
    const PictureFolder folder;
    const AtRatio ratio(1.6);
    constexpr QRgb kColor = qRgb(10, 240, 90);
    QImage skin = Plain(200, 200, Qt::black);
    QPainter(&skin).fillRect(35, 51, 120, 60, kColor);
    folder.Save("Images/2x/Skin.bmp", skin);
    const QImage scaled = LoadSkin("Images\\Skin.bmp").load();
    const QRect inside(28, 41, 96, 48);
    for (int y = 0; y < 160; ++y)
        for (int x = 0; x < 160; ++x)
            ASSERT_EQ(scaled.pixel(x, y), inside.contains(x, y) ? kColor : qRgb(0, 0, 0))
                << x << ", " << y;
}

TEST(Pictures, ThatCannotBeUsedAreNamedTogetherOnce) {
    Stage::Get(); // shows the message
    const PictureFolder folder;
    QImage unseen = Plain(40, 63, Qt::white); // until the pointer would be on it
    QPainter(&unseen).fillRect(0, 0, 40, 21, Qt::black);
    const QImage white = Plain(40, 63, Qt::white);
    const QImage indexed = white.convertToFormat(QImage::Format_Indexed8);
    const std::pair<QString, QByteArray> cases[] = {
        {"Cut", PictureFolder::Bytes(white).chopped(1)},
        {"CutIndexed", PictureFolder::Bytes(indexed).chopped(1)},
        {"Empty", QByteArray()},
        {"TwoRows", PictureFolder::Bytes(Plain(40, 2, Qt::white))},
        {"Unseen", PictureFolder::Bytes(unseen)},
    };
    c_Surface surfaces;
    const Hdc dc = surfaces.CreateSurface(20, 10, "\\Images\\NoBack.bmp");
    EXPECT_NE(dc->Pixel(10, 5), kBlack) << "no ground in its place";
    LoadGround("images\\noback.bmp", QSize(4, 4));
    QString named = "\nImages\\NoBack.bmp\n";
    for (const auto& [name, bytes] : cases) {
        folder.Write(QStringLiteral("Images/%1.bmp").arg(name), bytes);
        PictureBox box(nullptr, "pHint", QSize(40, 21));
        c_SurfButton button;
        button.Create(&box, QStringLiteral("Images\\%1.bmp").arg(name), QString());
        EXPECT_EQ(box.size(), QSize(40, 21)) << name.toStdString();
        EXPECT_TRUE(button.IsTouching(20, 10)) << name.toStdString();
        EXPECT_NE(button.Surfaces()->HDC(0)->Pixel(20, 52), kBlack) << "pressed";
        named += QStringLiteral("Images\\%1.bmp\n").arg(name);
    }
    const Robot robot([] {});
    EXPECT_TRUE(QTest::qWaitFor([&] { return robot.Messages().join(u' ').contains(named); }));
}

} // namespace
