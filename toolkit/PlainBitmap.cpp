#include "toolkit/PlainBitmap.h"

#include "platform/RegularFile.h"

#include <QtEndian>
#include <algorithm>
#include <cstdlib>
#include <vector>

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

    static constexpr int kFirstPart = 14;
    static constexpr int kSize = 54;

    qint64 pixels; // where they begin
    qint64 size;   // of the second part; older kinds are smaller
    qint64 width;
    qint64 height; // from bottom to top, unless it is negative
    int depth;
    quint32 compression;
};

/// Reads one byte past the row: a whole number at each pixel is faster than its three bytes.
void CopyRow(const char* from, QRgb* to, int width) {
    for (int x = 0; x < width; ++x, from += 3)
        to[x] = qFromLittleEndian<QRgb>(from) | 0xFF000000;
}

} // namespace

QImage ReadPlainBitmap(const std::filesystem::path& file) {
    platform::RegularFile opened(file);
    char start[Header::kSize];
    if (opened.Error() || opened.ReadAt(0, start) != Header::kSize || start[0] != 'B' ||
        start[1] != 'M')
        return QImage();
    const Header header(start);
    const qint64 rows = std::abs(header.height);
    const qint64 rowBytes = (header.width * 3 + 3) / 4 * 4;
    if (header.size < 40 || header.pixels < Header::kFirstPart + header.size ||
        header.depth != 24 || header.compression != 0 || header.width <= 0 || rows == 0 ||
        rowBytes > (opened.Size() - header.pixels) / rows)
        return QImage();
    QImage picture(static_cast<int>(header.width), static_cast<int>(rows), QImage::Format_RGB32);
    constexpr qint64 kAtOnce = 16; // rows
    std::vector<char> bytes(static_cast<std::size_t>(std::min(kAtOnce, rows) * rowBytes + 1));
    for (qint64 row = 0; row < picture.height(); ++row) {
        if (row % kAtOnce == 0 && opened.ReadAt(header.pixels + row * rowBytes, bytes) <
                                      std::min(kAtOnce, rows - row) * rowBytes)
            return QImage();
        const qint64 y = header.height > 0 ? rows - 1 - row : row;
        CopyRow(bytes.data() + row % kAtOnce * rowBytes,
                reinterpret_cast<QRgb*>(picture.scanLine(static_cast<int>(y))), picture.width());
    }
    return picture;
}

} // namespace toolkit
