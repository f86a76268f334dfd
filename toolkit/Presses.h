#pragma once

namespace toolkit {

/// What the player used last in any window of the program.
enum class Input { None, Mouse, Keys };

Input LastInput();

/// From now on the following holds for all controls, whatever the system sends:
/// - The second of two presses of one key, or of a button at one place, within the time of a double
///   click is left out, with its release, when a form, a picture box or a dialog was shown or
///   hidden in between.
/// - A key that is held down moves and types as it repeats, but presses nothing more, and does
///   nothing at all once what is shown has changed. It is released once.
/// - A key presses nothing together with Ctrl, Alt or Meta, except as a shortcut.
/// To be called before `LastInput`; further calls do nothing.
void WatchPresses();

} // namespace toolkit
