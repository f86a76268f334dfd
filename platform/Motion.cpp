#include "platform/Motion.h"

#include "platform/DesktopMotion.h"

#include <QTimer>
#include <utility>

namespace platform {

namespace {

bool gReduced = false;
std::function<bool()> gWish;

} // namespace

bool MotionReduced() { return gWish ? gWish() : gReduced; }

void AskAboutMotion() {
    constexpr int kSoon = 50; // milliseconds: the screen is painted first
    QTimer::singleShot(kSoon,
                       [] { AskDesktopAboutMotion([](bool reduced) { gReduced = reduced; }); });
}

std::function<bool()> ReplaceMotionWish(std::function<bool()> wish) {
    return std::exchange(gWish, std::move(wish));
}

} // namespace platform
