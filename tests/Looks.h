#pragma once

class QWidget;

/// Expects a form to look as it does in `tests/looks/<name>.png`, which has half its size. Shades
/// that hardly differ count as the same. A picture that differs is saved where the test runs: if it
/// is right it takes the other one's place.
void ExpectLook(QWidget& form, const char* name);
