#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name =
            (std::filesystem::temp_directory_path() / "songrush-bench-XXXXXX").string();
        mPath = mkdtemp(name.data());
    }
    ~TemporaryFolder() { std::filesystem::remove_all(mPath); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return mPath; }

private:
    std::filesystem::path mPath;
};

inline std::string TagOf(int song) {
    std::string tag = "TAGSong number " + std::to_string(song);
    tag.resize(33, '\0');
    tag += "Some Artist";
    tag.resize(63, ' ');
    tag += "Some Album";
    tag.resize(128, ' ');
    return tag;
}

/// 10,000 tagged files in 20 folders of 10 folders of 50 files.
inline const std::filesystem::path& MusicTree() {
    static const TemporaryFolder folder;
    [[maybe_unused]] static const bool made = [] {
        int song = 0;
        for (int artist = 0; artist < 20; ++artist) {
            for (int album = 0; album < 10; ++album) {
                const std::filesystem::path path = folder.Path() /
                                                   ("Artist " + std::to_string(artist)) /
                                                   ("Album " + std::to_string(album));
                std::filesystem::create_directories(path);
                for (int track = 0; track < 50; ++track, ++song) {
                    std::ofstream file(path / (std::to_string(track) + " - Song Title.mp3"));
                    file << std::string(4000, 'x') << TagOf(song);
                }
            }
        }
        return true;
    }();
    return folder.Path();
}
