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

Hdc c_Surface::CreateSurface(const Picture& picture) {
    const Hdc canvas = CreateSurface(picture.size.width(), picture.size.height(), QString());
    canvas->SetPicture(picture.size, picture.load);
    return canvas;
}

void c_Surface::CreateSprite(const Picture& skin) {
    const Hdc sprite = CreateSurface(skin);
    const Hdc mask = CreateSurface(skin.size.width(), skin.size.height(), QString());
    BitBlt(mask, 0, 0, mask->Width(), mask->Height(), sprite, 0, 0, RasterOp::SrcCopy);
    MaskPixels(*mask, kBlack, kBlack, kWhite);
}

void c_Surface::FreeSurfaces() {
    for (Surface& surface : mSurfaces)
        surface.canvas.reset();
}

void c_Surface::LoadBmpToSurface(int index, const QString& file) {
    const Surface& surface = At(index);
    const QSize size(surface.width, surface.height);
    if (surface.canvas)
        surface.canvas->SetPicture(size, [=] { return LoadGround(file, size); });
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
    canvas.Draw(QRect(0, 0, canvas.Width(), canvas.Height()), false, [=](QImage& image) {
        for (int y = 0; y < image.height(); ++y) {
            auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
            std::transform(row, row + image.width(), row, [=](QRgb pixel) {
                return (pixel & RGB_MASK) == keyPixel ? replacementPixel : otherPixel;
            });
        }
    });
}

} // namespace toolkit
