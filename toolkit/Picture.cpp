#include "toolkit/Picture.h"

#include "platform/File.h"
#include "platform/Message.h"
#include "platform/ProgramFolder.h"
#include "toolkit/Canvas.h"
#include "toolkit/Drawing.h"
#include "toolkit/PlainBitmap.h"

#include <QBuffer>
#include <QImageReader>
#include <QStringList>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace toolkit {

namespace {

/// A set of pictures beside the base set, and how much larger its pictures are.
struct PictureSet {
    double scale;
    const char* folder;
};

constexpr std::array kSets = {PictureSet{1.5, "1.5x"}, PictureSet{2, "2x"}, PictureSet{3, "3x"}};

/// `name` in the set folder beside it: "Images\X.bmp" becomes "Images\2x\X.bmp".
QString InSet(const QString& name, const PictureSet& set) {
    const qsizetype end = name.lastIndexOf(u'\\');
    return name.left(end + 1) + QLatin1String(set.folder) + name.mid(end);
}

constexpr QRgb kOpaqueBlack = 0xFF000000;

template <typename Change> void ForEachPixel(QImage& image, Change change) {
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::transform(row, row + image.width(), row, change);
    }
}

/// The bytes of a bitmap; remembers whether the reader asked for more than there are.
class BitmapBytes : public QBuffer {
public:
    bool EndedEarly() const { return mEndedEarly; }

protected:
    qint64 readData(char* data, qint64 size) override {
        const qint64 got = QBuffer::readData(data, size);
        mEndedEarly = mEndedEarly || got < size;
        return got;
    }

private:
    bool mEndedEarly = false;
};

/// Null even for a truncated bitmap, of which Qt would leave the missing part black.
QImage ReadBitmap(const QByteArray& bytes) {
    BitmapBytes device;
    device.setData(bytes);
    QImageReader reader(&device, "BMP");
    reader.setAutoDetectImageFormat(false); // otherwise Qt loads all its plugins first
    const QImage picture = reader.read();
    return device.EndedEarly() ? QImage() : picture;
}

/// Without alpha: what is transparent is black.
QImage Read(const QString& name) {
    const std::filesystem::path file = ProgramFile(name);
    const QImage plain = ReadPlainBitmap(file);
    if (!plain.isNull())
        return plain;
    QByteArray bytes;
    if (platform::ReadWholeFile(file, bytes))
        return QImage();
    const QImage picture = bytes.startsWith("BM") ? ReadBitmap(bytes) : QImage::fromData(bytes);
    return picture.convertToFormat(QImage::Format_RGB32);
}

QSize Times(const QSize& size, double factor) {
    return QSize(static_cast<int>(std::lround(size.width() * factor)),
                 static_cast<int>(std::lround(size.height() * factor)));
}

/// Scaled to a multiple of its size, every pixel is repeated; otherwise colours are blended. Black
/// is transparent and stays so: it is not blended into the colours beside it, and a pixel less than
/// half covered by them is black.
QImage Scaled(const QImage& picture, const QSize& size) {
    if (picture.isNull() || size == picture.size())
        return picture;
    if (size.width() % picture.width() == 0 && size.height() % picture.height() == 0)
        return picture.scaled(size);
    QImage colors = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    ForEachPixel(colors, [](QRgb pixel) { return pixel == kOpaqueBlack ? 0 : pixel; });
    QImage scaled = colors.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                        .convertToFormat(QImage::Format_ARGB32);
    ForEachPixel(scaled, [](QRgb pixel) {
        return qAlpha(pixel) < 128 ? kOpaqueBlack
                                   : std::max(pixel | kOpaqueBlack, kOpaqueBlack + 1);
    });
    return scaled;
}

/// Whether the first frame has a visible pixel. Without one its button could neither be seen nor
/// pressed.
bool IsSkin(const QImage& picture) {
    for (int y = 0; y < picture.height() / 3; ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        if (std::any_of(row, row + picture.width(),
                        [](QRgb pixel) { return (pixel & RGB_MASK) != 0; }))
            return true;
    }
    return false;
}

enum class Kind { Ground, Skin };

struct Loaded {
    QSize size; // logical pixels
    QImage pixels;
};

/// The first usable picture.
Loaded Load(const QString& name, Kind kind) {
    const double ratio = Canvas::Ratio();
    const auto load = [=](const QString& file, double scale) {
        const QImage read = Read(file);
        const QSize size = Times(read.size(), 1 / scale);
        const QImage pixels = Scaled(read, Times(size, ratio));
        return kind == Kind::Ground || IsSkin(pixels) ? Loaded{size, pixels} : Loaded{};
    };
    if (ratio > 1) {
        for (const PictureSet& set : kSets) {
            if (set.scale < ratio && &set != &kSets.back())
                continue;
            const Loaded picture = load(InSet(name, set), set.scale);
            if (!picture.pixels.isNull())
                return picture;
        }
    }
    return load(name, 1);
}

QStringList gReported;
QStringList gUntold;

void TellMissing() {
    if (gUntold.isEmpty())
        return;
    const QString names = gUntold.join(u'\n');
    gUntold.clear();
    platform::ShowMessage(QStringLiteral("These pictures are missing or damaged:\n") + names +
                              QStringLiteral("\nSongrush goes on without them."),
                          platform::Icon::Warning);
}

/// One message names all of them as soon as events run.
void ReportMissing(const QString& file) {
    const QString name = file.startsWith(u'\\') ? file.mid(1) : file;
    if (gReported.contains(name, Qt::CaseInsensitive))
        return;
    gReported << name;
    if (gUntold.isEmpty())
        QTimer::singleShot(0, TellMissing);
    gUntold << name;
}

QImage PlainGround(QSize size) {
    Canvas canvas(size.width(), size.height());
    // A middle tone, because the screens write both bright and dark texts on it.
    Drawing(&canvas).Gradient(0, 0, size.width(), size.height(), Rgb(96, 104, 196),
                              Rgb(84, 92, 180));
    return canvas.Image();
}

QImage DrawPlainSkin(QSize frameSize) {
    constexpr Bevel kFrames[] = {{Rgb(90, 100, 220), Rgb(30, 20, 80), Rgb(25, 30, 100)},
                                 {kLilac, Rgb(60, 30, 140), Rgb(70, 50, 170)},
                                 {Rgb(30, 20, 80), kPink, kDusk}};
    Canvas canvas(frameSize.width(), frameSize.height() * 3);
    Drawing drawing(&canvas);
    QRect frame(QPoint(0, 0), frameSize);
    for (const Bevel& look : kFrames) {
        drawing.Box(look, frame);
        frame.translate(0, frameSize.height());
    }
    return canvas.Image();
}

} // namespace

std::filesystem::path ProgramFile(const QString& name) {
    std::filesystem::path path;
    std::error_code error;
    for (const auto& folder : {platform::ProgramFolder(), platform::ShippedFolder()}) {
        path = folder;
        for (const QString& part : name.split(u'\\', Qt::SkipEmptyParts))
            path = platform::FindWithoutCase(path, part.toStdString());
        if (std::filesystem::exists(path, error))
            break;
    }
    return path;
}

QImage LoadGround(const QString& name, QSize size) {
    const QImage picture = Load(name, Kind::Ground).pixels;
    if (picture.isNull()) {
        ReportMissing(name);
        return PlainGround(size);
    }
    const QSize pixels = Canvas::ScreenPixels(QRect(QPoint(0, 0), size)).size();
    return picture.size() == pixels
               ? picture
               : picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

Picture LoadSkin(const QString& name) {
    const Loaded skin = Load(name, Kind::Skin);
    if (skin.pixels.isNull()) {
        ReportMissing(name);
        return {};
    }
    // What has been loaded serves for the first time.
    return {skin.size, [name, size = skin.size, first = std::make_shared<QImage>(skin.pixels)] {
                if (!first->isNull())
                    return std::exchange(*first, QImage());
                const QImage again = Load(name, Kind::Skin).pixels;
                return again.isNull() ? DrawPlainSkin(QSize(size.width(), size.height() / 3))
                                      : again;
            }};
}
Picture PlainSkin(QSize size) {
    return {QSize(size.width(), size.height() * 3), [size] { return DrawPlainSkin(size); }};
}

} // namespace toolkit
