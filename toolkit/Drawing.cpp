#include "toolkit/Drawing.h"

namespace toolkit {

Drawing::Drawing(Hdc dc) : mDc(dc) {
    BeginDraw(dc, Qt::SolidLine, kWhite, 1, kBlack, BkMode::Transparent);
}

void Drawing::Fill(ColorRef color, double x1, double y1, double x2, double y2) {
    SetDrawBrush(color);
    FillBox(x1, y1, x2, y2);
}

void Drawing::Box(const Bevel& look, const QRect& area) {
    DrawBox(look.light, look.dark, look.fill, area.left(), area.top(), area.right(), area.bottom());
}

void Drawing::Gradient(double x1, double y1, double x2, double y2, ColorRef start, ColorRef end) {
    GradientBox(x1, y1, x2, y2, start, end);
}

void Drawing::Lines(ColorRef color, int width, std::initializer_list<QPoint> points) {
    SetDrawPen(Qt::SolidLine, color, width);
    const auto* point = points.begin();
    PenMoveTo(point->x(), point->y());
    while (++point != points.end())
        PenLineTo(point->x(), point->y());
}

void Drawing::Text(const QString& text, ColorRef color, double x, double y) {
    SetDrawTextColor(color);
    PlainText(text, x, y);
}

void Drawing::Text(const QString& text, ColorRef color, ColorRef shadow, double x, double y,
                   double offset) {
    ShadowText(text, color, shadow, x, y, offset);
}

void DrawPanel(Hdc dc) {
    constexpr Bevel kPanel{kFrameLight, kFrameDark, Rgb(14, 12, 60)};
    Drawing(dc).Box(kPanel, QRect(0, 0, dc->Width(), dc->Height()));
}

} // namespace toolkit
