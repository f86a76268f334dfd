#pragma once

class QKeyEvent;

namespace toolkit {

/// What the player used last, in any window of the program.
enum class Input { None, Mouse, Keys };

Input LastInput();

/// Whether a key press is a repeat of a key that is held down.
bool IsRepeat(const QKeyEvent& press);

/// Must be called before `LastInput` and `IsRepeat`; further calls do nothing.
void WatchInput();

} // namespace toolkit
