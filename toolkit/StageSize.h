#pragma once

#include <QRect>
#include <QSize>
#include <QString>
#include <optional>
#include <vector>

namespace toolkit {

/// Size of the stage in logical pixels.
constexpr QSize kStageSize(800, 600);

// Sizes of the stage's window on the screen are in percent of `kStageSize`; `available` is what the
// desktop leaves of a screen, in Qt's pixels.

/// The sizes to choose from: those that fit, ascending.
std::vector<int> SizesThatFit(const QSize& available);

/// The size for a first start: large, but with some of the desktop still visible, and always one
/// that fits.
int ComfortableSize(const QSize& available);

QSize WindowSizeOf(int percent);

/// The largest window of the stage's shape that fits into `window`.
QSize FittedSize(const QSize& window);

/// Where the window appears: where it was last, moved and if need be shrunk to fit the screen that
/// it was on; or else in the middle of the first screen. `screens` has the available area of each
/// and is not empty.
QRect StartPlace(const std::optional<QRect>& last, const std::vector<QRect>& screens);

/// A window's place as text to be remembered.
QString TextFromPlace(const QRect& place);

/// The place of such a text; none for any other text, or for what lies beyond all desktops.
std::optional<QRect> PlaceFromText(const QString& text);

} // namespace toolkit
