#include "toolkit/Canvas.h"
#include "tests/toolkit/Pictures.h"

#include <gtest/gtest.h>

namespace {

using namespace toolkit;

class AtAnyRatio : public testing::TestWithParam<double> {
protected:
    AtRatio mRatio{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Canvas, AtAnyRatio, testing::Values(1, 1.25, 1.5, 2, 3));

TEST_P(AtAnyRatio, FilledNeighboursNeitherOverlapNorGape) {
    Canvas canvas(7, 5);
    for (int x = 0; x < 7; ++x)
        for (int y = 0; y < 5; ++y)
            canvas.Fill(QRect(x, y, 1, 1), Rgb(x + 1, y + 1, 0));
    for (int x = 0; x < 7; ++x)
        for (int y = 0; y < 5; ++y)
            EXPECT_EQ(canvas.Pixel(x, y), Rgb(x + 1, y + 1, 0)) << x << ", " << y;
    const QImage& image = canvas.Image();
    EXPECT_EQ(image.size(), Canvas::ScreenPixels(QRect(0, 0, 7, 5)).size());
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            EXPECT_NE(image.pixel(x, y), qRgb(0, 0, 0)) << "left out: " << x << ", " << y;
}

TEST_P(AtAnyRatio, FillsAndReadsNothingOutside) {
    Canvas canvas(4, 3);
    canvas.Fill(QRect(-5, -5, 20, 20), kWhite);
    canvas.Fill(QRect(4, 0, 3, 3), kBlack);
    canvas.Fill(QRect(0, -2, 4, 2), kBlack);
    for (const QPoint at : {QPoint(0, 0), QPoint(3, 0), QPoint(0, 2), QPoint(3, 2)})
        EXPECT_EQ(canvas.Pixel(at.x(), at.y()), kWhite);
    for (const QPoint at : {QPoint(-1, 0), QPoint(0, -1), QPoint(4, 0), QPoint(0, 3)})
        EXPECT_EQ(canvas.Pixel(at.x(), at.y()), Canvas::kNoColor);
}

TEST_P(AtAnyRatio, ASpriteNeverShowsTheFrameBelowItsOwn) {
    constexpr int kHeight = 7;
    Canvas sprite(5, 3 * kHeight);
    sprite.Fill(QRect(0, 0, 5, kHeight), Rgb(1, 0, 0));
    sprite.Fill(QRect(0, kHeight, 5, kHeight), Rgb(2, 0, 0));
    sprite.Fill(QRect(0, 2 * kHeight, 5, kHeight), Rgb(3, 0, 0));
    Canvas mask(5, 3 * kHeight);
    for (int frame = 0; frame < 3; ++frame) {
        for (int y = 0; y < 4; ++y) {
            Canvas ground(5, 20);
            DrawMasked(&ground, 0, y, 5, kHeight, &mask, &sprite, 0, frame * kHeight);
            for (int row = 0; row < ground.Image().height(); ++row) {
                const int red = qRed(ground.Image().pixel(0, row));
                EXPECT_TRUE(red == 0 || red == frame + 1) << "frame " << frame << " row " << row;
            }
        }
    }
}

struct Blit {
    QRect area;
    QPoint from;
    QRect drawn;
};

TEST(Blits, LeaveOutWhatLiesOutsideEitherCanvas) {
    const Blit blits[] = {
        {{2, 3, 4, 2}, {1, 1}, {2, 3, 4, 2}},
        {{-2, -1, 5, 5}, {0, 0}, {0, 0, 3, 4}},
        {{8, 9, 5, 5}, {0, 0}, {8, 9, 2, 1}},
        {{1, 1, 20, 20}, {0, 0}, {1, 1, 6, 6}},
        {{0, 0, 6, 6}, {4, 5}, {0, 0, 2, 1}},
        {{0, 0, 6, 6}, {-2, -3}, {2, 3, 4, 3}},
        {{0, 0, 6, 6}, {6, 0}, {}},
        {{20, 0, 6, 6}, {0, 0}, {}},
        {{-3, 2, 9, 2}, {-1, 4}, {0, 2, 4, 2}},
    };
    Canvas source(6, 6);
    Scribble(source);
    for (const Blit& blit : blits) {
        Canvas target(10, 10);
        BitBlt(&target, blit.area.x(), blit.area.y(), blit.area.width(), blit.area.height(),
               &source, blit.from.x(), blit.from.y(), RasterOp::SrcCopy);
        for (int y = 0; y < 10; ++y) {
            for (int x = 0; x < 10; ++x) {
                const QPoint from = QPoint(x, y) - blit.area.topLeft() + blit.from;
                EXPECT_EQ(target.Pixel(x, y),
                          blit.drawn.contains(x, y) ? source.Pixel(from.x(), from.y()) : kBlack)
                    << x << ", " << y << " of the blit to " << blit.area.x() << ", "
                    << blit.area.y();
            }
        }
    }
}

TEST(Blits, OfASpriteAreItsMaskAndThenItself) {
    const AtRatio ratio(2);
    Canvas ground(30, 30);
    Canvas sprite(11, 33);
    Canvas mask(11, 33);
    Scribble(ground);
    Scribble(sprite, 90);
    mask.Fill(QRect(2, 0, 5, 33), kWhite);
    sprite.Fill(QRect(2, 0, 5, 33), kBlack);
    for (const QPoint at : {QPoint(3, 4), QPoint(-4, -5), QPoint(25, 25), QPoint(40, 0)}) {
        Canvas twoSteps = ground;
        BitBlt(&twoSteps, at.x(), at.y(), 11, 11, &mask, 0, 11, RasterOp::SrcAnd);
        BitBlt(&twoSteps, at.x(), at.y(), 11, 11, &sprite, 0, 11, RasterOp::SrcPaint);
        Canvas oneStep = ground;
        DrawMasked(&oneStep, at.x(), at.y(), 11, 11, &mask, &sprite, 0, 11);
        EXPECT_EQ(oneStep.Image(), twoSteps.Image()) << at.x() << ", " << at.y();
    }
}

TEST(Blits, CombineTheBitsOfEachComponent) {
    Canvas target(2, 1);
    Canvas source(2, 1);
    target.Fill(QRect(0, 0, 2, 1), Rgb(0x0F, 0xF0, 0xAA));
    source.Fill(QRect(0, 0, 2, 1), Rgb(0x3C, 0x3C, 0x55));
    BitBlt(&target, 0, 0, 1, 1, &source, 0, 0, RasterOp::SrcAnd);
    BitBlt(&target, 1, 0, 1, 1, &source, 1, 0, RasterOp::SrcPaint);
    EXPECT_EQ(target.Pixel(0, 0), Rgb(0x0C, 0x30, 0x00));
    EXPECT_EQ(target.Pixel(1, 0), Rgb(0x3F, 0xFC, 0xFF));
}

} // namespace
