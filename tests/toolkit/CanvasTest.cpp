#include "toolkit/Canvas.h"
#include "tests/toolkit/Pictures.h"

#include <QPainter>
#include <gtest/gtest.h>

namespace {

using namespace toolkit;

class AtAnyRatio : public testing::TestWithParam<double> {
protected:
    AtRatio mRatio{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Canvas, AtAnyRatio, testing::Values(1, 1.25, 1.5, 2, 3));

TEST_P(AtAnyRatio, FilledNeighboursNeitherOverlapNorGapeNorLeaveTheCanvas) {
    Canvas canvas(7, 5);
    for (int x = 0; x < 7; ++x)
        for (int y = 0; y < 5; ++y)
            canvas.Fill(QRect(x, y, 1, 1), Rgb(x + 1, y + 1, 0));
    canvas.Fill(QRect(-2, -2, 20, 2), kWhite);
    canvas.Fill(QRect(7, 0, 2, 20), kWhite);
    EXPECT_EQ(canvas.Pixel(-1, 0), Canvas::kNoColor);
    EXPECT_EQ(canvas.Pixel(0, 5), Canvas::kNoColor);
    for (int x = 0; x < 7; ++x)
        for (int y = 0; y < 5; ++y)
            EXPECT_EQ(canvas.Pixel(x, y), Rgb(x + 1, y + 1, 0)) << x << ", " << y;
    const QImage& image = canvas.Image();
    EXPECT_EQ(image.size(), Canvas::ScreenPixels(QRect(0, 0, 7, 5)).size());
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            EXPECT_NE(image.pixel(x, y), qRgb(0, 0, 0)) << "left out: " << x << ", " << y;
}

TEST_P(AtAnyRatio, IsShownPixelByPixelWhereverAWidgetStands) {
    Canvas canvas(9, 7);
    Scribble(canvas);
    for (int place = 0; place < 8; ++place) {
        QImage screen(60, 60, QImage::Format_RGB32);
        screen.setDevicePixelRatio(GetParam());
        QPainter painter(&screen);
        painter.translate(place, place + 1);
        canvas.Show(painter);
        const QPoint at = Canvas::ScreenPixels(QRect(place, place + 1, 9, 7)).topLeft();
        const QImage& image = canvas.Image();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                ASSERT_EQ(screen.pixel(at + QPoint(x, y)), image.pixel(x, y)) << x << ", " << y;
    }
}

TEST(Blits, LeaveOutWhatLiesOutsideEitherCanvas) {
    const struct {
        QRect area;
        QPoint from;
        QRect drawn;
    } blits[] = {
        {{2, 3, 4, 2}, {1, 1}, {2, 3, 4, 2}}, {{-2, -1, 5, 5}, {0, 0}, {0, 0, 3, 4}},
        {{0, 0, 6, 6}, {4, 5}, {0, 0, 2, 1}}, {{0, 0, 6, 6}, {-2, -3}, {2, 3, 4, 3}},
        {{20, 0, 6, 6}, {0, 0}, {}},          {{-3, 2, 9, 2}, {-1, 4}, {0, 2, 4, 2}},
    };
    Canvas source(6, 6);
    Scribble(source);
    for (const auto& blit : blits) {
        Canvas target(10, 10);
        BitBlt(&target, blit.area.x(), blit.area.y(), blit.area.width(), blit.area.height(),
               &source, blit.from.x(), blit.from.y(), RasterOp::SrcCopy);
        for (int y = 0; y < 10; ++y) {
            for (int x = 0; x < 10; ++x) {
                const QPoint from = QPoint(x, y) - blit.area.topLeft() + blit.from;
                EXPECT_EQ(target.Pixel(x, y),
                          blit.drawn.contains(x, y) ? source.Pixel(from.x(), from.y()) : kBlack)
                    << x << ", " << y << " to " << blit.area.x() << ", " << blit.area.y();
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
    Scribble(mask, 60);
    for (const QPoint at : {QPoint(3, 4), QPoint(-4, -5), QPoint(25, 25), QPoint(40, 0)}) {
        Canvas drawn = ground;
        DrawMasked(&drawn, at.x(), at.y(), 11, 11, &mask, &sprite, 0, 11);
        for (int x = 0; x < 30; ++x)
            for (int y = 0; y < 30; ++y) {
                const QPoint from = QPoint(x, y) - at;
                const ColorRef before = ground.Pixel(x, y);
                EXPECT_EQ(drawn.Pixel(x, y), !QRect(0, 0, 11, 11).contains(from)
                                                 ? before
                                                 : (before & mask.Pixel(from.x(), from.y() + 11)) |
                                                       sprite.Pixel(from.x(), from.y() + 11));
            }
    }
}

} // namespace
