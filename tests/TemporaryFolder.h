#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

/// A folder for one test's files, whatever bytes their names are made of.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "songrush-XXXXXX").string();
        EXPECT_NE(mkdtemp(name.data()), nullptr);
        mPath = name;
    }
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(mPath, error);
        EXPECT_FALSE(error) << error.message();
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return mPath; }

    /// Writes a file and creates the folders that it needs.
    std::filesystem::path Write(const std::filesystem::path& name, const std::string& bytes) const {
        const std::filesystem::path file = mPath / name;
        create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }

    /// How many files and folders lie in it, hidden ones too.
    long Entries() const {
        return std::distance(std::filesystem::directory_iterator(mPath),
                             std::filesystem::directory_iterator());
    }

private:
    std::filesystem::path mPath;
};

inline std::string BytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    EXPECT_TRUE(stream.is_open()) << file;
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

inline void MakeReadOnly(const std::filesystem::path& file) {
    using std::filesystem::perms;
    std::filesystem::permissions(file, perms::owner_read | perms::group_read);
}
