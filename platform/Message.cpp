#include "platform/Message.h"

#include <QApplication>
#include <QMessageBox>

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

QRect gPlace;

int Show(const QString& text, Icon icon, const QString& title, QMessageBox::StandardButtons buttons) {
    QMessageBox box(ToQt(icon), title, text, buttons, QApplication::activeWindow());
    // The texts hold file names, which must not be taken for markup.
    box.setTextFormat(Qt::PlainText);
    if (box.parentWidget() == nullptr && !gPlace.isNull()) {
        box.adjustSize();
        box.move(gPlace.center() - box.rect().center());
    }
    return box.exec();
}

} // namespace

void SetMessagePlace(const QRect& place) { gPlace = place; }

void ShowMessage(const QString& text, Icon icon, const QString& title) {
    Show(text, icon, title, QMessageBox::Ok);
}

bool AskYesNo(const QString& text, const QString& title) {
    return Show(text, Icon::None, title, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

} // namespace platform
