#include "toolkit/ApiDraw.h"

#include "platform/Rounding.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPen>
#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace toolkit {

namespace {

using platform::RoundHalfEven;

struct DrawState {
    Hdc dc = nullptr;
    QPen pen;
    ColorRef penColor = kBlack;
    ColorRef brush = kBlack;
    ColorRef text = kBlack;
    BkMode mode = BkMode::Opaque;
    QPoint penAt;
    std::optional<QRect> clip;
};

DrawState gState;

QRect Clipped(const QRect& area) { return gState.clip ? area & *gState.clip : area; }

void Fill(const QRect& area, ColorRef color) { gState.dc->Fill(Clipped(area), color); }

/// Draws what a painter draws within `area`.
void Paint(const QRect& area, const std::function<void(QPainter&)>& paint) {
    gState.dc->Draw(Clipped(area), false, [paint, clip = gState.clip](QImage& image) {
        QPainter painter(&image);
        const double shrink = Canvas::Ratio() / image.devicePixelRatio();
        painter.scale(shrink, shrink);
        if (clip)
            painter.setClipRect(*clip);
        paint(painter);
    });
}

/// A line one pixel wide, without its last point.
void ThinLine(QPoint from, QPoint to) {
    const QPoint way = to - from;
    const int steps = std::max(std::abs(way.x()), std::abs(way.y()));
    const auto point = [=](int step) {
        return from + QPoint(RoundHalfEven(double(way.x()) * step / steps),
                             RoundHalfEven(double(way.y()) * step / steps));
    };
    if (steps > 0 && (way.x() == 0 || way.y() == 0)) {
        Fill(QRect(from, QSize(1, 1)) | QRect(point(steps - 1), QSize(1, 1)), gState.penColor);
        return;
    }
    for (int i = 0; i < steps; ++i)
        Fill(QRect(point(i), QSize(1, 1)), gState.penColor);
}

void WideLine(QPoint from, QPoint to) {
    const int width = gState.pen.width();
    const QRect ends = QRect(from, QSize(1, 1)) | QRect(to, QSize(1, 1));
    Paint(ends.adjusted(-width, -width, width, width), [=, pen = gState.pen](QPainter& painter) {
        painter.setPen(pen);
        painter.drawLine(from, to);
    });
}

/// The colour of each line of the sweep, added up in single precision.
std::vector<QRgb> SweepColors(ColorRef start, ColorRef end, int steps) {
    const RgbParts from = SplitRgb(start);
    const RgbParts to = SplitRgb(end);
    float red = from.red;
    float green = from.green;
    float blue = from.blue;
    const auto count = static_cast<float>(steps);
    std::vector<QRgb> colors;
    for (int i = 0; i <= steps; ++i) {
        colors.push_back(qRgb(RoundHalfEven(red), RoundHalfEven(green), RoundHalfEven(blue)));
        red += static_cast<float>(to.red - from.red) / count;
        green += static_cast<float>(to.green - from.green) / count;
        blue += static_cast<float>(to.blue - from.blue) / count;
    }
    return colors;
}

void Sweep(QImage& image, const QRect& area, const QRect& visible,
           const std::vector<QRgb>& colors) {
    const QRect box = Canvas::ScreenPixels(area);
    const QRect part = Canvas::ScreenPixels(visible) & image.rect();
    for (int y = part.top(); y <= part.bottom(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = part.left(); x <= part.right(); ++x) {
            const double way = (x - box.x() + y - box.y()) / Canvas::Ratio();
            row[x] = colors[std::min(static_cast<std::size_t>(way) + 1, colors.size() - 1)];
        }
    }
}

} // namespace

void BeginDraw(Hdc dc, Qt::PenStyle penStyle, ColorRef penColor, int penWidth, ColorRef brushColor,
               BkMode mode) {
    if (dc != nullptr)
        dc->Image(); // now, because drawing it anew for another ratio may need the bracket
    gState = DrawState();
    gState.dc = dc;
    SetDrawPen(penStyle, penColor, penWidth);
    SetDrawBrush(brushColor);
    SetDrawBkMode(mode);
}

void EndDraw() { gState = DrawState(); }

void SetDrawTextColor(ColorRef color) { gState.text = color; }

void SetDrawBrush(ColorRef color) { gState.brush = color; }

void SetDrawPen(Qt::PenStyle style, ColorRef color, int width) {
    gState.pen = QPen(ToQColor(color), width, style, Qt::RoundCap, Qt::RoundJoin);
    gState.penColor = color;
}

void SetDrawBkMode(BkMode mode) { gState.mode = mode; }

void SetDrawClip(const QRect& area) { gState.clip = area; }

void FillBox(double x1, double y1, double x2, double y2) {
    if (gState.dc == nullptr)
        return;
    const QPoint topLeft(RoundHalfEven(x1), RoundHalfEven(y1));
    const QPoint end(RoundHalfEven(x2), RoundHalfEven(y2));
    Fill(QRect(topLeft, end - QPoint(1, 1)), gState.brush);
}

void DrawBox(ColorRef light, ColorRef dark, ColorRef fill, double x1, double y1, double x2,
             double y2) {
    SetDrawBrush(fill);
    FillBox(x1, y1, x2, y2);
    SetDrawPen(Qt::SolidLine, light, 1);
    PenMoveTo(x2, y1);
    PenLineTo(x1, y1);
    PenLineTo(x1, y2);
    SetDrawPen(Qt::SolidLine, dark, 1);
    PenLineTo(x2, y2);
    PenLineTo(x2, y1);
}

void ShadowText(const QString& text, ColorRef color, ColorRef shadow, double x, double y,
                double offset) {
    SetDrawBkMode(BkMode::Transparent);
    SetDrawTextColor(shadow);
    PlainText(text, x + offset, y + offset);
    SetDrawTextColor(color);
    PlainText(text, x, y);
}

void PlainText(const QString& text, double x, double y) {
    if (gState.dc == nullptr)
        return;
    const QFontMetricsF metrics(gState.dc->Font());
    const QPointF start(RoundHalfEven(x), RoundHalfEven(y) + metrics.ascent());
    const bool opaque = gState.mode == BkMode::Opaque;
    QRectF area = metrics.boundingRect(text);
    if (opaque)
        area |= QRectF(0, -metrics.ascent(), metrics.horizontalAdvance(text), metrics.height());
    Paint(area.translated(start).toAlignedRect().adjusted(-1, -1, 1, 1),
          [=, font = gState.dc->Font(), color = ToQColor(gState.text)](QPainter& painter) {
              painter.setFont(font);
              painter.setPen(color);
              painter.setBackground(Qt::white);
              painter.setBackgroundMode(opaque ? Qt::OpaqueMode : Qt::TransparentMode);
              painter.drawText(start, text);
          });
}

void PenMoveTo(double x, double y) { gState.penAt = QPoint(RoundHalfEven(x), RoundHalfEven(y)); }

void PenLineTo(double x, double y) {
    const QPoint from = gState.penAt;
    PenMoveTo(x, y);
    if (gState.dc == nullptr || gState.pen.style() == Qt::NoPen)
        return;
    if (gState.pen.width() <= 1 && gState.pen.style() == Qt::SolidLine)
        ThinLine(from, gState.penAt);
    else
        WideLine(from, gState.penAt);
}

void GradientBox(double x1, double y1, double x2, double y2, ColorRef start, ColorRef end) {
    if (gState.dc == nullptr)
        return;
    const int left = RoundHalfEven(x1);
    const int top = RoundHalfEven(y1);
    const int columns = std::max(RoundHalfEven(x2) - left, 1);
    const int rows = RoundHalfEven(y2) - top + 1;
    // The sweep starts one row above the box, and its first line has no length.
    const int steps = RoundHalfEven(x2) - left + rows;
    if (rows < 1 || steps < 1)
        return;
    const QRect area(left, top, columns, rows);
    const QRect visible = Clipped(area);
    gState.dc->Draw(visible, true, [=, colors = SweepColors(start, end, steps)](QImage& image) {
        Sweep(image, area, visible, colors);
    });
}

void PaintShapes(const QRect& area, const std::function<void(QPainter&)>& paint) {
    if (gState.dc == nullptr)
        return;
    Paint(area, [paint](QPainter& painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        paint(painter);
    });
}

void PutPixel(int x, int y, ColorRef color) {
    if (gState.dc != nullptr)
        Fill(QRect(x, y, 1, 1), color);
}

ColorRef PeekPixel(int x, int y) {
    return gState.dc != nullptr ? gState.dc->Pixel(x, y) : Canvas::kNoColor;
}

} // namespace toolkit
