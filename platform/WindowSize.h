#pragma once

#include <QPoint>
#include <QSize>
#include <vector>

class QWidget;

/// How large the program's windows are on a screen that the system does not scale, in percent of
/// their size in pixels. A start has one size for all of them; another one takes another start.
namespace platform {

/// The sizes to choose from where a window of `window` pixels at 100 percent has `available` pixels
/// of the screen: those that fit, ascending, and 100 in any case.
std::vector<int> SizesThatFit(QSize window, QSize available);

/// The size to start in: the one that was chosen or the largest below it that fits. With none
/// chosen (0) it is 100, or 200 where a window of that size takes at most 60 % of the height.
int StartSize(QSize window, QSize available, int chosen);

/// Sets the size for this start: that of the last one, or the one this start was made for. The
/// scale that a user has set for the windowing toolkit goes before. To be called before the
/// application object is made.
void ApplyWindowSize();

/// Whether this start has the right size for the screen; if not, another start is wanted. To be
/// called as soon as the application object is made.
bool CheckWindowSize(QSize window);

/// Where the first window appears.
QPoint StartPlace();

/// Lets the next start begin with the size of this one.
void KeepWindowSize();

/// The size of this start.
int WindowSize();

/// The sizes among which the user may choose for a window that is `window` large; empty where the
/// system or the user scales windows anyway.
std::vector<int> WindowSizes(const QWidget& window);

/// Remembers the size that the user chose for all windows; 0 forgets what was chosen before. True
/// when the program is to start anew for it, with its first window where `window` is now.
bool ChooseWindowSize(int percent, const QWidget& window);

/// Whether the program is to start anew.
bool NewStartWanted();

} // namespace platform
