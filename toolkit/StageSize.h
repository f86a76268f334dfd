#pragma once

#include <QRect>
#include <QSize>
#include <optional>
#include <vector>

namespace toolkit {

/// Size of the stage in logical pixels.
constexpr QSize kStageSize(800, 600);

// Sizes of the stage's window on the screen are in percent of `kStageSize`; `available` is what the
// desktop leaves of a screen, in Qt's pixels.

/// The sizes to choose from: those that fit, ascending.
std::vector<int> SizesThatFit(const QSize& available);

/// The size of a first start: as large as leaves something of the desktop to be seen, and in any
/// case one that fits.
int ComfortableSize(const QSize& available);

QSize WindowSizeOf(int percent);

/// The largest window of the stage's shape that fits into `window`.
QSize FittedSize(const QSize& window);

/// Where the window appears: where it was last, moved into the screen that it was on and made
/// smaller if it must be; or else in the middle of the first screen. `screens`: what is available
/// of each; not empty.
QRect StartPlace(const std::optional<QRect>& last, const std::vector<QRect>& screens);

} // namespace toolkit
