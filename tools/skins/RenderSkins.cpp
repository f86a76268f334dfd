// Renders the drawing of a skin or picture to the bitmaps that the program loads.
//
//     songrush_render_skins [--frames] drawing.svg scale picture [scale picture ...]
//
// A scale is a factor, or the width that the picture is to have, as in "48px".
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
#include <cmath>
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

int Scaled(int length, double scale) { return int(std::lround(length * scale)); }

// Nothing if the drawing cannot be read. `place` counts the drawings of that size above it in a
// stack: at a fractional scale not all of them have the same number of rows. The painting is 16
// bits a channel, so that many faint layers of light add up exactly.
std::optional<QImage> Render(const QByteArray& drawing, double scale, int place = 0) {
    QSvgRenderer renderer(drawing);
    const QSize size = renderer.defaultSize();
    if (!renderer.isValid() || size.isEmpty())
        return std::nullopt;

    const int rows =
        Scaled(size.height() * (place + 1), scale) - Scaled(size.height() * place, scale);
    QImage canvas(Scaled(size.width(), scale), rows, QImage::Format_RGBA64_Premultiplied);
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

double ScaleOf(const QString& text, const QByteArray& drawing) {
    if (!text.endsWith(u"px"))
        return text.toDouble();
    return text.chopped(2).toDouble() / std::max(1, QSvgRenderer(drawing).defaultSize().width());
}

std::optional<QImage> RenderFrames(const QByteArray& drawing, double scale) {
    std::vector<QImage> frames;
    int height = 0;
    for (const char* look : kLooks) {
        QByteArray dressed = drawing;
        const std::optional<QImage> frame =
            Render(dressed.replace(kLooks[0], look), scale, int(frames.size()));
        if (!frame)
            return std::nullopt;
        frames.push_back(*frame);
        height += frame->height();
    }

    QImage skin(frames[0].width(), height, QImage::Format_RGB32);
    int row = 0;
    for (const QImage& frame : frames) {
        for (int y = 0; y < frame.height(); ++y) {
            const auto* from = reinterpret_cast<const QRgb*>(frame.constScanLine(y));
            auto* to = reinterpret_cast<QRgb*>(skin.scanLine(row++));
            std::transform(from, from + skin.width(), to, SkinPixel);
        }
    }
    return skin;
}

// A bitmap has no transparency; every other format keeps it.
bool Write(const QImage& image, const QString& path) {
    if (path.endsWith(u".bmp", Qt::CaseInsensitive))
        return image.convertToFormat(QImage::Format_RGB32).save(path, "BMP");
    return image.save(path);
}

// The renderer only warns about what it cannot read and leaves it out; here that is an error.
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
    if (arguments.size() < 3 || arguments.size() % 2 == 0)
        return Fail("needs a drawing, scales and the pictures to make", arguments.join(u' '));

    const QString source = arguments.takeFirst();
    struct Target {
        QString scale;
        QString path;
    };
    std::vector<Target> targets;
    for (int i = 0; i < arguments.size(); i += 2)
        targets.push_back({arguments[i], QFileInfo(arguments[i + 1]).absoluteFilePath()});

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

    for (const auto& [wanted, target] : targets) {
        const double scale = ScaleOf(wanted, drawing);
        const std::optional<QImage> image =
            framed ? RenderFrames(drawing, scale) : Render(drawing, scale);
        if (!image || gLeftOut)
            return Fail("not a drawing that can be rendered whole", source);
        if (!QDir().mkpath(QFileInfo(target).absolutePath()) || !Write(*image, target))
            return Fail("cannot write", target);
    }
    return 0;
}
