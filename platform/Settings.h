#pragma once

#include <QString>
#include <QVariant>
#include <filesystem>

namespace platform {

/// The user's stored value of application/section/key, or `fallback` when there is none.
QString ReadSetting(const QString& application, const QString& section, const QString& key,
                    const QString& fallback);

/// Stores a value for this user. A store that cannot be written is passed over silently.
void WriteSetting(const QString& application, const QString& section, const QString& key,
                  const QString& value);

/// What a settings file of the desktop's (INI) has under section/key; nothing when it has nothing
/// or cannot be read.
QVariant ReadStored(const std::filesystem::path& file, const QString& key);

/// As `ReadSetting`, for a path, even one whose bytes are no valid UTF-8.
std::filesystem::path ReadPathSetting(const QString& application, const QString& section,
                                      const QString& key, const std::filesystem::path& fallback);

/// As `WriteSetting`, for a path; kept byte for byte.
void WritePathSetting(const QString& application, const QString& section, const QString& key,
                      const std::filesystem::path& value);

} // namespace platform
