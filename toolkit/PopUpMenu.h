#pragma once

#include <QString>
#include <functional>
#include <vector>

class QPoint;
class QWidget;

namespace toolkit {

struct MenuEntry {
    QString text = {}; ///< empty for a line between the others
    QString keys = {}; ///< that do the same, as they are written on the keyboard
    std::function<void()> act = {};
    bool usable = true;
};

/// Opens a menu at a point of the screen and returns; it does what is chosen, if anything. It goes
/// with `owner`, whose name it has. Opened by a key it begins on its first entry.
void PopUpMenu(QWidget& owner, const QPoint& at, const std::vector<MenuEntry>& entries);

} // namespace toolkit
