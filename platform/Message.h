#pragma once

#include <QString>
#include <functional>

namespace platform {

enum class Icon { None, Information, Warning, Critical };

struct Message {
    QString text;
    Icon icon;
    QString title;
    bool question; ///< with Yes and No instead of OK
};

// Once the program was asked to quit, no message is shown and every question is answered with No.

/// Shows a message with one OK button and waits until it is closed. From another thread than that
/// of the user interface it is shown as soon as events run, and not waited for.
void ShowMessage(const QString& text, Icon icon = Icon::Information,
                 const QString& title = QStringLiteral("Songrush"));

/// Asks a question with Yes and No and no icon; closing it means No.
bool AskYesNo(const QString& text, const QString& title = QStringLiteral("Songrush"));

/// Lets `box` show messages, instead of windows of their own, and return whether the answer is Yes.
void SetMessageBox(std::function<bool(const Message&)> box);

} // namespace platform
