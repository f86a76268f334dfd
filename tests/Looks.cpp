#include "tests/Looks.h"

#include "toolkit/Palette.h"
#include "toolkit/Style.h"
#include "toolkit/c_Surface.h"

#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QStyleHints>
#include <QWidget>
#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

bool Differ(QRgb one, QRgb other) {
    constexpr int kHardly = 24;
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other))}) > kHardly;
}

int Differences(const QImage& one, const QImage& other) {
    if (one.size() != other.size())
        return -1;
    int count = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            count += Differ(one.pixel(x, y), other.pixel(x, y));
    return count;
}

} // namespace

void ExpectLook(QWidget& form, const char* name) {
    QGuiApplication::styleHints()->setCursorFlashTime(0); // a text's cursor stands still
    const QString file = QLatin1String(name) + QStringLiteral(".png");
    const QImage shown = form.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QImage half =
        shown.scaled(shown.size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const int differences = Differences(half, QImage(QStringLiteral(SONGRUSH_LOOKS "/") + file));
    EXPECT_EQ(differences, 0) << name << ": pixels that differ";
    if (differences != 0)
        half.save(QCoreApplication::applicationDirPath() + u'/' + file);
}

void PrepareLooks() {
    toolkit::ApplyStyle();
    if (gBack)
        gBack->HDC(0)->Fill(QRect(0, 0, 800, 600), toolkit::kBlack);
}
