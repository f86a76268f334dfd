#pragma once

class QApplication;

namespace toolkit {

/// Dresses the windowing toolkit's own controls (labels, text boxes, buttons, lists, message boxes
/// and dialogs) in the program's colours and fonts, and sets the program's icon.
void ApplyStyle(QApplication& application);

} // namespace toolkit
