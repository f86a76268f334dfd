#include "tests/toolkit/Pictures.h"
#include "toolkit/Picture.h"
#include "toolkit/c_SurfButton.h"
#include "toolkit/c_Surface.h"

#include <QApplication>
#include <QMessageBox>
#include <QPainter>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

using namespace toolkit;

QImage Plain(int width, int height, const QColor& color) {
    QImage image(width, height, QImage::Format_RGB888);
    image.fill(color);
    return image;
}

TEST(Surfaces, BecomeMasksOfTwoColours) {
    const ColorRef other = Rgb(0, 0, 9);
    const ColorRef replacement = Rgb(9, 0, 0);
    c_Surface surfaces;
    const Hdc dc = surfaces.CreateSurface(3, 2, QString());
    dc->Fill(QRect(1, 0, 1, 2), Rgb(0, 0, 1));
    dc->Fill(QRect(2, 0, 1, 1), kWhite);
    surfaces.CreateMask(0, kBlack, other, replacement);
    const ColorRef expected[2][3] = {{replacement, other, other},
                                     {replacement, other, replacement}};
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 3; ++x)
            EXPECT_EQ(dc->Pixel(x, y), expected[y][x]) << x << ", " << y;
}

TEST(Surfaces, KeepTheirSizeWhenAFileIsLoaded) {
    const PictureFolder folder;
    folder.Save(QStringLiteral("images/Back.BMP"), Plain(8, 5, QColor(1, 2, 3)));
    c_Surface surfaces;
    const Hdc dc = surfaces.CreateSurface(4, 4, QStringLiteral("\\IMAGES\\back.bmp"));
    EXPECT_EQ(dc->Pixel(7, 4), Rgb(1, 2, 3));
    EXPECT_EQ(surfaces.Width(0), 4);
    EXPECT_EQ(surfaces.Height(0), 4);
}

TEST(Pictures, ComeFromTheSetForTheScreen) {
    const PictureFolder folder;
    folder.Save(QStringLiteral("Images/Both.bmp"), Plain(10, 6, Qt::red));
    folder.Save(QStringLiteral("Images/2x/both.bmp"), Plain(20, 12, Qt::green));
    folder.Save(QStringLiteral("Images/1.5x/Half.bmp"), Plain(15, 9, Qt::blue));
    folder.Save(QStringLiteral("Images/Base.bmp"), Plain(10, 6, Qt::red));
    const struct {
        double ratio;
        const char* file;
        QSize size;
        QColor color;
    } cases[] = {
        {1, "Images\\Both.bmp", {10, 6}, Qt::red},
        {1.5, "Images\\Half.bmp", {15, 9}, Qt::blue},
        {1.25, "Images\\Both.bmp", {13, 8}, Qt::green},
        {1.5, "Images\\Both.bmp", {15, 9}, Qt::green},
        {2, "Images\\Both.bmp", {20, 12}, Qt::green},
        {3, "Images\\Both.bmp", {30, 18}, Qt::red},
        {2, "Images\\Base.bmp", {20, 12}, Qt::red},
    };
    for (const auto& expected : cases) {
        const AtRatio ratio(expected.ratio);
        const QImage picture = LoadPicture(QString::fromLatin1(expected.file));
        EXPECT_EQ(picture.size(), expected.size) << expected.file << " at " << expected.ratio;
        EXPECT_EQ(picture.pixelColor(0, 0), expected.color) << expected.file;
    }
}

TEST(Pictures, AreScaledWithoutBlendingTheTransparentBlack) {
    const PictureFolder folder;
    const AtRatio ratio(1.6);
    QImage disc(200, 200, QImage::Format_RGB32);
    disc.fill(Qt::black);
    QPainter(&disc).fillRect(35, 51, 60, 60, QColor(10, 240, 90));
    QPainter(&disc).fillRect(95, 51, 60, 60, QColor(0, 0, 1));
    folder.Save(QStringLiteral("Images/2x/Skin.bmp"), disc);
    const QImage scaled = LoadPicture(QStringLiteral("Images\\Skin.bmp"));
    ASSERT_EQ(scaled.size(), QSize(160, 160));
    for (int y = 0; y < 160; ++y) {
        for (int x = 0; x < 160; ++x) {
            const bool inside = x >= 28 && x < 124 && y >= 41 && y < 89;
            const QRgb pixel = scaled.pixel(x, y);
            ASSERT_EQ(pixel != qRgb(0, 0, 0), inside) << x << ", " << y;
            ASSERT_TRUE(!inside || x >= 75 || pixel == qRgb(10, 240, 90)) << x << ", " << y;
        }
    }
}

TEST(Pictures, ThatAreMissingAreNamedTogetherOnce) {
    const PictureFolder folder;
    c_Surface surfaces;
    const Hdc dc = surfaces.CreateSurface(20, 10, QStringLiteral("\\Images\\NoBack.bmp"));
    EXPECT_NE(dc->Pixel(10, 5), kBlack) << "no ground in its place";
    LoadGround(QStringLiteral("images\\noback.bmp"), QSize(4, 4));
    PictureBox box(nullptr, QStringLiteral("pHint"), QSize(40, 21));
    c_SurfButton button;
    button.Create(&box, QStringLiteral("Images\\NoHint.bmp"), QString());
    EXPECT_EQ(box.size(), QSize(40, 21));
    EXPECT_TRUE(button.IsTouching(20, 10));

    const auto message = [] {
        return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    };
    QString text;
    QTimer::singleShot(0, qApp, [&] {
        text = message()->text();
        message()->accept();
    });
    QCoreApplication::processEvents();
    EXPECT_TRUE(text.contains(QStringLiteral("\nImages\\NoBack.bmp\nImages\\NoHint.bmp\n")))
        << text.toStdString();
}

} // namespace
