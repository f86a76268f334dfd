#include "platform/Settings.h"

#include <QByteArray>
#include <QSettings>
#include <QVariant>

namespace platform {

namespace {

QVariant Read(const QString& application, const QString& section, const QString& key) {
    const QSettings store(QStringLiteral("Songrush"), application);
    return store.value(section + QLatin1Char('/') + key);
}

void Write(const QString& application, const QString& section, const QString& key,
           const QVariant& value) {
    // Writing flushes a file to the disk, which is worth avoiding at every start.
    if (Read(application, section, key) == value)
        return;
    QSettings store(QStringLiteral("Songrush"), application);
    store.setValue(section + QLatin1Char('/') + key, value);
}

} // namespace

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
