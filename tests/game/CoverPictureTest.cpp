#include "game/CoverPicture.h"

#include <QBuffer>
#include <QPainter>
#include <algorithm>
#include <gtest/gtest.h>
#include <tuple>
#include <utility>

namespace {

constexpr int kSide = 120;

QByteArray Encoded(const QImage& picture, const char* format) {
    QBuffer buffer;
    EXPECT_TRUE(picture.save(&buffer, format)) << format;
    return buffer.data();
}

/// Green with red at both ends.
QImage Striped(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const int end = (std::max(width, height) - std::min(width, height)) / 2;
    QPainter(&picture).fillRect(width > height ? picture.rect().adjusted(end, 0, -end, 0)
                                               : picture.rect().adjusted(0, end, 0, -end),
                                Qt::green);
    return picture;
}

QByteArray Black(int width, int height) {
    QImage picture(width, height, QImage::Format_Mono);
    picture.fill(0);
    return Encoded(picture, "PNG");
}

TEST(CoverPicture, TheMiddleOfAPictureFillsTheSquare) {
    // A pixel, green and then red.
    const QByteArray animated = QByteArray::fromHex(
        "4749463839610100010080000000ff00ff0000"
        "21f904000a0000002c000000000100010000020244010021f904000a0000002c00000000010001000002024c"
        "01003b");
    const std::pair<const char*, QByteArray> cases[] = {
        {"a JPEG", Encoded(Striped(1500, 1000), "JPEG")},
        {"a high JPEG", Encoded(Striped(333, 1000), "JPEG")},
        {"a PNG", Encoded(Striped(600, 200), "PNG")},
        {"a PNG that is small", Encoded(Striped(31, 17), "PNG")},
        {"a BMP", Encoded(Striped(100, 300), "BMP")},
        {"a GIF that moves", animated},
    };
    for (const auto& [what, encoded] : cases) {
        const QImage cover = game::DecodeCover(encoded, kSide);
        ASSERT_EQ(cover.size(), QSize(kSide, kSide)) << what;
        for (const QPoint& at : {QPoint(6, 6), QPoint(60, 60), QPoint(113, 113)}) {
            const QColor color = cover.pixelColor(at);
            EXPECT_TRUE(color.green() > 240 && color.red() < 15)
                << what << ": " << color.name().toStdString() << " at " << at.x();
        }
    }
}

TEST(CoverPicture, WhatCannotBeShownIsNone) {
    const QByteArray png = Encoded(Striped(200, 200), "PNG");
    const std::tuple<const char*, QByteArray, bool> cases[] = {
        {"the limit", Black(4096, 4096), true},
        {"beyond it", Black(4097, 4096), false},
        {"a line", Black(20'000, 1), false},
        {"a cut picture", png.first(png.size() / 2), false},
        {"rubbish", QByteArray(1000, 'x'), false},
        {"nothing", "", false},
        {"a drawing that could name files",
         "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><path d='M0 0h9v9z'/></svg>",
         false},
        {"a format that no cover has", "P3 1 1 255 0 255 0\n", false},
    };
    for (const auto& [what, encoded, shown] : cases)
        EXPECT_EQ(game::DecodeCover(encoded, kSide).isNull(), !shown) << what;
}

} // namespace
