#include "toolkit/PopUpMenu.h"

#include "toolkit/Presses.h"

#include <QMenu>

namespace toolkit {

void PopUpMenu(QWidget& owner, const QPoint& at, const std::vector<MenuEntry>& entries) {
    auto* menu = new QMenu(&owner);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setAccessibleName(owner.accessibleName());
    for (const MenuEntry& entry : entries) {
        if (entry.text.isEmpty()) {
            menu->addSeparator();
            continue;
        }
        // An "&" in a file name must not underline a letter.
        QString text = QString(entry.text).replace(u'&', QStringLiteral("&&"));
        if (!entry.keys.isEmpty())
            text += u'\t' + entry.keys;
        QAction* action = menu->addAction(text);
        action->setEnabled(entry.usable);
        // Queued until the menu is gone, because messages and dialogs may follow.
        QObject::connect(action, &QAction::triggered, &owner, entry.act, Qt::QueuedConnection);
    }
    menu->popup(at);
    if (LastInput() == Input::Keys)
        menu->setActiveAction(menu->actions().constFirst());
}

} // namespace toolkit
