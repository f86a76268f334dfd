#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace library {

/// Finds the files that the entries of another program's playlist mean. A folder is listed only if
/// a name is not found as it is spelt, and only once.
class SongFinder {
public:
    /// For a playlist in the absolute `folder`, from which relative paths start.
    explicit SongFinder(const std::filesystem::path& folder);

    /// The path, byte for byte, of the file that an entry means. The entry may be a path with "/"
    /// or "\", in UTF-8 or Windows-1252 and in any mixture of cases, or a `file:` address. The
    /// likeliest path if there is no such file. Nothing for what cannot be a song: another kind of
    /// address, or a playlist.
    std::optional<std::string> Find(std::string_view entry);

private:
    /// The names in a folder, under their spelling without case.
    using Names = std::unordered_multimap<std::string, std::string>;

    bool Exists(const std::string& path);
    std::optional<std::string> FindWithoutCase(const std::string& path);
    std::optional<std::string> NameIn(const std::string& folder, const std::string& name);
    const Names& NamesIn(const std::string& folder);

    std::string mFolder; // ends with "/"
    std::unordered_map<std::string, Names> mNames;
    std::unordered_map<std::string, std::string> mFolders; // by how they were spelt
};

} // namespace library
