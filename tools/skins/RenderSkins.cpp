// Renders the drawing of a skin or picture to the bitmaps that the program loads.
//
//     songrush_render_skins [--frames] drawing.svg picture [picture at scale 2 [at scale 3 ...]]
//     songrush_render_skins --width pixels drawing.svg picture
//
// Without --frames the drawing becomes one picture. With it the drawing is a button: it is rendered
// once with each of the style sheets normal.css, hover.css and pressed.css that lie beside it, the
// looks are stacked in that order, and what is not the button becomes black, the transparent colour
// of the skins.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <vector>

namespace {

// The darkest a pixel of a button may be: black would be a hole in it.
constexpr int kDarkestRed = 2;
constexpr int kDarkestGreen = 2;
constexpr int kDarkestBlue = 12;

constexpr std::array kLooks = {"normal.css", "hover.css", "pressed.css"};

// A 16-bit channel as 8 bits, ordered-dithered: dark gradients show bands without it.
int EightBits(quint16 value, int x, int y) {
    constexpr int kBayer[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};
    return (value * 255 + kBayer[y & 3][x & 3] * 4096 + 2047) / 65535;
}

QRgb Pixel(QRgba64 colour, int x, int y) {
    const QRgba64 plain = colour.unpremultiplied();
    return qRgba(EightBits(plain.red(), x, y), EightBits(plain.green(), x, y),
                 EightBits(plain.blue(), x, y), plain.alpha8());
}

// The one-bit outline of a skin: a pixel is the button's own, opaque, or black.
QRgb SkinPixel(QRgb pixel) {
    if (qAlpha(pixel) < 128)
        return qRgb(0, 0, 0);
    return qRgb(std::max(qRed(pixel), kDarkestRed), std::max(qGreen(pixel), kDarkestGreen),
                std::max(qBlue(pixel), kDarkestBlue));
}

// Nothing if the drawing cannot be read. The painting is 16 bits a channel, so that many faint
// layers of light add up exactly.
std::optional<QImage> Render(const QByteArray& drawing, double scale) {
    QSvgRenderer renderer(drawing);
    if (!renderer.isValid() || renderer.defaultSize().isEmpty())
        return std::nullopt;

    QImage canvas(renderer.defaultSize() * scale, QImage::Format_RGBA64_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    renderer.render(&painter);
    painter.end();

    QImage picture(canvas.size(), QImage::Format_ARGB32);
    for (int y = 0; y < canvas.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgba64*>(canvas.constScanLine(y));
        auto* to = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < canvas.width(); ++x)
            to[x] = Pixel(from[x], x, y);
    }
    return picture;
}

std::optional<QImage> RenderAtWidth(const QByteArray& drawing, int width) {
    return Render(drawing, width / std::max(1.0, QSvgRenderer(drawing).viewBoxF().width()));
}

std::optional<QImage> RenderFrames(const QByteArray& drawing, int scale) {
    std::vector<QImage> frames;
    for (const char* look : kLooks) {
        QByteArray dressed = drawing;
        const std::optional<QImage> frame = Render(dressed.replace(kLooks[0], look), scale);
        if (!frame)
            return std::nullopt;
        frames.push_back(*frame);
    }

    const int height = frames[0].height();
    QImage skin(frames[0].width(), height * int(frames.size()), QImage::Format_RGB32);
    for (int y = 0; y < skin.height(); ++y) {
        const QImage& frame = frames[std::size_t(y / height)];
        const auto* from = reinterpret_cast<const QRgb*>(frame.constScanLine(y % height));
        auto* to = reinterpret_cast<QRgb*>(skin.scanLine(y));
        std::transform(from, from + skin.width(), to, SkinPixel);
    }
    return skin;
}

// A bitmap has no transparency; every other format keeps it.
bool Write(const QImage& image, const QString& path) {
    if (path.endsWith(u".bmp", Qt::CaseInsensitive))
        return image.convertToFormat(QImage::Format_RGB32).save(path, "BMP");
    return image.save(path);
}

// The renderer leaves out what it cannot read and only mentions it; here that is an error.
bool gLeftOut = false;

void Report(QtMsgType, const QMessageLogContext& context, const QString& message) {
    std::fprintf(stderr, "%s\n", qUtf8Printable(message));
    if (qstrcmp(context.category, "qt.svg") == 0)
        gLeftOut = true;
}

int Fail(const char* what, const QString& path) {
    std::fprintf(stderr, "songrush_render_skins: %s: %s\n", what, qUtf8Printable(path));
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(Report);
    const QGuiApplication application(argc, argv);

    QStringList arguments = QGuiApplication::arguments().mid(1);
    const bool framed = arguments.removeAll(QStringLiteral("--frames")) > 0;
    int width = 0;
    if (arguments.size() == 4 && arguments[0] == QStringLiteral("--width")) {
        width = arguments[1].toInt();
        arguments = arguments.mid(2);
    }
    if (arguments.size() < 2)
        return Fail("needs a drawing and the pictures to make", arguments.join(u' '));

    const QString source = arguments.takeFirst();
    QStringList targets;
    for (const QString& target : arguments)
        targets.append(QFileInfo(target).absoluteFilePath());

    QFile file(source);
    if (!file.open(QIODevice::ReadOnly))
        return Fail("cannot open", source);
    const QByteArray drawing = file.readAll();

    // Style sheets are found relative to the current folder, and passed over when missing.
    QDir::setCurrent(QFileInfo(source).absolutePath());
    for (const char* look : kLooks) {
        if (framed && !QFile::exists(QString::fromLatin1(look)))
            return Fail("no such style sheet beside the drawing", QString::fromLatin1(look));
    }

    for (int scale = 1; scale <= targets.size(); ++scale) {
        const QString& target = targets[scale - 1];
        const std::optional<QImage> image = width > 0 ? RenderAtWidth(drawing, width)
                                            : framed  ? RenderFrames(drawing, scale)
                                                      : Render(drawing, scale);
        if (!image || gLeftOut)
            return Fail("not a drawing that can be rendered whole", source);
        if (!QDir().mkpath(QFileInfo(target).absolutePath()) || !Write(*image, target))
            return Fail("cannot write", target);
    }
    return 0;
}
