#include "toolkit/Canvas.h"
#include "tests/toolkit/Pictures.h"
#include "toolkit/Drawing.h"
#include "toolkit/c_Surface.h"

#include <QPainter>
#include <gtest/gtest.h>

namespace {

using namespace toolkit;

class AtAnyRatio : public testing::TestWithParam<double> {
protected:
    AtRatio mRatio{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Canvas, AtAnyRatio, testing::Values(1, 1.25, 1.5, 2, 3));

/// Even where a screen pixel covers more than a logical one.
class AtAnyScale : public AtAnyRatio {};

INSTANTIATE_TEST_SUITE_P(Canvas, AtAnyScale, testing::Values(0.6, 1, 1.5, 2));

TEST_P(AtAnyRatio, FilledNeighboursNeitherOverlapNorGapeNorLeaveTheCanvas) {
    Canvas canvas(7, 5);
    for (int x = 0; x < 7; ++x)
        for (int y = 0; y < 5; ++y)
            canvas.Fill(QRect(x, y, 1, 1), Rgb(x + 1, y + 1, 0));
    canvas.Fill(QRect(-2, -2, 20, 2), kWhite);
    canvas.Fill(QRect(7, 0, 2, 20), kWhite);
    const QImage& image = canvas.Image();
    EXPECT_EQ(image.size(), Canvas::ScreenPixels(QRect(0, 0, 7, 5)).size());
    for (int x = -1; x <= 7; ++x)
        for (int y = -1; y <= 5; ++y)
            EXPECT_EQ(canvas.Pixel(x, y),
                      QRect(0, 0, 7, 5).contains(x, y) ? Rgb(x + 1, y + 1, 0) : Canvas::kNoColor)
                << x << ", " << y;
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

/// A drawing of all kinds; what it copies from is drawn over afterwards.
Canvas Drawn() {
    Canvas ground(60, 50);
    Canvas sprite(20, 20);
    Canvas drawn(60, 50);
    Drawing(&ground).Gradient(0, 0, 60, 49, Rgb(0, 0, 250), Rgb(0, 200, 100));
    Drawing(&sprite).Lines(kWhite, 3, {{2, 2}, {17, 15}});
    Canvas mask = sprite;
    MaskPixels(mask, kBlack, kBlack, kWhite);
    BitBlt(&drawn, 0, 0, 60, 50, &ground, 0, 0, RasterOp::SrcCopy);
    DrawMasked(&drawn, 11, 5, 20, 20, &mask, &sprite, 0, 0);
    ground.Fill(QRect(0, 0, 60, 50), kRed);
    sprite.Fill(QRect(0, 0, 60, 50), kRed);
    Drawing drawing(&drawn);
    drawing.SetClip(QRect(0, 0, 50, 50));
    drawing.Text("Songrush", kRed, kBlack, 3, 22, 2);
    drawing.Lines(kGold, 1, {{0, 49}, {59, 40}});
    return drawn;
}

TEST_P(AtAnyScale, ShowsWhatWasDrawnAtAnother) {
    const Canvas expected = Drawn();
    const QImage pixels = expected.Image();
    Canvas::SetRatio(1.75);
    const Canvas canvas = Drawn();
    EXPECT_NE(canvas.Image(), pixels);
    Canvas::SetRatio(GetParam());
    EXPECT_EQ(canvas.Image(), pixels);
}

TEST_P(AtAnyScale, WritesToItsScale) {
    Canvas canvas(300, 60);
    canvas.SetFont(ScreenFont(24));
    const QString text = "HHHHHH";
    Drawing(&canvas).Text(text, kWhite, kBlack, 20, 10, 2);
    const QImage& image = canvas.Image();
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qRed(image.pixel(x, y)) > 100)
                ink |= QRect(x, y, 1, 1);
    EXPECT_NEAR(ink.left(), 21 * GetParam(), 2);
    EXPECT_NEAR(ink.width(), canvas.TextWidth(text) * GetParam(), 8);
}

TEST_P(AtAnyRatio, ForgetsNothingThatStillShows) {
    Canvas canvas(40, 30);
    for (int i = 0; i < 3000; ++i) // too many to be kept one by one
        canvas.Fill(QRect(i % 40, i % 30, 3, 2), Rgb(i % 256, 9, 9));
    canvas.Fill(QRect(0, 0, 20, 30), kGold);
    canvas.Fill(QRect(5, 5, 5, 5), kRed);
    Canvas::SetRatio(1.75);
    EXPECT_EQ(canvas.Pixel(15, 15), kGold);
    EXPECT_EQ(canvas.Pixel(7, 7), kRed);
    EXPECT_NE(canvas.Pixel(30, 20), kBlack);
}

TEST(Blits, LeaveOutWhatLiesOutsideEitherCanvas) {
    const std::tuple<QRect, QPoint, QRect> blits[] = {{{-2, -1, 5, 5}, {0, 0}, {0, 0, 3, 4}},
                                                      {{0, 0, 6, 6}, {4, 5}, {0, 0, 2, 1}},
                                                      {{0, 0, 6, 6}, {-2, -3}, {2, 3, 4, 3}},
                                                      {{-3, 8, 20, 6}, {-1, 4}, {0, 8, 4, 2}}};
    Canvas source(6, 6);
    Scribble(source);
    for (const auto& [area, from, drawn] : blits) {
        Canvas target(10, 10);
        BitBlt(&target, area.x(), area.y(), area.width(), area.height(), &source, from.x(),
               from.y(), RasterOp::SrcCopy);
        Canvas expected(10, 10);
        for (int x = drawn.left(); x <= drawn.right(); ++x)
            for (int y = drawn.top(); y <= drawn.bottom(); ++y)
                expected.Fill(QRect(x, y, 1, 1),
                              source.Pixel(x - area.x() + from.x(), y - area.y() + from.y()));
        EXPECT_EQ(target.Image(), expected.Image()) << area.x() << ", " << area.y();
    }
}

} // namespace
