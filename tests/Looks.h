#pragma once

class QWidget;

/// Expects a form to look as it does in `tests/looks/<name>.png`, which has half its size, and much
/// the same in a larger window, and to tell screen readers and the Tab key what is in `<name>.txt`.
/// Shades that hardly differ count as the same. What differs is saved beside the test program: if
/// it is right it takes the other one's place.
void ExpectLook(QWidget& form, const char* name);

/// Gives Qt's controls the program's style, and the program a black background, so that looks are
/// only of what is drawn on it.
void PrepareLooks();
