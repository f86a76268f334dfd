#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace platform {

/// A folder being listed, entry by entry. Holds one handle of the system while it lives.
class Folder {
public:
    enum class Kind { File, Folder, Other };

    struct Entry {
        std::filesystem::path::string_type name;
        /// Links count as what they lead to; those that lead nowhere, pipes and the like are Other.
        Kind kind = Kind::Other;
    };

    explicit Folder(const std::filesystem::path& path);
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    /// False when the folder cannot be listed; nothing below may be called then.
    bool Open() const;

    /// Names the real folder behind the path: the same text only for the same folder.
    std::string Identity() const;

    /// Goes on to the next entry, in the order the file system gives; "." and ".." are left out.
    /// False at the end; `entry` is then unchanged.
    bool Next(Entry& entry);

    /// Fills `tail` with the last bytes of one of the folder's files; false when it has fewer or
    /// cannot be read.
    bool ReadTail(const Entry& file, std::span<char> tail) const;

private:
    struct Handle;
    std::unique_ptr<Handle> mHandle;
};

} // namespace platform
