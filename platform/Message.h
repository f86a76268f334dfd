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
    QStringList buttons; ///< from left to right, "&" before the letter that presses one
};

// Once the program was asked to quit, no message is shown and every question has its last answer.

/// Shows a message with one OK button and waits until it is closed. From another thread than that
/// of the user interface it is shown as soon as events run, and not waited for.
void ShowMessage(const QString& text, Icon icon = Icon::Information,
                 const QString& title = QStringLiteral("Songrush"));

/// Asks a question with Yes and No and no icon; closing it means No.
bool AskYesNo(const QString& text, const QString& title = QStringLiteral("Songrush"));

enum class SaveAnswer { Save, DontSave, Cancel };

/// Asks whether something is to be saved before it is lost; closing the question means Cancel.
SaveAnswer AskToSave(const QString& text, const QString& title = QStringLiteral("Songrush"));

/// Lets `box` show messages, instead of windows of their own, and return the number of the button
/// that was pressed, from 0; closing a message presses its last one.
void SetMessageBox(std::function<int(const Message&)> box);

} // namespace platform
