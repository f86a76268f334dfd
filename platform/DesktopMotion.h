#pragma once

#include <QMap>
#include <QString>
#include <QVariantMap>
#include <filesystem>
#include <functional>
#include <optional>

namespace platform {

/// Asks the desktop portal or, without one, the settings files of the desktops whether the user
/// wants less motion; `tell` gets the answer later, from the event loop.
void AskDesktopAboutMotion(std::function<void(bool)> tell);

/// The portal's answer to `ReadAll`: namespaces with their keys and values.
using PortalSettings = QMap<QString, QVariantMap>;

/// What the portal's settings say; nothing when they do not mention motion.
std::optional<bool> MotionReducedInPortal(const PortalSettings& settings);

/// What the settings files of GTK and KDE in the user's configuration folder say.
bool MotionReducedInFiles(const std::filesystem::path& folder);

} // namespace platform
