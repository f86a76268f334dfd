#include "toolkit/Recipe.h"

#include <QPainter>
#include <algorithm>

namespace toolkit {

namespace {

/// A drawing that takes more steps than this without covering itself is kept as a picture.
constexpr std::size_t kMostSteps = 1000;

Canvas::Paint PaintPicture(const QImage& picture) {
    return [picture](QImage& image) {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(QRectF(QPointF(0, 0), image.deviceIndependentSize()), picture);
    };
}

} // namespace

QImage& Recipe::NewImage() {
    ratio = Canvas::Ratio();
    image = QImage(Canvas::ScreenPixels(QRect(QPoint(0, 0), size)).size(), QImage::Format_RGB32);
    image.setDevicePixelRatio(std::max(ratio, 1.0)); // Qt's painters ignore smaller ones
    return image;
}

QImage& Recipe::Pixels() {
    if (ratio == Canvas::Ratio())
        return image;
    NewImage().fill(Qt::black);
    for (const auto& step : steps)
        step->paint(image);
    return image;
}

void Recipe::Forget() {
    image = QImage();
    ratio = 0;
}

void Recipe::Add(const QRect& area, bool covers, Canvas::Paint paint) {
    if (covers)
        std::erase_if(steps, [&area](const auto& step) { return area.contains(step->area); });
    if (steps.size() == kMostSteps)
        steps = {
            std::make_shared<const Step>(Step{QRect(QPoint(0, 0), size), PaintPicture(image)})};
    const QRect changed = area & QRect(QPoint(0, 0), size);
    if (!changed.isEmpty())
        steps.push_back(std::make_shared<const Step>(Step{changed, std::move(paint)}));
}

} // namespace toolkit
