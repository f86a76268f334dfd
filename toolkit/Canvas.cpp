#include "toolkit/Canvas.h"

#include "toolkit/Recipe.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <utility>

namespace toolkit {

namespace {

double gRatio = 1.0;

int PixelsOf(double points) { return static_cast<int>(std::lround(points * 96 / 72)); }

int ToScreen(int logical) { return static_cast<int>(std::lround(logical * gRatio)); }

/// A blit clipped to both images, in screen pixels.
struct Overlap {
    QRect target;
    QPoint source;
};

/// `source`: the screen pixels that may be read.
Overlap Clip(const QImage& target, const QRect& area, const QRect& source, QPoint from) {
    const QRect whole = Canvas::ScreenPixels(area);
    const QPoint start(ToScreen(from.x()), ToScreen(from.y()));
    const QRect available = source.translated(whole.topLeft() - start);
    const QRect clipped = whole & target.rect() & available;
    return {clipped, clipped.topLeft() - whole.topLeft() + start};
}

const QRgb* Row(const QImage& image, QPoint at) {
    return reinterpret_cast<const QRgb*>(image.constScanLine(at.y())) + at.x();
}

QRgb* Row(QImage& image, QPoint at) {
    return reinterpret_cast<QRgb*>(image.scanLine(at.y())) + at.x();
}

template <typename Operation>
void Combine(QImage& target, const Overlap& part, const QImage& source, Operation operation) {
    const int width = part.target.width();
    for (int row = 0; row < part.target.height(); ++row) {
        QRgb* __restrict to = Row(target, part.target.topLeft() + QPoint(0, row));
        const QRgb* __restrict from = Row(source, part.source + QPoint(0, row));
        for (int column = 0; column < width; ++column)
            to[column] = operation(to[column], from[column]);
    }
}

void Combine(QImage& target, const Overlap& part, const QImage& source, RasterOp operation) {
    switch (operation) {
    case RasterOp::SrcCopy:
        return Combine(target, part, source, [](QRgb, QRgb from) { return from; });
    case RasterOp::SrcAnd:
        return Combine(target, part, source, [](QRgb to, QRgb from) { return to & from; });
    case RasterOp::SrcPaint:
        return Combine(target, part, source, [](QRgb to, QRgb from) { return to | from; });
    }
}

/// An image that shares the pixels but has no device pixel ratio.
QImage Share(const QImage& own) {
    return QImage(own.constBits(), own.width(), own.height(), own.bytesPerLine(), own.format());
}

/// A widget's corner may lie within a screen pixel; the image is moved to the nearest whole one.
QPointF WholePixel(const QPainter& painter) {
    const QPointF corner(painter.deviceTransform().dx(), painter.deviceTransform().dy());
    const QPointF whole(std::round(corner.x()), std::round(corner.y()));
    return (whole - corner) / painter.device()->devicePixelRatioF();
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
    : mRecipe(std::make_shared<Recipe>(QSize(std::max(width, 1), std::max(height, 1)))),
      mFont(ScreenFont(12)) {}

Canvas::~Canvas() = default;

Canvas::Canvas(const Canvas& other)
    : mRecipe(std::make_shared<Recipe>(*other.mRecipe)), mFont(other.mFont) {}

Canvas& Canvas::operator=(const Canvas& other) {
    if (this != &other) {
        mRecipe = std::make_shared<Recipe>(*other.mRecipe);
        mFont = other.mFont;
    }
    return *this;
}

int Canvas::Width() const { return mRecipe->size.width(); }

int Canvas::Height() const { return mRecipe->size.height(); }

const QImage& Canvas::Image() const { return mRecipe->Pixels(); }

void Canvas::Show(QPainter& painter) const {
    QImage shown = Share(Image());
    shown.setDevicePixelRatio(painter.device()->devicePixelRatioF());
    painter.drawImage(WholePixel(painter), shown);
}

void Canvas::Show(QPainter& painter, const QPainterPath& outline) const {
    const QPointF start = WholePixel(painter);
    const double pixel = 1 / painter.device()->devicePixelRatioF();
    QBrush brush(Share(Image()));
    brush.setTransform(QTransform(pixel, 0, 0, pixel, start.x(), start.y()));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(outline, brush);
}

void Canvas::Draw(const QRect& area, bool covers, Paint paint) {
    if (mRecipe.use_count() > 1) {
        // Others may have copied from the old recipe. They redraw its pixels if they need them.
        const auto kept = std::exchange(mRecipe, std::make_shared<Recipe>(*mRecipe));
        kept->Forget();
    }
    paint(mRecipe->Pixels());
    mRecipe->Add(area, covers, std::move(paint));
}

void Canvas::SetPicture(const QSize& size, const std::function<QImage()>& load) {
    mRecipe = std::make_shared<Recipe>(size);
    const auto paint = [load](QImage& image) {
        const QSize pixels = image.size();
        const double ratio = image.devicePixelRatio();
        image = load().convertToFormat(QImage::Format_RGB32);
        if (image.size() != pixels)
            image = image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        image.setDevicePixelRatio(ratio);
    };
    paint(mRecipe->NewImage()); // which need not be black first
    mRecipe->Add(QRect(QPoint(0, 0), size), true, paint);
}

void Canvas::Forget() { mRecipe->Forget(); }

double Canvas::TextWidth(const QString& text) const {
    return QFontMetricsF(mFont).horizontalAdvance(text);
}

double Canvas::TextHeight() const { return QFontMetricsF(mFont).height(); }

ColorRef Canvas::Pixel(int x, int y) const {
    const QPoint at(ToScreen(x), ToScreen(y));
    if (!Image().rect().contains(at))
        return kNoColor;
    const QRgb pixel = *Row(Image(), at);
    return Rgb(qRed(pixel), qGreen(pixel), qBlue(pixel));
}

void Canvas::Fill(const QRect& area, ColorRef color) {
    Draw(area, true, [=](QImage& image) { FillPixels(image, area, color); });
}

void FillPixels(QImage& image, const QRect& area, ColorRef color) {
    const QRect part = Canvas::ScreenPixels(area) & image.rect();
    const QRgb value = ToQColor(color).rgb();
    for (int row = part.top(); row <= part.bottom(); ++row)
        std::fill_n(Row(image, QPoint(part.x(), row)), part.width(), value);
}

QFont ScreenFont(double points, bool bold) {
    QFont font(QStringLiteral("Times New Roman"));
    font.setStyleHint(QFont::Serif);
    font.setPixelSize(PixelsOf(points));
    font.setBold(bold);
    return font;
}

QFont RoundFont(double points, bool bold) {
    // Each weight but two has a family of its own, and the regular one is too thin to be read.
    QFont font(QStringList{bold ? QStringLiteral("Quicksand") : QStringLiteral("Quicksand Medium"),
                           QStringLiteral("Liberation Sans")});
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(PixelsOf(points));
    font.setBold(bold);
    return font;
}

void BitBlt(Hdc target, int x, int y, int width, int height, Hdc source, int sourceX, int sourceY,
            RasterOp operation) {
    if (target == nullptr || source == nullptr)
        return;
    const QRect area(x, y, width, height);
    const QPoint from(sourceX, sourceY);
    const QRect all(QPoint(0, 0), source->mRecipe->size);
    if (operation == RasterOp::SrcCopy && area == all && from.isNull() &&
        target->mRecipe->size == all.size()) // shares the pixels until either is drawn on
        return target->SetPicture(all.size(),
                                  [recipe = source->mRecipe] { return recipe->Pixels(); });
    const QRect given = all.translated(area.topLeft() - from);
    target->Draw(area & given, operation == RasterOp::SrcCopy,
                 [=, recipe = source->mRecipe](QImage& image) {
                     const QImage& pixels = recipe->Pixels();
                     Combine(image, Clip(image, area, pixels.rect(), from), pixels, operation);
                 });
}

void DrawMasked(Hdc target, int x, int y, int width, int height, Hdc mask, Hdc sprite, int sourceX,
                int sourceY) {
    if (target == nullptr || mask == nullptr || sprite == nullptr)
        return;
    const QRect area(x, y, width, height);
    const QPoint from(sourceX, sourceY);
    target->Draw(area, false, [=, m = mask->mRecipe, s = sprite->mRecipe](QImage& image) {
        const QImage& keep = m->Pixels();
        const QImage& paint = s->Pixels();
        // At a fractional ratio the same width covers a pixel more in one place than in another;
        // the pixel after the sprite's belongs to the next frame.
        const QRect frame =
            Canvas::ScreenPixels(QRect(from, area.size())) & keep.rect() & paint.rect();
        const Overlap part = Clip(image, area, frame, from);
        for (int row = 0; row < part.target.height(); ++row) {
            QRgb* __restrict to = Row(image, part.target.topLeft() + QPoint(0, row));
            const QRgb* __restrict kept = Row(keep, part.source + QPoint(0, row));
            const QRgb* __restrict painted = Row(paint, part.source + QPoint(0, row));
            for (int column = 0; column < part.target.width(); ++column)
                to[column] = (to[column] & kept[column]) | painted[column];
        }
    });
}

} // namespace toolkit
