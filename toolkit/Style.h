#pragma once

namespace toolkit {

/// Gives Qt's own controls (labels, text boxes, buttons, lists, message boxes and dialogs) the
/// program's colours and fonts.
void ApplyStyle();

/// Writes numbers as in the program's English texts, with ASCII digits, whatever the system's
/// locale. Names are still sorted by the system's locale.
void WriteNumbersInEnglish();

/// Starts reading the system's font settings, where fontconfig keeps them, on a separate thread. Qt
/// takes over what has been read. May be called before there is an application: its start leaves a
/// processor free.
void PreloadFontSettings();

/// Starts loading the faces of most texts on a separate thread, because the first texts would wait
/// for them.
void PreloadFont();

/// Sets the program's icon for all its windows.
void SetProgramIcon();

} // namespace toolkit
