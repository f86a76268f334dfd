#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace platform {

enum class Icon { None, Information, Warning, Critical };

struct Message {
    QString text;
    Icon icon;
    QString title;
    QStringList buttons; ///< from left to right, "&" before a shortcut letter
};

// Once the program has been asked to quit, no message is shown, and a question returns its last
// answer.

/// Shows a message with one OK button and waits until it is closed. Called on any thread but the
/// user interface's, it returns at once, and the message is shown from the event loop.
void ShowMessage(const QString& text, Icon icon = Icon::Information,
                 const QString& title = QStringLiteral("Songrush"));

/// Asks a question with Yes and No and no icon; closing it means No.
bool AskYesNo(const QString& text, const QString& title = QStringLiteral("Songrush"));

enum class SaveAnswer { Save, DontSave, Cancel };

/// Asks whether something is to be saved before it is lost; closing the question means Cancel.
SaveAnswer AskToSave(const QString& text, const QString& title = QStringLiteral("Songrush"));

/// Makes `box` show all messages, instead of windows of their own. It returns the 0-based number of
/// the button pressed; closing a message counts as pressing the last one.
void SetMessageBox(std::function<int(const Message&)> box);

} // namespace platform
