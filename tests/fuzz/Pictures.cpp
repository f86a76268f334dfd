#include "tests/toolkit/Pictures.h"
#include "game/CoverPicture.h"
#include "tests/fuzz/Target.h"
#include "toolkit/Picture.h"
#include "toolkit/PlainBitmap.h"

#include <QImageReader>

namespace {

void Run(const std::string& bytes) {
    constexpr int kSide = 100;
    constexpr QSize kGround(80, 60);
    const QString name = QStringLiteral("Images\\Skin.bmp");
    const PictureFolder folder;
    QImageReader::setAllocationLimit(16); // MiB, for speed
    const QByteArray encoded = QByteArray::fromStdString(bytes);
    const QImage cover = game::DecodeCover(encoded, kSide);
    EXPECT_TRUE(cover.isNull() || cover.size() == QSize(kSide, kSide));

    folder.Write(QStringLiteral("Images/Skin.bmp"), encoded);
    const QImage plain = toolkit::ReadPlainBitmap(toolkit::ProgramFile(name));
    const QImage read = QImage::fromData(encoded, "BMP").convertToFormat(QImage::Format_RGB32);
    EXPECT_TRUE(plain.isNull() || read.isNull() || plain == read);
    const toolkit::Picture skin = toolkit::LoadSkin(name);
    EXPECT_EQ(skin.size.isEmpty(), !skin.load);
    if (skin.load) {
        EXPECT_EQ(skin.load().size(), skin.size);
        EXPECT_EQ(skin.load().size(), skin.size);
    }
    EXPECT_EQ(toolkit::LoadGround(name, kGround).size(), kGround);
}

const fuzz::Target kPictures("pictures", Run);

} // namespace
