#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <utility>

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

/// An ID3v2.3 tag with a title behind a picture of 300 KB.
inline std::string PictureTagOf(int song) {
    const auto number = [](std::size_t value, int bits) {
        std::string bytes;
        for (int shift = 3 * bits; shift >= 0; shift -= bits)
            bytes += static_cast<char>(value >> shift & ((1U << bits) - 1));
        return bytes;
    };
    const auto frame = [&number](const char* id, const std::string& text) {
        return id + number(text.size(), 8) + std::string(2, '\0') + text;
    };
    const std::string frames = frame("APIC", std::string(300'000, 'p')) +
                               frame("TIT2", '\0' + ("Song number " + std::to_string(song)));
    return "ID3\3" + std::string(2, '\0') + number(frames.size(), 7) + frames;
}

/// Fills `root` with files that have `ends` around their sound, in folders of 10 folders of 50.
inline void FillTree(const std::filesystem::path& root, int artists,
                     const std::function<std::pair<std::string, std::string>(int song)>& ends) {
    int song = 0;
    for (int artist = 0; artist < artists; ++artist) {
        for (int album = 0; album < 10; ++album) {
            const std::filesystem::path path =
                root / ("Artist " + std::to_string(artist)) / ("Album " + std::to_string(album));
            std::filesystem::create_directories(path);
            for (int track = 0; track < 50; ++track, ++song) {
                std::ofstream file(path / (std::to_string(track) + " - Song Title.mp3"));
                const auto [start, end] = ends(song);
                file << start << std::string(4000, 'x') << end;
            }
        }
    }
}

/// 10,000 files with ID3v1 tags.
inline const std::filesystem::path& MusicTree() {
    static const TemporaryFolder folder;
    [[maybe_unused]] static const bool made = [] {
        FillTree(folder.Path(), 20, [](int song) { return std::pair(std::string(), TagOf(song)); });
        return true;
    }();
    return folder.Path();
}

/// 2,000 files with ID3v2 tags that hold pictures.
inline const std::filesystem::path& PictureTree() {
    static const TemporaryFolder folder;
    [[maybe_unused]] static const bool made = [] {
        FillTree(folder.Path(), 4,
                 [](int song) { return std::pair(PictureTagOf(song), std::string()); });
        return true;
    }();
    return folder.Path();
}
