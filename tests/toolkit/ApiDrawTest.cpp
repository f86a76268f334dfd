#include "tests/toolkit/Pictures.h"
#include "toolkit/Drawing.h"

#include <QPainter>
#include <functional>
#include <gtest/gtest.h>
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
    Brackets() { Begin(mCanvas); }
    ~Brackets() override { EndDraw(); }

    static void Begin(Canvas& canvas) {
        BeginDraw(&canvas, Qt::SolidLine, kPen, 1, kBrush, BkMode::Transparent);
    }

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
    DrawBox(light, dark, kBrush, 2, 3, 6, 7);
    EXPECT_EQ(Painted(mCanvas, kBrush), Box(3, 4, 3, 3));
    EXPECT_EQ(Painted(mCanvas, light),
              (Points{{6, 3}, {5, 3}, {4, 3}, {3, 3}, {2, 3}, {2, 4}, {2, 5}, {2, 6}}));
    EXPECT_EQ(Painted(mCanvas, dark),
              (Points{{2, 7}, {3, 7}, {4, 7}, {5, 7}, {6, 7}, {6, 6}, {6, 5}, {6, 4}}));
}

/// The sweep as a pen draws it, line by line.
void Sweep(int x1, int y1, int x2, int y2, RgbParts start, RgbParts end) {
    --y1;
    const auto steps = static_cast<float>(x2 - x1 + y2 - y1);
    float red = start.red;
    float green = start.green;
    float blue = start.blue;
    QPoint nearPoint(x1, y1);
    QPoint farPoint(x1, y1);
    while (farPoint.y() < y2) {
        const auto part = [](float value) { return static_cast<int>(std::nearbyint(value)); };
        SetDrawPen(Qt::SolidLine, Rgb(part(red), part(green), part(blue)), 1);
        red += static_cast<float>(end.red - start.red) / steps;
        green += static_cast<float>(end.green - start.green) / steps;
        blue += static_cast<float>(end.blue - start.blue) / steps;
        PenMoveTo(nearPoint.x(), nearPoint.y());
        PenLineTo(farPoint.x(), farPoint.y());
        farPoint += farPoint.x() < x2 ? QPoint(1, 0) : QPoint(0, 1);
        nearPoint += y2 <= nearPoint.y() ? QPoint(1, 0) : QPoint(0, 1);
    }
}

TEST_P(Gradients, AreSweepsOfLinesAt45Degrees) {
    for (const QRect& box : {QRect(3, 3, 20, 9), QRect(1, 2, 5, 20), QRect(4, 4, 1, 12)}) {
        const int right = box.x() + box.width();
        const int bottom = box.y() + box.height();
        Canvas expected(40, 30);
        Begin(expected);
        Sweep(box.x(), box.y(), right, bottom, {0, 200, 50}, {250, 50, 20});
        Canvas actual(40, 30);
        Begin(actual);
        GradientBox(box.x(), box.y(), right, bottom, Rgb(0, 200, 50), Rgb(250, 50, 20));
        for (int x = 0; x < 40; ++x)
            for (int y = 0; y < 30; ++y)
                ASSERT_EQ(actual.Pixel(x, y), expected.Pixel(x, y)) << x << ", " << y;
    }
    Begin(mCanvas);
    GradientBox(20, 3, 20, 7, kWhite, kWhite);
    EXPECT_EQ(Painted(mCanvas, kWhite), Box(20, 3, 1, 5));
}

class Drawings : public testing::TestWithParam<double> {};

INSTANTIATE_TEST_SUITE_P(Ratio, Drawings, testing::Values(1, 2, 3));

TEST_P(Drawings, KeepToTheirClip) {
    const QRect clip(12, 9, 11, 7);
    const std::pair<const char*, std::function<void(Drawing&)>> draws[] = {
        {"fill", [](Drawing& drawing) { drawing.Fill(kBrush, 0, 0, 40, 30); }},
        {"box",
         [](Drawing& drawing) {
             drawing.Box({kPen, kPen, kBrush}, QRect(0, 0, 20, 12));
         }},
        {"thin line",
         [](Drawing& drawing) {
             drawing.Lines(kPen, 1, {{0, 12}, {40, 12}});
         }},
        {"wide line",
         [](Drawing& drawing) {
             drawing.Lines(kPen, 4, {{0, 0}, {40, 30}});
         }},
        {"text", [](Drawing& drawing) { drawing.Text("WWWWWWWW", kPen, 0, 4); }},
        {"shadow", [](Drawing& drawing) { drawing.Text("WWWWWWWW", kPen, kBrush, 0, 4, 2); }},
        {"shapes",
         [](Drawing& drawing) {
             drawing.Shapes(QRect(0, 0, 40, 30),
                            [](QPainter& painter) { painter.fillRect(0, 0, 40, 30, Qt::red); });
         }},
        {"gradient", [](Drawing& drawing) { drawing.Gradient(0, 0, 40, 30, kPen, kBrush); }},
    };
    const AtRatio ratio(GetParam());
    for (const auto& [name, draw] : draws) {
        Canvas clipped(40, 30);
        Canvas free(40, 30);
        {
            Drawing drawing(&clipped);
            drawing.SetClip(clip);
            draw(drawing);
        }
        {
            Drawing drawing(&free);
            draw(drawing);
        }
        FillBox(0, 0, 40, 30); // after the last drawing
        for (int x = 0; x < 40; ++x)
            for (int y = 0; y < 30; ++y)
                ASSERT_EQ(clipped.Pixel(x, y), clip.contains(x, y) ? free.Pixel(x, y) : kBlack)
                    << name << " " << x << ", " << y;
    }
}

} // namespace
