#include "platform/Settings.h"

#include "platform/Text.h"

#include <QByteArray>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace platform {

namespace {

QString StoreOf(const QString& application) {
    return QStringLiteral("%1/Songrush/%2.conf")
        .arg(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation), application);
}

/// Qt would wait forever for anything but a regular file, such as a pipe.
bool Usable(const QString& file) {
    const QFileInfo info(file);
    return !info.exists() || info.isFile();
}

QVariant Read(const QString& application, const QString& section, const QString& key) {
    return ReadStored(PathFromText(StoreOf(application)), section + QLatin1Char('/') + key);
}

void Write(const QString& application, const QString& section, const QString& key,
           const QVariant& value) {
    // Writing flushes a file to the disk, which is worth avoiding at every start.
    if (Read(application, section, key) == value)
        return;
    const QString file = StoreOf(application);
    if (Usable(file))
        QSettings(file, QSettings::IniFormat).setValue(section + QLatin1Char('/') + key, value);
}

} // namespace

QVariant ReadStored(const std::filesystem::path& file, const QString& key) {
    const QString name = TextFromPath(file);
    return Usable(name) ? QSettings(name, QSettings::IniFormat).value(key) : QVariant();
}

QString ReadSetting(const QString& application, const QString& section, const QString& key,
                    const QString& fallback) {
    const QVariant value = Read(application, section, key);
    return value.isValid() ? value.toString() : fallback;
}

void WriteSetting(const QString& application, const QString& section, const QString& key,
                  const QString& value) {
    Write(application, section, key, value);
}

std::filesystem::path ReadPathSetting(const QString& application, const QString& section,
                                      const QString& key, const std::filesystem::path& fallback) {
    const QVariant value = Read(application, section, key);
    return value.isValid() ? std::filesystem::path(value.toByteArray().toStdString()) : fallback;
}

void WritePathSetting(const QString& application, const QString& section, const QString& key,
                      const std::filesystem::path& value) {
    const QByteArray bytes = QByteArray::fromStdString(value.string());
    const QString text = QString::fromUtf8(bytes);
    // Readable text where the store can hold it, the plain bytes where it cannot.
    Write(application, section, key, text.toUtf8() == bytes ? QVariant(text) : QVariant(bytes));
}

} // namespace platform
