#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <cstddef>
#include <filesystem>
#include <span>
#include <system_error>

namespace platform {

class RegularFile;

// Only regular files, and links to them, are read or written; anything else of that name (a folder,
// a pipe, a device) is an error and never blocks.

/// Reads the whole file into `bytes`, which are empty on error.
std::error_code ReadWholeFile(const std::filesystem::path& file, QByteArray& bytes);

/// Fills `tail` with the file's last bytes; false when it has fewer or cannot be read.
bool ReadTail(const std::filesystem::path& file, std::span<char> tail);
bool ReadTail(RegularFile& file, std::span<char> tail);

/// Puts `bytes`, in one write, in the place of the file's last `replaced` bytes; the file grows or
/// shrinks by the difference. On error the file is as it was. A read-only file is an error.
std::error_code ReplaceTail(const std::filesystem::path& file, std::size_t replaced,
                            QByteArrayView bytes);

/// Appends `bytes` to the file, which is created if it does not exist.
std::error_code AppendToFile(const std::filesystem::path& file, QByteArrayView bytes);

/// Makes `bytes` the file's whole contents, creating it if need be, and even if it is read-only. A
/// symbolic link is followed. The file keeps its permissions, except that its owner may always read
/// and write it. The contents are on the disk before they replace the old ones in one step; on
/// error the old file is as it was. The first write into a folder also deletes, on another thread,
/// what killed runs of the program left there.
std::error_code ReplaceFile(const std::filesystem::path& file, QByteArrayView bytes);

/// Makes what was written to a file, or renamed in a folder, survive a power cut, where the system
/// can.
std::error_code FlushToDisk(const std::filesystem::path& path);

/// Renames a file within its file system. Never replaces another file, even where the system's own
/// rename would. On error the file stays where it was.
std::error_code RenameNoReplace(const std::filesystem::path& from, const std::filesystem::path& to);

/// Makes a file writable for its owner.
std::error_code ClearReadOnly(const std::filesystem::path& file);

} // namespace platform
