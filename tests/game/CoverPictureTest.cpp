#include "game/CoverPicture.h"

#include <QBuffer>
#include <QPainter>
#include <algorithm>
#include <gtest/gtest.h>
#include <tuple>

namespace {

QByteArray Encoded(const QImage& picture, const char* format) {
    QBuffer buffer;
    EXPECT_TRUE(picture.save(&buffer, format)) << format;
    return buffer.data();
}

/// Green with red at both ends.
QImage Striped(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QRect middle(QPoint(), QSize(1, 1) * std::min(width, height));
    middle.moveCenter(picture.rect().center());
    QPainter(&picture).fillRect(middle, Qt::green);
    return picture;
}

TEST(CoverPicture, TheMiddleOfAPictureFillsTheSquareUnlessItCannotBeShown) {
    // A pixel, green and then red.
    const QByteArray animated = QByteArray::fromHex(
        "4749463839610100010080000000ff00ff0000"
        "21f904000a0000002c000000000100010000020244010021f904000a0000002c00000000010001000002024c"
        "01003b");
    const QByteArray png = Encoded(Striped(600, 200), "PNG");
    const std::tuple<const char*, QByteArray, bool> cases[] = {
        {"a JPEG", Encoded(Striped(1500, 1000), "JPEG"), true},
        {"a PNG", png, true},
        {"a PNG that is small", Encoded(Striped(31, 17), "PNG"), true},
        {"a BMP", Encoded(Striped(100, 300), "BMP"), true},
        {"a GIF that moves", animated, true},
        {"the limit", Encoded(Striped(4096, 4096), "PNG"), true},
        {"beyond it", Encoded(Striped(4097, 4096), "PNG"), false},
        {"a line", Encoded(Striped(20'000, 1), "PNG"), false},
        {"a cut picture", png.first(png.size() / 2), false},
        {"nothing", "", false},
        {"a drawing that could name files",
         "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><path d='M0 0h9v9z'/></svg>",
         false},
        {"a format that no cover has", "P3 1 1 255 0 255 0\n", false},
    };
    constexpr int kSide = 120;
    for (const auto& [what, encoded, shown] : cases) {
        const QImage cover = game::DecodeCover(encoded, kSide);
        ASSERT_EQ(cover.size(), shown ? QSize(kSide, kSide) : QSize(0, 0)) << what;
        for (const QPoint& at : {QPoint(6, 6), QPoint(60, 60), QPoint(113, 113)}) {
            const QColor color = shown ? cover.pixelColor(at) : Qt::green;
            EXPECT_TRUE(color.green() > 240 && color.red() < 15)
                << what << ": " << color.name().toStdString() << " at " << at.x();
        }
    }
}

} // namespace
