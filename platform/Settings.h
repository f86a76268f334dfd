#pragma once

#include <QString>
#include <QVariant>
#include <filesystem>

namespace platform {

/// The user's stored value of application/section/key, or `fallback` when there is none.
QString ReadSetting(const QString& application, const QString& section, const QString& key,
                    const QString& fallback);

/// Stores a value for this user. Does nothing if the settings cannot be written.
void WriteSetting(const QString& application, const QString& section, const QString& key,
                  const QString& value);

/// The value of section/key in a settings file of the desktop's (INI); null if there is none or the
/// file cannot be read.
QVariant ReadStored(const std::filesystem::path& file, const QString& key);

/// As `ReadSetting`, for a path, even one whose bytes are not valid UTF-8.
std::filesystem::path ReadPathSetting(const QString& application, const QString& section,
                                      const QString& key, const std::filesystem::path& fallback);

/// As `WriteSetting`, for a path; kept byte for byte.
void WritePathSetting(const QString& application, const QString& section, const QString& key,
                      const std::filesystem::path& value);

} // namespace platform
