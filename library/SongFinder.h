#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace library {

/// Finds the files that the entries of another program's playlist mean. A folder is listed only
/// where a name does not lead anywhere as it is spelt, and only once.
class SongFinder {
public:
    /// Of a playlist in the absolute `folder`, from which relative paths begin.
    explicit SongFinder(const std::filesystem::path& folder);

    /// The path, byte for byte, of the file that an entry means: a path with "/" or "\", in UTF-8
    /// or Windows-1252, spelt in any mixture of cases, or a `file:` address. If there is none, as
    /// near as can be said. Nothing for what can be no song: another address or a playlist.
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
