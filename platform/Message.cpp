#include "platform/Message.h"

#include "platform/Wait.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QList>
#include <QMessageBox>
#include <QPushButton>
#include <QThread>
#include <deque>
#include <utility>

namespace platform {

namespace {

QMessageBox::Icon ToQt(Icon icon) {
    switch (icon) {
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Warning:
        return QMessageBox::Warning;
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

int ShowInWindow(const Message& message) {
    QMessageBox box(ToQt(message.icon), message.title, message.text);
    // The texts hold file names, which must not be taken for markup.
    box.setTextFormat(Qt::PlainText);
    QList<QAbstractButton*> buttons;
    for (const QString& text : message.buttons)
        buttons.push_back(box.addButton(text, QMessageBox::AcceptRole));
    box.setEscapeButton(buttons.back());
    box.exec();
    return static_cast<int>(buttons.indexOf(box.clickedButton()));
}

std::function<int(const Message&)> gBox = ShowInWindow;

int Show(const Message& message) {
    return Quitting() ? static_cast<int>(message.buttons.size()) - 1 : gBox(message);
}

/// Shows the messages of other threads one after the other, not one over the other.
void ShowInTurn(const Message& message) {
    static std::deque<Message> due; // the first one is being shown
    due.push_back(message);
    if (due.size() > 1)
        return;
    for (; !due.empty(); due.pop_front())
        Show(due.front());
}

} // namespace

void SetMessageBox(std::function<int(const Message&)> box) { gBox = std::move(box); }

void ShowMessage(const QString& text, Icon icon, const QString& title) {
    const Message message{text, icon, title, {QStringLiteral("&OK")}};
    if (QThread::currentThread() == QCoreApplication::instance()->thread())
        Show(message);
    else
        CallLater([message] { ShowInTurn(message); });
}

bool AskYesNo(const QString& text, const QString& title) {
    return Show({text, Icon::None, title, {QStringLiteral("&Yes"), QStringLiteral("&No")}}) == 0;
}

SaveAnswer AskToSave(const QString& text, const QString& title) {
    return static_cast<SaveAnswer>(Show(
        {text,
         Icon::None,
         title,
         {QStringLiteral("&Save"), QStringLiteral("&Don't save"), QStringLiteral("&Cancel")}}));
}

} // namespace platform
