#pragma once

#include <QByteArray>
#include <QString>
#include <filesystem>
#include <string_view>

namespace platform {

/// Text of a path, one to one: `PathFromText` gives the same bytes back. Bytes that are not valid
/// UTF-8 become lone surrogates U+DC80 to U+DCFF, so the text may not be fit for display. Where "\"
/// is the separator, it becomes "/".
QString TextFromPath(const std::filesystem::path& path);

/// The path whose text is `text`; see `TextFromPath`.
std::filesystem::path PathFromText(const QString& text);

/// Bytes in the platform's 8-bit encoding as text to be shown; bytes that are not valid in it are
/// taken for Windows-1252.
QString ShownText(std::string_view bytes);

/// A path as text to be shown; see above.
QString ShownText(const std::filesystem::path& path);

/// Text in the platform's 8-bit encoding.
QByteArray SystemBytes(const QString& text);

/// Windows-1252 bytes as text; the five unassigned codes become the control characters there.
QString TextFromWindows1252(std::string_view bytes);

/// Text as Windows-1252, "?" for each character that it lacks.
QByteArray Windows1252FromText(const QString& text);

/// `text` without the blanks (U+0020 only) at its ends.
QString TrimBlanks(const QString& text);
std::string_view TrimBlanks(std::string_view text);

/// The text after the last separator of the platform, or after the last "\" where that can only
/// be a separator; the whole text when there is none.
QString AfterLastSeparator(const QString& text);

/// Text in which "?" and "\" are the program's own separators and blanks may follow: those that
/// `text` itself holds are escaped, one to one. The platform's path separators stay as they are.
QString EscapeSeparators(const QString& text);

/// Undoes `EscapeSeparators`.
QString UnescapeSeparators(const QString& text);

/// A list key: the path with "?" for every separator, one to one.
QString KeyFromPath(const std::filesystem::path& path);

/// The path of a list key.
std::filesystem::path PathFromKey(const QString& key);

} // namespace platform
