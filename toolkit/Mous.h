#pragma once

class QWidget;

namespace toolkit {

/// Lets the window move with the mouse until the button is released; called from the mouse-down
/// handler of a borderless form.
void DragForm(QWidget* form);

/// Keeps the window above all others, or stops doing so; either way moves it to the screen's
/// corner (0, 0).
void SetTopMost(QWidget* form, bool onTop);

/// The mouse pointer's position in screen pixels.
int CursorX();
int CursorY();

} // namespace toolkit
