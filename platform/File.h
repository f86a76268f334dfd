#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <cstddef>
#include <filesystem>
#include <span>
#include <system_error>

namespace platform {

class RegularFile;

// Only regular files, and links to them, are read or written; anything else that has the name (a
// folder, a pipe, a device) is an error and is never waited for.

/// Reads the whole file into `bytes`, which are empty on error.
std::error_code ReadWholeFile(const std::filesystem::path& file, QByteArray& bytes);

/// Fills `tail` with the file's last bytes; false when it has fewer or cannot be read.
bool ReadTail(const std::filesystem::path& file, std::span<char> tail);
bool ReadTail(RegularFile& file, std::span<char> tail);

/// Puts `bytes`, in one write, in the place of the file's last `replaced` bytes; the file grows or
/// shrinks by the difference. On error the file is as it was. A read-only file is an error.
std::error_code ReplaceTail(const std::filesystem::path& file, std::size_t replaced,
                            QByteArrayView bytes);

/// Writes `bytes` after what the file holds; a file that does not exist is made.
std::error_code AppendToFile(const std::filesystem::path& file, QByteArrayView bytes);

/// Makes `bytes` the file's whole contents, whether or not it exists, even if it is read-only;
/// of a symbolic link, those of the file it leads to. The file keeps its permissions, except that
/// its owner may always read and write it. The contents are on the disk before they replace the old
/// ones in one step; on error the old file is as it was. The first time that a folder is written
/// into, what killed runs of the program left there is deleted, by another thread.
std::error_code ReplaceFile(const std::filesystem::path& file, QByteArrayView bytes);

/// Makes what was written to a file, or what was renamed in a folder, last through a power cut,
/// where the system can.
std::error_code FlushToDisk(const std::filesystem::path& path);

/// Gives a file another name on the same file system; never one that another file has, even where
/// the system's own rename would replace that one. On error the file is where it was.
std::error_code RenameNoReplace(const std::filesystem::path& from, const std::filesystem::path& to);

/// Makes a file writable for its owner.
std::error_code ClearReadOnly(const std::filesystem::path& file);

} // namespace platform
