#include "platform/Keyboard.h"

#include <algorithm>
#include <array>

namespace platform {

#if defined(Q_OS_LINUX) && !defined(SONGRUSH_PORTABLE)

int DigitOnKey(quint32 nativeScanCode) {
    // X and Wayland both add 8 to the kernel's key codes.
    constexpr quint32 kRow = 10;
    constexpr std::array<quint32, 9> kPad = {87, 88, 89, 83, 84, 85, 79, 80, 81};
    if (nativeScanCode >= kRow && nativeScanCode < kRow + 9)
        return static_cast<int>(nativeScanCode - kRow) + 1;
    const auto* key = std::ranges::find(kPad, nativeScanCode);
    return key == kPad.end() ? 0 : static_cast<int>(key - kPad.begin()) + 1;
}

#else

int DigitOnKey(quint32) { return 0; }

#endif

} // namespace platform
