#pragma once

#include <QString>
#include <functional>
#include <vector>

class QPoint;
class QWidget;

namespace toolkit {

struct MenuEntry {
    QString text = {}; ///< empty for a line between the others
    QString keys = {}; ///< shortcut, as written on the keyboard
    std::function<void()> act = {};
    bool usable = true;
};

/// Opens a menu at a point of the screen and returns at once; what is chosen is done later. The
/// menu has the name of `owner` and is destroyed with it. Opened by a key, it starts on its first
/// entry.
void PopUpMenu(QWidget& owner, const QPoint& at, const std::vector<MenuEntry>& entries);

} // namespace toolkit
