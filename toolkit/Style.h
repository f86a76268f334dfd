#pragma once

namespace toolkit {

/// Dresses the windowing toolkit's own controls (labels, text boxes, buttons, lists, message boxes
/// and dialogs) in the program's colours and fonts.
void ApplyStyle();

/// Has numbers written as in the program's English texts, with ASCII digits, whatever the system's
/// locale. Names are still sorted by that.
void WriteNumbersInEnglish();

/// Begins to load the program's font on a thread of its own; the first text would wait for it.
void PreloadFont();

/// Gives all windows of the program its icon.
void SetProgramIcon();

} // namespace toolkit
