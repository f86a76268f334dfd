#include "platform/Message.h"

#include "platform/Wait.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QList>
#include <QMessageBox>
#include <QPushButton>
#include <QThread>
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

} // namespace

void SetMessageBox(std::function<int(const Message&)> box) { gBox = std::move(box); }

void ShowMessage(const QString& text, Icon icon, const QString& title) {
    QCoreApplication* application = QCoreApplication::instance();
    if (QThread::currentThread() != application->thread()) {
        QMetaObject::invokeMethod(
            application, [=] { ShowMessage(text, icon, title); }, Qt::QueuedConnection);
        return;
    }
    Show({text, icon, title, {QStringLiteral("&OK")}});
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
