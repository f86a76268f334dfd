#include "platform/ShowInFolder.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QUrl>

namespace platform {

namespace {

/// The `file:` address of a path, whose bytes need not be valid text.
QByteArray AddressOf(const std::filesystem::path& path) {
    return "file://" + QByteArray::fromStdString(path.generic_string()).toPercentEncoding("/");
}

} // namespace

void ShowInFolder(const std::filesystem::path& file) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList(QString::fromLatin1(AddressOf(file))) << QString();
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call),
                                                QCoreApplication::instance());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [folder = AddressOf(file.parent_path()), watcher] {
                         if (watcher->isError())
                             QDesktopServices::openUrl(QUrl::fromEncoded(folder));
                         watcher->deleteLater();
                     });
}

} // namespace platform
