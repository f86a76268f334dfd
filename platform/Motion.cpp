#include "platform/Motion.h"

#include <QTimer>
#include <QtGlobal>
#include <utility>

#ifdef Q_OS_WIN
#include <windows.h>
#elif defined(Q_OS_MACOS)
#include <CoreFoundation/CoreFoundation.h>
#else
#include "platform/DesktopMotion.h"
#endif

namespace platform {

namespace {

bool gReduced = false;
std::function<bool()> gWish;

#ifdef Q_OS_WIN

void AskSystem() {
    BOOL animated = TRUE;
    if (SystemParametersInfoW(SPI_GETCLIENTAREAANIMATION, 0, &animated, 0))
        gReduced = !animated;
}

#elif defined(Q_OS_MACOS)

void AskSystem() {
    gReduced = CFPreferencesGetAppBooleanValue(CFSTR("reduceMotion"),
                                               CFSTR("com.apple.universalaccess"), nullptr);
}

#else

void AskSystem() {
    AskDesktopAboutMotion([](bool reduced) { gReduced = reduced; });
}

#endif

} // namespace

bool MotionReduced() { return gWish ? gWish() : gReduced; }

void AskAboutMotion() {
    constexpr int kSoon = 50; // milliseconds: the screen is painted first
    QTimer::singleShot(kSoon, AskSystem);
}

std::function<bool()> ReplaceMotionWish(std::function<bool()> wish) {
    return std::exchange(gWish, std::move(wish));
}

} // namespace platform
