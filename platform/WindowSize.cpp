#include "platform/WindowSize.h"

#include "platform/Settings.h"

#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <array>
#include <optional>
#include <ranges>

namespace platform {

namespace {

constexpr int kPlain = 100;
constexpr int kLarge = 200;
constexpr std::array kSizes = {kPlain, 150, kLarge, 300};

constexpr const char* kScaleVariable = "QT_SCALE_FACTOR";
/// Hands size and place on to a new start: "200 x y".
constexpr const char* kStartVariable = "SONGRUSH_START";

struct State {
    int size = kPlain;
    bool scaledByUser = false;
    bool newStart = false; // this start was made for its size
    bool newStartWanted = false;
    QPoint place;
};

State gState;

QString Application() { return QStringLiteral("Songrush"); }
QString Section() { return QStringLiteral("Window"); }
QString ChosenKey() { return QStringLiteral("Size"); }
QString LastKey() { return QStringLiteral("LastSize"); }

int ReadSize(const QString& key) {
    return ReadSetting(Application(), Section(), key, QString()).toInt();
}

bool IsSize(int percent) { return std::ranges::find(kSizes, percent) != kSizes.end(); }

double Factor(int percent) { return percent / 100.0; }

bool Fits(QSize window, QSize available, int percent) {
    return window.width() * percent <= available.width() * 100 &&
           window.height() * percent <= available.height() * 100;
}

/// A rectangle of the screen relative to its corner in the screen's own pixels.
QRect OwnPixels(const QScreen& screen, const QRect& area) {
    const QRectF inside = area.translated(-screen.geometry().topLeft());
    const double factor = Factor(gState.size);
    return QRectF(inside.topLeft() * factor, inside.size() * factor).toRect();
}

bool ScaledBySystem(const QScreen& screen) {
    return screen.devicePixelRatio() > Factor(gState.size) * 1.01;
}

void WantNewStart(int percent, QPoint place) {
    const QByteArray start = QByteArray::number(percent) + ' ' + QByteArray::number(place.x()) +
                             ' ' + QByteArray::number(place.y());
    qputenv(kStartVariable, start);
    gState.newStartWanted = true;
}

/// Where a window of another size comes as near to `window` as the screen allows.
QPoint PlaceFor(const QWidget& window, int percent) {
    const QScreen& screen = *window.screen();
    const QRect available = OwnPixels(screen, screen.availableGeometry());
    const QSizeF size = QSizeF(window.size()) * Factor(percent);
    const QPoint now = OwnPixels(screen, window.geometry()).topLeft();
    const auto nearest = [](int at, int start, double spare) {
        return std::max<double>(std::min<double>(at, start + spare), start);
    };
    const QPointF place(nearest(now.x(), available.x(), available.width() - size.width()),
                        nearest(now.y(), available.y(), available.height() - size.height()));
    return screen.geometry().topLeft() + (place / Factor(percent)).toPoint();
}

} // namespace

std::vector<int> SizesThatFit(QSize window, QSize available) {
    std::vector<int> sizes;
    std::ranges::copy_if(kSizes, std::back_inserter(sizes), [&](int percent) {
        return percent == kPlain || Fits(window, available, percent);
    });
    return sizes;
}

int StartSize(QSize window, QSize available, int chosen) {
    if (!IsSize(chosen)) {
        const bool vast = window.height() * kLarge <= available.height() * 60;
        chosen = vast ? kLarge : kPlain;
    }
    const std::vector<int> sizes = SizesThatFit(window, available);
    return *std::prev(std::ranges::upper_bound(sizes, chosen));
}

void ApplyWindowSize() {
    gState = State();
    if (qEnvironmentVariableIsSet(kScaleVariable) ||
        qEnvironmentVariableIsSet("QT_SCREEN_SCALE_FACTORS")) {
        gState.scaledByUser = true;
        return;
    }
    const QList<QByteArray> start = qgetenv(kStartVariable).split(' ');
    qunsetenv(kStartVariable);
    int size = start.front().toInt();
    if (start.size() == 3 && IsSize(size)) {
        gState.newStart = true;
        gState.place = QPoint(start[1].toInt(), start[2].toInt());
    } else {
        size = ReadSize(LastKey());
    }
    if (!IsSize(size) || size == kPlain)
        return;
    gState.size = size;
    qputenv(kScaleVariable, QByteArray::number(Factor(size)));
}

bool CheckWindowSize(QSize window) {
    if (gState.scaledByUser)
        return true;
    qunsetenv(kScaleVariable); // it is for this program alone
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (gState.newStart || screen == nullptr)
        return true;
    const int right =
        ScaledBySystem(*screen)
            ? kPlain
            : StartSize(window, OwnPixels(*screen, screen->availableGeometry()).size(),
                        ReadSize(ChosenKey()));
    if (right == gState.size)
        return true;
    WantNewStart(right, QPoint());
    return false;
}

QPoint StartPlace() { return gState.place; }

void KeepWindowSize() {
    const int last = ReadSize(LastKey());
    if (gState.scaledByUser || (IsSize(last) ? last : kPlain) == gState.size)
        return;
    WriteSetting(Application(), Section(), LastKey(), QString::number(gState.size));
}

int WindowSize() { return gState.size; }

std::vector<int> WindowSizes(const QWidget& window) {
    const QScreen& screen = *window.screen();
    if (gState.scaledByUser || ScaledBySystem(screen))
        return {};
    return SizesThatFit(window.size(), OwnPixels(screen, screen.availableGeometry()).size());
}

bool ChooseWindowSize(int percent, const QWidget& window) {
    const QScreen& screen = *window.screen();
    const QSize available = OwnPixels(screen, screen.availableGeometry()).size();
    WriteSetting(Application(), Section(), ChosenKey(),
                 percent == 0 ? QString() : QString::number(percent));
    const int size = StartSize(window.size(), available, percent);
    if (size == gState.size)
        return false;
    WantNewStart(size, PlaceFor(window, size));
    return true;
}

bool NewStartWanted() { return gState.newStartWanted; }

} // namespace platform
