#pragma once

namespace toolkit {

/// What the player used last, in any window of the program.
enum class Input { None, Mouse, Keys };

Input LastInput();

/// Called before `LastInput` has to be right; once is enough.
void WatchInput();

} // namespace toolkit
