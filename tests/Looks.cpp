#include "tests/Looks.h"

#include "toolkit/Palette.h"
#include "toolkit/Stage.h"
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

/// How many pixels differ by more than `hardly`.
int Differences(const QImage& one, const QImage& other, int hardly) {
    if (one.size() != other.size())
        return -1;
    int count = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            count += std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                               std::abs(a.blue() - b.blue())}) > hardly;
        }
    return count;
}

QImage Grab(QWidget& form, const QSize& size) {
    const QImage shown = form.grab().toImage().convertToFormat(QImage::Format_RGB32);
    return shown.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// As large as the stage is in a window of that size.
QImage GrabIn(const QSize& window, QWidget& form, const QSize& size) {
    toolkit::Stage::Get().resize(window);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::ApplicationFontChange);
    return Grab(form, size);
}

/// Only roughly, because letters are not exactly as much larger as all else.
void ExpectSameInALargerWindow(QWidget& form, const char* name) {
    constexpr int kRoughly = 60;
    const QSize size = form.size() / 10;
    const QImage larger = GrabIn(QSize(1000, 750), form, size);
    const QImage before = GrabIn(toolkit::kStageSize, form, size);
    const int differences = Differences(before, larger, kRoughly);
    EXPECT_EQ(differences, 0) << name << ": differs in a larger window";
}

} // namespace

void ExpectLook(QWidget& form, const char* name) {
    QGuiApplication::styleHints()->setCursorFlashTime(0); // a text's cursor stands still
    const QString file = QLatin1String(name) + QStringLiteral(".png");
    const QImage half = Grab(form, form.size() / 2);
    const QImage expected(QStringLiteral(SONGRUSH_LOOKS "/") + file);
    const int differences = Differences(half, expected, 24);
    EXPECT_EQ(differences, 0) << name << ": pixels that differ";
    if (differences != 0)
        half.save(QCoreApplication::applicationDirPath() + u'/' + file);
    ExpectSameInALargerWindow(form, name);
}

void PrepareLooks() {
    toolkit::ApplyStyle();
    if (gBack)
        gBack->HDC(0)->Fill(QRect(0, 0, 800, 600), toolkit::kBlack);
}
