#include "platform/Message.h"

#include "platform/Wait.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <algorithm>
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

std::function<QRect()> gDialogPlace;

/// Qt would wrap lines that are not much too long.
void KeepLinesWhole(QMessageBox& box) {
    constexpr int kWidest = 640;
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (label != nullptr)
        label->setMinimumWidth(std::min(label->fontMetrics().size(0, box.text()).width(), kWidest));
}

int Show(const QString& text, Icon icon, const QString& title,
         QMessageBox::StandardButtons buttons) {
    if (Quitting())
        return QMessageBox::NoButton;
    QMessageBox box(ToQt(icon), title, text, buttons, QApplication::activeWindow());
    // The texts hold file names, which must not be taken for markup.
    box.setTextFormat(Qt::PlainText);
    KeepLinesWhole(box);
    PlaceDialog(box);
    return box.exec();
}

} // namespace

void SetDialogPlace(std::function<QRect()> place) { gDialogPlace = std::move(place); }

void PlaceDialog(QDialog& dialog) {
    if (dialog.parentWidget() != nullptr || !gDialogPlace)
        return;
    dialog.adjustSize();
    dialog.move(gDialogPlace().center() - dialog.rect().center());
}

void ShowMessage(const QString& text, Icon icon, const QString& title) {
    Show(text, icon, title, QMessageBox::Ok);
}

bool AskYesNo(const QString& text, const QString& title) {
    return Show(text, Icon::None, title, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

} // namespace platform
