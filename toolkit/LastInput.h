#pragma once

class QKeyEvent;

namespace toolkit {

/// What the player used last, in any window of the program.
enum class Input { None, Mouse, Keys };

Input LastInput();

/// Whether a press of a key comes of its being held down.
bool IsRepeat(const QKeyEvent& press);

/// Called before `LastInput` and `IsRepeat` have to be right; once is enough.
void WatchInput();

} // namespace toolkit
