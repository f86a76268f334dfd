#include "platform/Settings.h"

#include "platform/File.h"
#include "platform/Text.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <algorithm>
#include <chrono>
#include <optional>

namespace platform {

namespace fs = std::filesystem;

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

/// Whether a settings file of Qt's, which has each value on a line of its own, has so many values.
bool HasAll(const QByteArray& file, qsizetype values) {
    const QList<QByteArray> lines = file.split('\n');
    return lines.back().isEmpty() && std::ranges::count_if(lines, [](const QByteArray& line) {
                                         return line.contains('=');
                                     }) == values;
}

/// Replaces the file so that Qt, which looks at its size and its time in milliseconds, reads it
/// again.
void Replace(const fs::path& file, const QByteArray& bytes) {
    std::error_code error;
    const fs::file_time_type before = fs::last_write_time(file, error);
    const fs::file_time_type later = before + std::chrono::milliseconds(2);
    if (!ReplaceFile(file, bytes) && !error && fs::last_write_time(file, error) < later)
        fs::last_write_time(file, later, error);
}

/// Writes the values of a settings file, and one more, into another. Returns how many those are, or
/// nothing if they cannot be read.
std::optional<qsizetype> CopyWith(const QString& file, const QString& copy, const QString& key,
                                  const QVariant& value) {
    QByteArray bytes;
    const std::error_code error = ReadWholeFile(PathFromText(file), bytes);
    if (error && error != std::errc::no_such_file_or_directory)
        return std::nullopt;
    const QSettings old(file, QSettings::IniFormat);
    const QStringList keys = old.allKeys();
    if (keys.isEmpty() && bytes.contains('='))
        return std::nullopt;
    QSettings settings(copy, QSettings::IniFormat);
    for (const QString& oldKey : keys)
        settings.setValue(oldKey, old.value(oldKey));
    settings.setValue(key, value);
    return settings.allKeys().size();
}

void Write(const QString& application, const QString& section, const QString& key,
           const QVariant& value) {
    // Writing flushes a file to the disk, which is worth avoiding at every start.
    if (Read(application, section, key) == value)
        return;
    const QString file = StoreOf(application);
    if (!Usable(file))
        return;
    // On a full disk Qt replaces a file by an empty one and says nothing.
    const QString copy = file + QStringLiteral(".new");
    QFile::remove(copy);
    const auto values = CopyWith(file, copy, section + QLatin1Char('/') + key, value);
    QByteArray bytes;
    if (values && !ReadWholeFile(PathFromText(copy), bytes) && HasAll(bytes, *values))
        Replace(PathFromText(file), bytes);
    QFile::remove(copy);
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
