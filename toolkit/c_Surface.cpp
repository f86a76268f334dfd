#include "toolkit/c_Surface.h"

#include "toolkit/Picture.h"

#include <algorithm>

using namespace toolkit;

std::unique_ptr<c_Surface> gBack;

Hdc c_Surface::CreateSurface(int width, int height, const QString& file) {
    mSurfaces.push_back({std::make_unique<Canvas>(width, height), width, height});
    if (!file.isEmpty())
        LoadBmpToSurface(Count() - 1, file);
    return mSurfaces.back().canvas.get();
}

Hdc c_Surface::CreateSurface(const QImage& picture) {
    auto canvas = std::make_unique<Canvas>(picture);
    const int width = canvas->Width();
    const int height = canvas->Height();
    mSurfaces.push_back({std::move(canvas), width, height});
    return mSurfaces.back().canvas.get();
}

void c_Surface::FreeSurfaces() {
    for (Surface& surface : mSurfaces)
        surface.canvas.reset();
}

void c_Surface::LoadBmpToSurface(int index, const QString& file) {
    const Surface& surface = At(index);
    if (surface.canvas)
        surface.canvas->SetPicture(LoadGround(file, QSize(surface.width, surface.height)));
}

void c_Surface::CreateMask(int index, ColorRef key, ColorRef other, ColorRef replacement) {
    if (Canvas* canvas = HDC(index))
        MaskPixels(*canvas, key, other, replacement);
}

namespace toolkit {

void MaskPixels(Canvas& canvas, ColorRef key, ColorRef other, ColorRef replacement) {
    const QRgb keyPixel = ToQColor(key).rgb() & RGB_MASK;
    const QRgb otherPixel = ToQColor(other).rgb();
    const QRgb replacementPixel = ToQColor(replacement).rgb();
    QImage& image = canvas.PaintDevice();
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::transform(row, row + image.width(), row, [=](QRgb pixel) {
            return (pixel & RGB_MASK) == keyPixel ? replacementPixel : otherPixel;
        });
    }
}

} // namespace toolkit
