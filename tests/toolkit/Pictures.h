#pragma once

#include "platform/ProgramFolder.h"
#include "tests/TemporaryFolder.h"
#include "toolkit/Canvas.h"

#include <QBuffer>
#include <QImage>

/// A program folder with the pictures that a test needs.
class PictureFolder {
public:
    PictureFolder() { platform::SetProgramFolder(mFolder.Path()); }
    ~PictureFolder() { platform::SetProgramFolder({}); }

    /// `file` with slashes, as in "Images/X.bmp".
    void Write(const QString& file, const QByteArray& bytes) const {
        mFolder.Write(file.toStdString(), bytes.toStdString());
    }

    void Save(const QString& file, const QImage& picture, const char* format = "BMP") const {
        Write(file, Bytes(picture, format));
    }

    static QByteArray Bytes(const QImage& picture, const char* format = "BMP") {
        QBuffer buffer;
        EXPECT_TRUE(picture.save(&buffer, format));
        return buffer.data();
    }

private:
    TemporaryFolder mFolder;
};

/// While it lives, new canvases have `ratio` pixels of the screen for a logical pixel.
class AtRatio {
public:
    explicit AtRatio(double ratio) { toolkit::Canvas::SetRatio(ratio); }
    ~AtRatio() { toolkit::Canvas::SetRatio(1); }
};

/// Gives every pixel of the screen a colour of its own, none of them black or white.
inline void Scribble(toolkit::Canvas& canvas) {
    canvas.Draw(QRect(0, 0, canvas.Width(), canvas.Height()), true, [](QImage& image) {
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, qRgb(x % 256, y % 256, 7 + x / 256));
    });
}
