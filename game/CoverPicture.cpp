#include "game/CoverPicture.h"

#include <QBuffer>
#include <QImageReader>

namespace game {

namespace {

bool IsSmallEnough(const QSize& size) {
    constexpr qint64 kMostPixels = qint64{4096} * 4096;
    return !size.isEmpty() && qint64{size.width()} * size.height() <= kMostPixels;
}

QImage MiddleOf(QImageReader& reader, int side) {
    const QSize size = reader.size();
    if (!IsSmallEnough(size))
        return {};
    const QSize scaled = size.scaled(side, side, Qt::KeepAspectRatioByExpanding);
    if (!IsSmallEnough(scaled))
        return {};
    reader.setScaledSize(scaled); // a JPEG is not even decoded at its full size
    return reader.read().copy((scaled.width() - side) / 2, (scaled.height() - side) / 2, side,
                              side);
}

} // namespace

QImage DecodeCover(const QByteArray& encoded, int side) {
    // What else Qt has readers for is not tried: some open further files that a picture names.
    for (const char* format : {"jpeg", "png", "webp", "gif", "bmp"}) {
        QBuffer buffer;
        buffer.setData(encoded);
        buffer.open(QIODevice::ReadOnly);
        QImageReader reader(&buffer, format);
        reader.setAutoDetectImageFormat(false);
        if (reader.canRead())
            return MiddleOf(reader, side);
    }
    return {};
}

} // namespace game
