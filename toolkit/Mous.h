#pragma once

#include <Qt>

class QWidget;

namespace toolkit {

class Form;

/// Lets a form move about the stage with the mouse until the button is released. A form that fills
/// the stage moves the program's window instead.
void DragForm(Form* form);

/// Keeps the form in front of all others but messages, or stops doing so; either way moves it to
/// the stage's corner (0, 0).
void SetTopMost(Form* form, bool onTop);

/// Lets a window move with the mouse, or be resized by its edges, until the button is released.
void DragWindow(QWidget& window, Qt::Edges edges = {});

/// The mouse pointer's position in screen pixels.
int CursorX();
int CursorY();

} // namespace toolkit
