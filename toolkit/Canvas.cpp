#include "toolkit/Canvas.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace toolkit {

namespace {

double gRatio = 1.0;

int ToScreen(int logical) { return static_cast<int>(std::lround(logical * gRatio)); }

/// A blit clipped to both images, in screen pixels.
struct Overlap {
    QRect target;
    QPoint source;
};

/// `source`: the screen pixels that may be read.
Overlap Clip(const Canvas& target, const QRect& area, const QRect& source, QPoint from) {
    const QRect whole = Canvas::ScreenPixels(area);
    const QPoint start(ToScreen(from.x()), ToScreen(from.y()));
    const QRect available = source.translated(whole.topLeft() - start);
    const QRect clipped = whole & target.Image().rect() & available;
    return {clipped, clipped.topLeft() - whole.topLeft() + start};
}

const QRgb* Row(const Canvas& canvas, int x, int y) {
    return reinterpret_cast<const QRgb*>(canvas.Image().constScanLine(y)) + x;
}

template <typename Operation>
void Combine(Canvas& target, const Overlap& part, const Canvas& source, Operation operation) {
    const int width = part.target.width();
    for (int row = 0; row < part.target.height(); ++row) {
        auto* __restrict to =
            reinterpret_cast<QRgb*>(target.PaintDevice().scanLine(part.target.y() + row)) +
            part.target.x();
        const QRgb* __restrict from = Row(source, part.source.x(), part.source.y() + row);
        for (int column = 0; column < width; ++column)
            to[column] = operation(to[column], from[column]);
    }
}

} // namespace

double Canvas::Ratio() { return gRatio; }

void Canvas::SetRatio(double ratio) { gRatio = ratio; }

QRect Canvas::ScreenPixels(const QRect& area) {
    const QPoint topLeft(ToScreen(area.x()), ToScreen(area.y()));
    const QPoint end(ToScreen(area.x() + area.width()), ToScreen(area.y() + area.height()));
    return QRect(topLeft, QSize(end.x() - topLeft.x(), end.y() - topLeft.y()));
}

Canvas::Canvas(int width, int height)
    : mImage(ToScreen(std::max(width, 1)), ToScreen(std::max(height, 1)), QImage::Format_RGB32),
      mWidth(width), mHeight(height), mFont(ScreenFont(12)) {
    mImage.fill(Qt::black);
    mImage.setDevicePixelRatio(gRatio);
}

Canvas::Canvas(const QImage& picture) : mFont(ScreenFont(12)) { SetPicture(picture); }

void Canvas::Show(QPainter& painter) const {
    // The window may lie on a screen of another ratio.
    const bool scaled = painter.device()->devicePixelRatioF() != mImage.devicePixelRatio();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, scaled);
    // A widget's corner may lie within a screen pixel, but the image's pixels must not.
    const QPointF corner(painter.deviceTransform().dx(), painter.deviceTransform().dy());
    const QPointF whole(std::round(corner.x()), std::round(corner.y()));
    painter.drawImage((whole - corner) / painter.device()->devicePixelRatioF(), mImage);
}

void Canvas::SetPicture(const QImage& picture) {
    mImage = picture.convertToFormat(QImage::Format_RGB32);
    mImage.setDevicePixelRatio(gRatio);
    mWidth = static_cast<int>(std::lround(mImage.width() / gRatio));
    mHeight = static_cast<int>(std::lround(mImage.height() / gRatio));
}

double Canvas::TextWidth(const QString& text) const {
    return QFontMetricsF(mFont).horizontalAdvance(text);
}

double Canvas::TextHeight() const { return QFontMetricsF(mFont).height(); }

ColorRef Canvas::Pixel(int x, int y) const {
    const QPoint at(ToScreen(x), ToScreen(y));
    if (!mImage.rect().contains(at))
        return kNoColor;
    const QRgb pixel = *Row(*this, at.x(), at.y());
    return Rgb(qRed(pixel), qGreen(pixel), qBlue(pixel));
}

void Canvas::Fill(const QRect& area, ColorRef color) {
    const QRect part = ScreenPixels(area) & mImage.rect();
    const QRgb value = ToQColor(color).rgb();
    for (int row = part.top(); row <= part.bottom(); ++row)
        std::fill_n(reinterpret_cast<QRgb*>(mImage.scanLine(row)) + part.x(), part.width(), value);
}

QFont ScreenFont(double points, bool bold) {
    QFont font(QStringLiteral("Times New Roman"));
    font.setStyleHint(QFont::Serif);
    font.setPixelSize(static_cast<int>(std::lround(points * 96 / 72)));
    font.setBold(bold);
    return font;
}

void BitBlt(Hdc target, int x, int y, int width, int height, Hdc source, int sourceX, int sourceY,
            RasterOp operation) {
    if (target == nullptr || source == nullptr)
        return;
    const Overlap part =
        Clip(*target, QRect(x, y, width, height), source->Image().rect(), QPoint(sourceX, sourceY));
    switch (operation) {
    case RasterOp::SrcCopy:
        return Combine(*target, part, *source, [](QRgb, QRgb from) { return from; });
    case RasterOp::SrcAnd:
        return Combine(*target, part, *source, [](QRgb to, QRgb from) { return to & from; });
    case RasterOp::SrcPaint:
        return Combine(*target, part, *source, [](QRgb to, QRgb from) { return to | from; });
    }
}

void DrawMasked(Hdc target, int x, int y, int width, int height, Hdc mask, Hdc sprite, int sourceX,
                int sourceY) {
    if (target == nullptr || mask == nullptr || sprite == nullptr)
        return;
    const QPoint from(sourceX, sourceY);
    // At a fractional ratio the same width covers a pixel more in one place than in another; the
    // pixel after the sprite's belongs to the next frame.
    const QRect frame = Canvas::ScreenPixels(QRect(from, QSize(width, height))) &
                        mask->Image().rect() & sprite->Image().rect();
    const Overlap part = Clip(*target, QRect(x, y, width, height), frame, from);
    for (int row = 0; row < part.target.height(); ++row) {
        auto* __restrict to =
            reinterpret_cast<QRgb*>(target->PaintDevice().scanLine(part.target.y() + row)) +
            part.target.x();
        const QRgb* __restrict keep = Row(*mask, part.source.x(), part.source.y() + row);
        const QRgb* __restrict paint = Row(*sprite, part.source.x(), part.source.y() + row);
        for (int column = 0; column < part.target.width(); ++column)
            to[column] = (to[column] & keep[column]) | paint[column];
    }
}

} // namespace toolkit
