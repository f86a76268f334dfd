#include "toolkit/GlideSprite.h"

#include "platform/Motion.h"
#include "platform/Rounding.h"
#include "platform/Time.h"
#include "platform/Wait.h"

#include <QScreen>
#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace toolkit {

namespace {

QPoint PlaceAfter(QPoint from, QPoint way, double share) {
    return from + QPoint(platform::RoundHalfEven(way.x() * share),
                         platform::RoundHalfEven(way.y() * share));
}

/// Milliseconds until the display's next refresh but not beyond `end`, all counted from the start:
/// the pace does not depend on how long a frame takes.
int UntilNextFrame(std::int64_t elapsed, double frame, std::int64_t end) {
    const double next = (std::floor(static_cast<double>(elapsed) / frame) + 1) * frame;
    return static_cast<int>(
        std::min<std::int64_t>(static_cast<std::int64_t>(std::ceil(next)), end) - elapsed);
}

} // namespace

void GlideSprite(Form& form, QPoint from, QPoint to, const Sprite& sprite, int duration,
                 bool drawAtEnd) {
    if (duration == 0)
        throw std::domain_error("a glide needs time");
    // One more pixel each way: at a fractional ratio the size of the sprite varies with its place.
    const QSize area(sprite.width + 1, sprite.height + 1);
    Canvas before = *form.Dc();
    const auto restore = [&](QPoint at) {
        BitBlt(form.Dc(), at.x(), at.y(), area.width(), area.height(), &before, at.x(), at.y(),
               RasterOp::SrcCopy);
    };
    const auto draw = [&](QPoint at) {
        DrawMasked(form.Dc(), at.x(), at.y(), sprite.width, sprite.height, sprite.mask,
                   sprite.image, sprite.sourceX, sprite.sourceY);
    };

    if (platform::MotionReduced()) {
        if (drawAtEnd)
            draw(to);
        form.Refresh();
        return platform::PumpEvents();
    }

    const double frame = 1000 / std::max(form.screen()->refreshRate(), 30.0);
    const std::int64_t start = platform::TickCount();
    std::int64_t elapsed = 0;
    QPoint previous = from;
    QPoint current = from;
    do {
        restore(previous);
        draw(current);
        form.Refresh(QRect(previous, area) | QRect(current, area));
        // The last frame is cut short; a late one does not take the sprite past its end.
        platform::WaitFor(UntilNextFrame(elapsed, frame, duration));
        elapsed = std::min<std::int64_t>(platform::TickCount() - start, duration);
        previous = current;
        current = PlaceAfter(from, to - from, static_cast<double>(elapsed) / duration);
    } while (elapsed < duration && !platform::Quitting());
    *form.Dc() = before;
    if (drawAtEnd)
        draw(current);
    form.Refresh();
    platform::PumpEvents();
}

} // namespace toolkit
