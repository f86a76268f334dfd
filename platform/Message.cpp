#include "platform/Message.h"

#include "platform/Wait.h"

#include <QCoreApplication>
#include <QMessageBox>
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

bool ShowInWindow(const Message& message) {
    QMessageBox box(ToQt(message.icon), message.title, message.text,
                    message.question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    // The texts hold file names, which must not be taken for markup.
    box.setTextFormat(Qt::PlainText);
    return box.exec() == QMessageBox::Yes;
}

std::function<bool(const Message&)> gBox = ShowInWindow;

bool Show(const Message& message) { return !Quitting() && gBox(message); }

} // namespace

void SetMessageBox(std::function<bool(const Message&)> box) { gBox = std::move(box); }

void ShowMessage(const QString& text, Icon icon, const QString& title) {
    QCoreApplication* application = QCoreApplication::instance();
    if (QThread::currentThread() != application->thread()) {
        QMetaObject::invokeMethod(
            application, [=] { ShowMessage(text, icon, title); }, Qt::QueuedConnection);
        return;
    }
    Show({text, icon, title, false});
}

bool AskYesNo(const QString& text, const QString& title) {
    return Show({text, Icon::None, title, true});
}

} // namespace platform
