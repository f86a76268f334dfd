#include "toolkit/Drawing.h"
#include "tests/toolkit/Pictures.h"
#include "toolkit/c_Surface.h"

#include <QPainter>
#include <gtest/gtest.h>

namespace {

using namespace toolkit;

constexpr QRect kAll(0, 0, 60, 50);
constexpr ColorRef kBrush = Rgb(10, 200, 30);

class Drawings : public testing::TestWithParam<double> {
protected:
    AtRatio mRatio{GetParam()};
    Canvas mCanvas{60, 50};
    Canvas mExpected{60, 50};
};

INSTANTIATE_TEST_SUITE_P(Ratio, Drawings, testing::Values(1, 1.25, 1.5, 2));

TEST_P(Drawings, OfNeighboursNeitherOverlapNorGapeNorLeaveTheCanvas) {
    for (int x = 0; x < 60; ++x)
        for (int y = 0; y < 50; ++y)
            mCanvas.Fill(QRect(x, y, 1, 1), Rgb(x + 1, y + 1, 0));
    mCanvas.Fill(QRect(-2, -2, 70, 2), kWhite);
    mCanvas.Fill(QRect(60, 0, 2, 50), kWhite);
    const QImage& image = mCanvas.Image();
    EXPECT_EQ(image.size(), Canvas::ScreenPixels(kAll).size());
    for (int x = -1; x <= 60; ++x)
        for (int y = -1; y <= 50; ++y)
            ASSERT_EQ(mCanvas.Pixel(x, y),
                      kAll.contains(x, y) ? Rgb(x + 1, y + 1, 0) : Canvas::kNoColor)
                << x << ", " << y;
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            ASSERT_NE(image.pixel(x, y), qRgb(0, 0, 0)) << "left out: " << x << ", " << y;
}

TEST_P(Drawings, AreShownPixelByPixelWhereverAWidgetStands) {
    Scribble(mCanvas);
    const QImage& image = mCanvas.Image();
    for (int place = 0; place < 8; ++place) {
        QImage screen(200, 200, QImage::Format_RGB32);
        screen.setDevicePixelRatio(GetParam());
        QPainter painter(&screen);
        painter.translate(place, place + 1);
        mCanvas.Show(painter);
        const QPoint at = Canvas::ScreenPixels(kAll.translated(place, place + 1)).topLeft();
        EXPECT_EQ(screen.copy(QRect(at, image.size())), image) << place;
    }
}

constexpr QRect kClip(12, 9, 41, 30);

/// A drawing of all kinds; what it copies from is drawn over afterwards.
Canvas Drawn(const QRect& clip) {
    Canvas drawn(60, 50);
    Canvas sprite(20, 20);
    Drawing(&sprite).Lines(kWhite, 3, {{2, 2}, {17, 15}});
    Canvas mask = sprite;
    MaskPixels(mask, kBlack, kBlack, kWhite);
    Drawing drawing(&drawn);
    drawing.SetClip(clip);
    drawing.Fill(kBrush, 0, 0, 60, 50);
    drawing.Gradient(0, 0, 60, 25, Rgb(200, 10, 20), kBrush);
    drawing.Box({kWhite, kGold, kBrush}, QRect(0, 0, 20, 12));
    drawing.Shapes(QRect(0, 0, 14, 50),
                   [](QPainter& painter) { painter.fillRect(0, 0, 14, 50, Qt::red); });
    drawing.Lines(kGold, 1, {{0, 42}, {60, 35}});
    drawing.Lines(kRed, 4, {{0, 0}, {60, 50}});
    drawing.Text("WWWWWWWWWW", kWhite, 0, 4);
    drawing.Text("WWWWWWWWWW", kWhite, kBlack, 0, 28, 2);
    DrawMasked(&drawn, 30, 10, 20, 20, &mask, &sprite, 0, 0);
    sprite.Fill(kAll, kRed);
    mask.Fill(kAll, kRed);
    return drawn;
}

TEST_P(Drawings, KeepToTheirClipAndAreTheSameWhenTheRatioChanges) {
    Canvas free = Drawn(kAll);
    BitBlt(&mExpected, kClip.x(), kClip.y(), kClip.width(), kClip.height(), &free, kClip.x(),
           kClip.y(), RasterOp::SrcCopy);
    free.Fill(kAll, kRed);
    const QImage pixels = mExpected.Image();
    Canvas::SetRatio(0.6); // a pixel of the screen covers more than a logical one
    EXPECT_NE(mExpected.Image(), pixels);
    const Canvas clipped = Drawn(kClip);
    EXPECT_EQ(clipped.Image(), mExpected.Image());
    Canvas::SetRatio(GetParam());
    EXPECT_EQ(clipped.Image(), pixels);
}

TEST_P(Drawings, AreNotForgottenWhileTheyShow) {
    for (int i = 0; i < 3000; ++i) // too many to be kept one by one
        mCanvas.Fill(QRect(i % 60, i % 50, 3, 2), Rgb(i % 256, 9, 9));
    Canvas gold(20, 50);
    gold.Fill(kAll, kGold);
    BitBlt(&mCanvas, 0, 0, 20, 50, &gold, 0, 0, RasterOp::SrcCopy);
    mCanvas.Fill(QRect(5, 5, 5, 5), kRed);
    Canvas::SetRatio(1.75);
    EXPECT_EQ(mCanvas.Pixel(15, 15), kGold);
    EXPECT_EQ(mCanvas.Pixel(7, 7), kRed);
    EXPECT_EQ(mCanvas.Pixel(30, 20) >> 8, 0x0909);
}

} // namespace
