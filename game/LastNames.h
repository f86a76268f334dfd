#pragma once

#include <QStringList>

namespace game {

/// The names entered last on this computer, the latest first, none twice.
QStringList LastNames();

/// Notes a name that was entered.
void RememberName(const QString& name);

} // namespace game
