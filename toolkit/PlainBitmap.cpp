#include "toolkit/PlainBitmap.h"

#include <QtEndian>
#include <cstdlib>

namespace toolkit {

namespace {

/// BITMAPFILEHEADER and BITMAPINFOHEADER, by their places in the file.
struct Header {
    explicit Header(const char* file)
        : pixels(qFromLittleEndian<quint32>(file + 10)),
          size(qFromLittleEndian<quint32>(file + 14)), width(qFromLittleEndian<qint32>(file + 18)),
          height(qFromLittleEndian<qint32>(file + 22)),
          depth(qFromLittleEndian<quint16>(file + 28)),
          compression(qFromLittleEndian<quint32>(file + 30)) {}

    static constexpr qsizetype kSize = 54;

    qint64 pixels; // where they begin
    quint32 size;  // of the second part; older kinds are smaller
    qint64 width;
    qint64 height; // from bottom to top, unless it is negative
    int depth;
    quint32 compression;
};

} // namespace

QImage ReadPlainBitmap(const QByteArray& file) {
    if (file.size() < Header::kSize || !file.startsWith("BM"))
        return QImage();
    const Header header(file.constData());
    const qint64 rows = std::abs(header.height);
    const qint64 rowBytes = (header.width * 3 + 3) / 4 * 4;
    if (header.size < 40 || header.depth != 24 || header.compression != 0 || header.width <= 0 ||
        rows == 0 || rowBytes > (file.size() - header.pixels) / rows)
        return QImage();
    QImage picture(static_cast<int>(header.width), static_cast<int>(rows), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        const qint64 row = header.height > 0 ? rows - 1 - y : y;
        const auto* from =
            reinterpret_cast<const uchar*>(file.constData()) + header.pixels + row * rowBytes;
        auto* to = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x, from += 3)
            to[x] = qRgb(from[2], from[1], from[0]);
    }
    return picture;
}

} // namespace toolkit
