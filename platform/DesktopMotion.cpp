#include "platform/DesktopMotion.h"

#include "platform/Settings.h"
#include "platform/Text.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>
#include <utility>

namespace platform {

namespace {

constexpr int kPatience = 2000; // milliseconds until the portal counts as missing

/// Where a desktop keeps its setting for motion, and the value that asks for less.
struct Place {
    const char* name; // namespace of the portal
    const char* key;
    double reduced;
};

constexpr Place kPortalPlaces[] = {
    {"org.freedesktop.appearance", "reduced-motion", 1},
    {"org.gnome.desktop.interface", "enable-animations", 0},
    {"org.kde.kdeglobals.KDE", "AnimationDurationFactor", 0},
};

/// The number in a value that is a number, a boolean (0 or 1), or either of them as text.
std::optional<double> Number(const QVariant& value) {
    const QString text = value.toString();
    if (text.compare(u"true", Qt::CaseInsensitive) == 0)
        return 1;
    if (text.compare(u"false", Qt::CaseInsensitive) == 0)
        return 0;
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

bool InFile(const std::filesystem::path& file, const char* key, double reduced) {
    return Number(ReadStored(file, QLatin1String(key))) == reduced;
}

std::filesystem::path ConfigurationFolder() {
    return PathFromText(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
}

bool HasSessionBus() {
    // Without a bus, connecting to it could start one and wait for that.
    const bool known =
        qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
        QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
    return known && QDBusConnection::sessionBus().isConnected();
}

} // namespace

std::optional<bool> MotionReducedInPortal(const PortalSettings& settings) {
    std::optional<bool> reduced;
    for (const Place& place : kPortalPlaces) {
        const auto number =
            Number(settings.value(QLatin1String(place.name)).value(QLatin1String(place.key)));
        if (number)
            reduced = reduced.value_or(false) || *number == place.reduced;
    }
    return reduced;
}

bool MotionReducedInFiles(const std::filesystem::path& folder) {
    return InFile(folder / "gtk-4.0" / "settings.ini", "Settings/gtk-enable-animations", 0) ||
           InFile(folder / "gtk-3.0" / "settings.ini", "Settings/gtk-enable-animations", 0) ||
           InFile(folder / "kdeglobals", "KDE/AnimationDurationFactor", 0);
}

void AskDesktopAboutMotion(std::function<void(bool)> tell) {
    if (!HasSessionBus())
        return tell(MotionReducedInFiles(ConfigurationFolder()));
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("ReadAll"));
    QStringList names;
    for (const Place& place : kPortalPlaces)
        names << QLatin1String(place.name);
    question << names;
    auto* answer =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question, kPatience));
    QObject::connect(
        answer, &QDBusPendingCallWatcher::finished, answer, [answer, tell = std::move(tell)] {
            answer->deleteLater();
            const QVariant settings = answer->reply().arguments().value(0);
            const auto reduced = MotionReducedInPortal(qdbus_cast<PortalSettings>(settings));
            tell(reduced ? *reduced : MotionReducedInFiles(ConfigurationFolder()));
        });
}

} // namespace platform
