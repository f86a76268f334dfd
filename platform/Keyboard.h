#pragma once

#include <QtGlobal>

namespace platform {

/// The digit 1 to 9 printed on the key with a native scan code, in the upper row or on the keypad,
/// even where the layout gives a digit only with Shift or Num Lock. 0 if there is none, or if the
/// system does not say.
int DigitOnKey(quint32 nativeScanCode);

} // namespace platform
