#include "tests/toolkit/Pictures.h"
#include "toolkit/Drawing.h"

#include <QPainter>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <utility>
#include <vector>

namespace {

using namespace toolkit;
using Points = std::set<std::pair<int, int>>;

constexpr ColorRef kPen = Rgb(200, 10, 20);
constexpr ColorRef kBrush = Rgb(10, 200, 30);

Points Painted(const Canvas& canvas, ColorRef color) {
    Points points;
    for (int x = 0; x < canvas.Width(); ++x)
        for (int y = 0; y < canvas.Height(); ++y)
            if (canvas.Pixel(x, y) == color)
                points.emplace(x, y);
    return points;
}

Points Box(int left, int top, int width, int height) {
    Points points;
    for (int x = left; x < left + width; ++x)
        for (int y = top; y < top + height; ++y)
            points.emplace(x, y);
    return points;
}

class Brackets : public testing::TestWithParam<double> {
protected:
    Brackets() { BeginDraw(&mCanvas, Qt::SolidLine, kPen, 1, kBrush, BkMode::Transparent); }
    ~Brackets() override { EndDraw(); }

    AtRatio mRatio{GetParam()};
    Canvas mCanvas{40, 30};
};

class Gradients : public Brackets {};

INSTANTIATE_TEST_SUITE_P(Ratio, Brackets, testing::Values(1, 1.5, 2));
INSTANTIATE_TEST_SUITE_P(Ratio, Gradients, testing::Values(1, 2, 3));

TEST_P(Brackets, ALineLeavesItsLastPointOut) {
    const struct {
        double x1, y1, x2, y2;
        Points points;
    } lines[] = {
        {2, 3, 5, 3, {{2, 3}, {3, 3}, {4, 3}}}, {2, 5, 4, 3, {{2, 5}, {3, 4}}}, {4, 4, 4, 4, {}},
        {2.5, 3.5, 4.5, 3.5, {{2, 4}, {3, 4}}}, // halves go to the even neighbour
        {-2, 0, 2, 0, {{0, 0}, {1, 0}}},
    };
    for (const auto& line : lines) {
        mCanvas.Fill(QRect(0, 0, 40, 30), kBlack);
        PenMoveTo(line.x1, line.y1);
        PenLineTo(line.x2, line.y2);
        EXPECT_EQ(Painted(mCanvas, kPen), line.points) << line.x1 << ", " << line.y1;
    }
}

TEST_P(Brackets, ABoxIsLightAboveAndDarkBelow) {
    const ColorRef light = Rgb(250, 250, 250);
    const ColorRef dark = Rgb(60, 60, 60);
    DrawBox(light, dark, kBrush, 2, 3, 5, 6);
    EXPECT_EQ(Painted(mCanvas, kBrush), Box(3, 4, 2, 2));
    EXPECT_EQ(Painted(mCanvas, light), (Points{{5, 3}, {4, 3}, {3, 3}, {2, 3}, {2, 4}, {2, 5}}));
    EXPECT_EQ(Painted(mCanvas, dark), (Points{{2, 6}, {3, 6}, {4, 6}, {5, 6}, {5, 5}, {5, 4}}));
}

TEST_P(Gradients, RunAlongLinesAt45Degrees) {
    for (const QRect& box : {QRect(3, 3, 6, 5), QRect(20, 3, 4, 7)}) { // eleven steps each
        GradientBox(box.x(), box.y(), box.x() + box.width(), box.bottom(), Rgb(0, 200, 50),
                    Rgb(220, 90, 61));
        for (int x = box.left(); x <= box.right(); ++x)
            for (int y = box.top(); y <= box.bottom(); ++y) {
                const int step = x - box.x() + y - box.y() + 1;
                EXPECT_EQ(mCanvas.Pixel(x, y), Rgb(20 * step, 200 - 10 * step, 50 + step))
                    << x << ", " << y;
            }
    }
    EXPECT_EQ(Painted(mCanvas, kBlack).size(), 40 * 30 - 6 * 5 - 4 * 7);
    GradientBox(30, 3, 30, 7, kWhite, kWhite);
    EXPECT_EQ(Painted(mCanvas, kWhite), Box(30, 3, 1, 5));
}

TEST(Panel, LeavesNothingOfWhatWasDrawnBefore) {
    Canvas canvas(40, 30);
    const auto before = std::make_shared<int>();
    canvas.Draw(QRect(5, 5, 9, 9), false, [before](QImage&) {});
    DrawPanel(&canvas);
    EXPECT_EQ(before.use_count(), 1);
}

class Drawings : public testing::TestWithParam<double> {};

INSTANTIATE_TEST_SUITE_P(Ratio, Drawings, testing::Values(1, 2, 3));

TEST_P(Drawings, KeepToTheirClip) {
    const AtRatio ratio(GetParam());
    const QRect clip(12, 9, 11, 7);
    Canvas clipped(40, 30);
    Canvas free(40, 30);
    for (Canvas* canvas : {&clipped, &free}) {
        Drawing drawing(canvas);
        if (canvas == &clipped)
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
    for (int x = 0; x < 40; ++x)
        for (int y = 0; y < 30; ++y)
            ASSERT_EQ(clipped.Pixel(x, y), clip.contains(x, y) ? free.Pixel(x, y) : kBlack)
                << x << ", " << y;
}

} // namespace
