#include "game/CoverPicture.h"

#include "tests/TemporaryFolder.h"

#include <QImage>

namespace {

TEST(CoverPicture, TheMiddleOfAPictureFillsTheSquareUnlessItCannotBeShown) {
    // Green in the middle, or all over; what is left and right, or above and below, is red.
    const std::pair<const char*, bool> cases[] = {
        {"wide.jpg", true},   {"wide.png", true},    {"tall.bmp", true},
        {"moving.gif", true}, {"largest.png", true}, {"too-large.png", false},
        {"line.png", false},  {"cut.png", false},    {"drawing.svg", false}, // could name files
        {"plain.ppm", false},
    };
    constexpr int kSide = 120;
    for (const auto& [name, shown] : cases) {
        const auto bytes = BytesOf(std::string(SONGRUSH_CORPUS "/pictures/") + name);
        const QImage cover = game::DecodeCover(QByteArray::fromStdString(bytes), kSide);
        ASSERT_EQ(cover.size(), shown ? QSize(kSide, kSide) : QSize(0, 0)) << name;
        for (const int at : {10, 60, 109}) {
            const QColor color = shown ? cover.pixelColor(at, at) : Qt::green;
            EXPECT_TRUE(color.green() > 200 && color.red() < 60) << name << " at " << at;
        }
    }
}

} // namespace
