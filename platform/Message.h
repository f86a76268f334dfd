#pragma once

#include <QRect>
#include <QString>
#include <functional>

class QDialog;

namespace platform {

// Once the program was asked to quit, no message is shown and every question is answered with No.

enum class Icon { None, Information, Warning, Critical };

/// Where on the screen dialogs appear while no window of the program is open: in the middle of
/// what `place` answers at that time.
void SetDialogPlace(std::function<QRect()> place);

/// Moves a dialog without an owner to that place.
void PlaceDialog(QDialog& dialog);

/// Shows a message box with one OK button and waits until it is closed.
void ShowMessage(const QString& text, Icon icon = Icon::Information,
                 const QString& title = QStringLiteral("Songrush"));

/// Asks a question with Yes and No and no icon; closing the box means No.
bool AskYesNo(const QString& text, const QString& title = QStringLiteral("Songrush"));

} // namespace platform
