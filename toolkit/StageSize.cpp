#include "toolkit/StageSize.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <iterator>

namespace toolkit {

namespace {

constexpr std::array kSizes = {100, 125, 150, 175, 200, 250, 300, 400};

/// The percentage at which the stage fills `available` one way and fits the other.
int Filling(const QSize& available) {
    return std::min(100 * available.width() / kStageSize.width(),
                    100 * available.height() / kStageSize.height());
}

/// The nearest place to `start` at which `size` lies within `length` from `begin`.
int Within(int start, int size, int begin, int length) {
    return std::max(std::min(start, begin + length - size), begin);
}

QRect MovedInto(const QRect& window, const QRect& screen) {
    const QSize size =
        window.size().width() <= screen.width() && window.size().height() <= screen.height()
            ? window.size()
            : FittedSize(window.size().boundedTo(screen.size()));
    return QRect(Within(window.x(), size.width(), screen.x(), screen.width()),
                 Within(window.y(), size.height(), screen.y(), screen.height()), size.width(),
                 size.height());
}

} // namespace

std::vector<int> SizesThatFit(const QSize& available) {
    std::vector<int> sizes;
    std::ranges::copy_if(kSizes, std::back_inserter(sizes),
                         [&](int percent) { return percent <= Filling(available); });
    return sizes;
}

int ComfortableSize(const QSize& available) {
    const std::vector<int> sizes = SizesThatFit(available * 0.85);
    if (!sizes.empty())
        return sizes.back();
    return std::clamp(Filling(available), 1, 100);
}

QSize WindowSizeOf(int percent) { return kStageSize * percent / 100; }

QSize FittedSize(const QSize& window) {
    return kStageSize.scaled(window, Qt::KeepAspectRatio).expandedTo(QSize(8, 6));
}

QRect StartPlace(const std::optional<QRect>& last, const std::vector<QRect>& screens) {
    if (last) {
        const auto screen = std::ranges::find_if(
            screens, [&](const QRect& each) { return each.contains(last->center()); });
        if (screen != screens.end())
            return MovedInto(*last, *screen);
    }
    const QRect& screen = screens.front();
    const QSize size =
        last ? MovedInto(*last, screen).size() : WindowSizeOf(ComfortableSize(screen.size()));
    QRect place(QPoint(0, 0), size);
    place.moveCenter(screen.center());
    return MovedInto(place, screen);
}

QString TextFromPlace(const QRect& place) {
    return QStringLiteral("%1 %2 %3 %4")
        .arg(place.x())
        .arg(place.y())
        .arg(place.width())
        .arg(place.height());
}

std::optional<QRect> PlaceFromText(const QString& text) {
    constexpr int kFarthest = 1'000'000;
    const QStringList texts = text.split(u' ');
    std::array<int, 4> numbers{};
    if (texts.size() != std::ssize(numbers))
        return std::nullopt;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        bool isNumber = false;
        numbers[i] = texts[static_cast<qsizetype>(i)].toInt(&isNumber);
        if (!isNumber || std::abs(std::int64_t{numbers[i]}) > kFarthest)
            return std::nullopt;
    }
    const auto [x, y, width, height] = numbers;
    const QRect place(x, y, width, height);
    return place.isEmpty() ? std::nullopt : std::optional(place);
}

} // namespace toolkit
