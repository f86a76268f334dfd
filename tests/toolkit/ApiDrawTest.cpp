#include "tests/toolkit/Pictures.h"
#include "toolkit/Drawing.h"

#include <QLineF>
#include <QPainter>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace {

using namespace toolkit;

constexpr ColorRef kPen = Rgb(200, 10, 20);
constexpr ColorRef kBrush = Rgb(10, 200, 30);

class Drawings : public testing::TestWithParam<double> {
protected:
    AtRatio mRatio{GetParam()};
    Canvas mCanvas{40, 30};
    Canvas mExpected{40, 30};
};

INSTANTIATE_TEST_SUITE_P(Ratio, Drawings, testing::Values(1, 1.5, 2));

TEST_P(Drawings, OfALineLeaveItsLastPointOut) {
    const std::pair<QLineF, std::vector<QPoint>> lines[] = {
        {{2, 3, 5, 3}, {{2, 3}, {3, 3}, {4, 3}}},
        {{2, 15, 4, 13}, {{2, 15}, {3, 14}}},
        {{4, 24, 4, 24}, {}},
        {{12.5, 3.5, 14.5, 3.5}, {{12, 4}, {13, 4}}}, // halves go to the even neighbour
        {{-2, 0, 2, 0}, {{0, 0}, {1, 0}}},
    };
    BeginDraw(&mCanvas, Qt::SolidLine, kPen, 1, kBrush, BkMode::Transparent);
    for (const auto& [line, points] : lines) {
        PenMoveTo(line.x1(), line.y1());
        PenLineTo(line.x2(), line.y2());
        for (const QPoint& point : points)
            mExpected.Fill(QRect(point, QSize(1, 1)), kPen);
        EXPECT_EQ(mCanvas.Image(), mExpected.Image()) << line.x1() << ", " << line.y1();
    }
    EndDraw();
}

TEST_P(Drawings, OfABoxAreLightAboveAndDarkBelow) {
    Drawing(&mCanvas).Box({kWhite, kRed, kBrush}, QRect(2, 3, 4, 4));
    mExpected.Fill(QRect(2, 3, 4, 4), kRed);
    mExpected.Fill(QRect(2, 3, 4, 1), kWhite);
    mExpected.Fill(QRect(2, 4, 1, 2), kWhite);
    mExpected.Fill(QRect(3, 4, 2, 2), kBrush);
    EXPECT_EQ(mCanvas.Image(), mExpected.Image());
}

TEST_P(Drawings, KeepToTheirClip) {
    const QRect clip(12, 9, 11, 7);
    Canvas free(40, 30);
    for (Canvas* canvas : {&mCanvas, &free}) {
        Drawing drawing(canvas);
        if (canvas == &mCanvas)
            drawing.SetClip(clip);
        drawing.Fill(kBrush, 0, 0, 40, 30);
        drawing.Gradient(0, 0, 40, 15, kPen, kBrush);
        drawing.Box({kPen, kPen, kBrush}, QRect(0, 0, 20, 12));
        drawing.Shapes(QRect(0, 0, 14, 30),
                       [](QPainter& painter) { painter.fillRect(0, 0, 14, 30, Qt::red); });
        drawing.Lines(kPen, 1, {{0, 12}, {40, 12}});
        drawing.Lines(kPen, 4, {{0, 0}, {40, 30}});
        drawing.Text("WWWWWWWW", kPen, 0, 4);
        drawing.Text("WWWWWWWW", kPen, kBrush, 0, 8, 2);
    }
    FillBox(0, 0, 40, 30); // after the last drawing
    BitBlt(&mExpected, clip.x(), clip.y(), clip.width(), clip.height(), &free, clip.x(), clip.y(),
           RasterOp::SrcCopy);
    EXPECT_EQ(mCanvas.Image(), mExpected.Image());
    EXPECT_EQ(free.Pixel(4, 3), kPen) << "no wide line";
}

TEST(Panel, LeavesNothingOfWhatWasDrawnBefore) {
    Canvas canvas(40, 30);
    const auto before = std::make_shared<int>();
    canvas.Draw(QRect(5, 5, 9, 9), false, [before](QImage&) {});
    DrawPanel(&canvas);
    EXPECT_EQ(before.use_count(), 1);
}

} // namespace
